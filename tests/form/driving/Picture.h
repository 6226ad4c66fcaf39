// SPDX-License-Identifier: MIT
// What the screen shows of a window.
#pragma once

#include <windows.h>

#include <cstdint>
#include <filesystem>
#include <vector>

namespace Quorvane::Driving {

/// Pixels as 0x00RRGGBB, the top row first.
struct Picture {
    int Width = 0;
    int Height = 0;
    std::vector<std::uint32_t> Pixels;

    /// How many different colours it has.
    std::size_t ColorCount() const;
};

/// What the screen shows of the whole window, or of its client area.
Picture PictureOf(HWND window);
Picture PictureOfClient(HWND window);

/// What the screen shows of the client area once the window is painted and its picture rests.
/// Throws DriveError.
Picture RestingPictureOfClient(HWND window);

/// Writes a PNG file and makes its folder if need be. Throws DriveError.
void SavePng(const Picture& picture, const std::filesystem::path& path);

} // namespace Quorvane::Driving
