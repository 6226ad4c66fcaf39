// SPDX-License-Identifier: MIT
// The codec between plain definition text and the stored form that hosts persist.
#include "model/TransformText.h"

#include <array>
#include <cstdint>

#include "shared/FisError.h"
#include "shared/TextServices.h"

namespace Quorvane::Main {
namespace {

/// Codes below this are the same in every ANSI code page.
constexpr char16_t AsciiEnd = 0x80;

Text Encode(TextView text, const TextServices& platform) {
    Text stored;
    stored.reserve(2 * text.size());
    for (const char16_t character : text) {
        std::uint32_t code = character < AsciiEnd ? character : platform.AnsiCode(character);
        do {
            stored.push_back(u"0123456789ABCDEF"[code & 0xF]);
            code >>= 4;
        } while (code != 0);
    }
    return stored;
}

constexpr std::uint8_t NoDigit = 0xFF;

/// The values of hexadecimal digits of either letter case, by character.
constexpr auto DigitValues = [] {
    std::array<std::uint8_t, AsciiEnd> values{};
    values.fill(NoDigit);
    for (std::uint8_t value = 0; value < 16; ++value) {
        values[TextView(u"0123456789ABCDEF")[value]] = value;
        values[TextView(u"0123456789abcdef")[value]] = value;
    }
    return values;
}();

std::uint8_t HexDigit(char16_t digit) {
    const std::uint8_t value = digit < AsciiEnd ? DigitValues[digit] : NoDigit;
    if (value == NoDigit) {
        throw FisError(RuntimeError::TypeMismatch);
    }
    return value;
}

Text Decode(TextView stored, const TextServices& platform) {
    Text text((stored.size() + 1) / 2, u'\0');
    for (std::size_t i = 0; i < stored.size(); i += 2) {
        const unsigned high = i + 1 < stored.size() ? HexDigit(stored[i + 1]) : 0U;
        const auto code = static_cast<std::uint8_t>(high << 4 | HexDigit(stored[i]));
        text[i / 2] = code < AsciiEnd ? char16_t{code} : platform.AnsiCharacter(code);
    }
    return text;
}

} // namespace

Text TransformText(TextView text, bool encode) {
    return TransformText(text, encode, PlatformText());
}

Text TransformText(TextView text, bool encode, const TextServices& services) {
    return encode ? Encode(text, services) : Decode(text, services);
}

} // namespace Quorvane::Main
