// SPDX-License-Identifier: MIT
// Fonts for tests to give and to compare.
#include "tests/com/support/TestFont.h"

#include <gtest/gtest.h>

namespace Quorvane {
namespace {

constexpr LONG UnitsPerPoint = 10000;

} // namespace

Com::ComPtr<IFontDisp> NewFont(LONG points, SHORT weight) {
    wchar_t name[] = L"Tahoma";
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = name;
    description.cySize.int64 = points * UnitsPerPoint;
    description.sWeight = weight;
    description.sCharset = DEFAULT_CHARSET;
    Com::ComPtr<IFontDisp> font;
    EXPECT_EQ(::OleCreateFontIndirect(&description, __uuidof(IFontDisp), font.PutVoid()), S_OK);
    return font;
}

LONG PointsOf(IFontDisp* font) {
    CY size{};
    if (const auto details = Com::Query<IFont>(font)) {
        EXPECT_EQ(details->get_Size(&size), S_OK);
    }
    return static_cast<LONG>((size.int64 + UnitsPerPoint / 2) / UnitsPerPoint);
}

SHORT WeightOf(IFontDisp* font) {
    SHORT weight = 0;
    if (const auto details = Com::Query<IFont>(font)) {
        EXPECT_EQ(details->get_Weight(&weight), S_OK);
    }
    return weight;
}

} // namespace Quorvane
