// SPDX-License-Identifier: MIT
// The text conversions of Windows for the core: ANSI code page and user's locale.
#include "com/WindowsTextServices.h"

#include <windows.h>

#include <oleauto.h>

#include <array>

#include "com/Scoped.h"
#include "shared/FisError.h"

namespace Quorvane {
namespace {

class Services final : public TextServices {
  public:
    std::uint16_t AnsiCode(char16_t character) const override {
        const auto wide = static_cast<wchar_t>(character);
        std::array<char, 4> bytes{};
        const int count = ::WideCharToMultiByte(CP_ACP, 0, &wide, 1, bytes.data(),
                                                static_cast<int>(bytes.size()), nullptr, nullptr);
        const auto byte = [&bytes](std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); };
        switch (count) {
        case 1:
            return byte(0);
        case 2:
            return static_cast<std::uint16_t>(byte(0) << 8 | byte(1));
        default:
            return u'?';
        }
    }

    char16_t AnsiCharacter(std::uint8_t code) const override {
        const auto byte = static_cast<char>(code);
        wchar_t wide = L'?';
        ::MultiByteToWideChar(CP_ACP, 0, &byte, 1, &wide, 1);
        return static_cast<char16_t>(wide);
    }

    Text DecimalSeparator() const override {
        std::array<wchar_t, 8> separator{};
        const int size = ::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator.data(),
                                          static_cast<int>(separator.size()));
        return size > 1 ? Com::ToText(separator.data()) : Text(u".");
    }

    double NumberFromLocaleText(TextView text) const override {
        Text terminated(text);
        auto* const wide = reinterpret_cast<wchar_t*>(terminated.data());
        double number = 0;
        const HRESULT result = ::VarR8FromStr(wide, LOCALE_USER_DEFAULT, 0, &number);
        if (FAILED(result)) {
            throw FisError(result == DISP_E_OVERFLOW ? RuntimeError::Overflow
                                                     : RuntimeError::TypeMismatch);
        }
        return number;
    }
};

} // namespace

const TextServices& WindowsTextServices() noexcept {
    static constinit const Services services;
    return services;
}

} // namespace Quorvane
