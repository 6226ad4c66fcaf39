// SPDX-License-Identifier: MIT
// The palette of the terms.
#pragma once

#include <array>
#include <cstdint>

namespace Quorvane {

/// The colours that the terms of a variable take in turn, as 0x00BBGGRR.
inline constexpr std::array<std::uint32_t, 12> TermColors = {
    0xFF0000, // blue
    0x0000FF, // red
    0x00FFFF, // yellow
    0x008000, // dark green
    0xFF00FF, // magenta
    0x808000, // teal
    0x800080, // purple
    0x008080, // olive
    0x00FF00, // green
    0x000080, // maroon
    0xFFFF00, // cyan
    0x800000, // navy
};

} // namespace Quorvane
