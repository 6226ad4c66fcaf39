// SPDX-License-Identifier: MIT
// What the screen shows of a window of this thread.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace Quorvane {

/// Pixels as 0x00RRGGBB, the top row first.
struct ScreenPicture {
    int Width = 0;
    int Height = 0;
    std::vector<std::uint32_t> Pixels;

    /// The client area of a window, once all that waits has been handled and the picture rests.
    static ScreenPicture Of(HWND window);

    /// The same after all of it has been painted anew.
    static ScreenPicture OfRepainted(HWND window);

    std::uint32_t At(LONG x, LONG y) const {
        return Pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(Width) +
                      static_cast<std::size_t>(x)];
    }

    /// How many pixels of an area have a colour.
    int Count(const RECT& area, std::uint32_t color) const;

    /// Says how many pixels differ, and where; nothing where none does.
    std::string DifferenceFrom(const ScreenPicture& other) const;
};

} // namespace Quorvane
