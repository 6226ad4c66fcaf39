// SPDX-License-Identifier: MIT
// A user whose numbers have a decimal comma.
#include "tests/com/support/DecimalComma.h"

#include <gtest/gtest.h>

#include <iterator>

#include "com/Scoped.h"

namespace Quorvane {
namespace {

Text Setting(LCTYPE type) {
    wchar_t text[16]{};
    EXPECT_NE(::GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text, static_cast<int>(std::size(text))),
              0);
    return Com::ToText(text);
}

void Set(LCTYPE type, const Text& value) {
    EXPECT_TRUE(::SetLocaleInfoW(LOCALE_USER_DEFAULT, type, Com::Wide(value)));
    EXPECT_EQ(Setting(type), value);
}

} // namespace

DecimalComma::DecimalComma()
    : decimal_(Setting(LOCALE_SDECIMAL)), thousand_(Setting(LOCALE_STHOUSAND)) {
    Set(LOCALE_SDECIMAL, u",");
    Set(LOCALE_STHOUSAND, u".");
}

DecimalComma::~DecimalComma() {
    Set(LOCALE_SDECIMAL, decimal_);
    Set(LOCALE_STHOUSAND, thousand_);
}

} // namespace Quorvane
