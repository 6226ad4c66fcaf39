// SPDX-License-Identifier: MIT
// Numbers as texts that lose nothing.
#include "system/ExactNumber.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "shared/NumberText.h"

namespace Quorvane::System {

Text ExactNumberText(double value) {
    if (value == 0) {
        return std::signbit(value) ? u"-0" : u"0";
    }
    Text text = NumberText(value);
    double read = 0;
    // The 15 digits of a number near the largest can stand for one beyond it.
    const std::string ascii(text.begin(), text.end());
    std::from_chars(ascii.data(), ascii.data() + ascii.size(), read);
    if (std::bit_cast<std::uint64_t>(read) == std::bit_cast<std::uint64_t>(value)) {
        return text;
    }
    std::array<char, 32> characters{};
    const char* const end =
        std::to_chars(characters.data(), characters.data() + characters.size(), value).ptr;
    text = Widen({characters.data(), end});
    if (const auto mark = text.find(u'e'); mark != Text::npos) {
        text[mark] = u'E';
    }
    return text;
}

} // namespace Quorvane::System
