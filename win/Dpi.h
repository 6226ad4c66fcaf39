// SPDX-License-Identifier: MIT
// Resolutions, and lengths in twips, HIMETRIC and pixels.
#pragma once

#include <windows.h>

namespace Quorvane::Win {

inline constexpr int TwipsPerInch = 1440;
inline constexpr int HimetricPerInch = 2540;

/// The dots per inch that a window is drawn with: of its monitor where the process knows of that,
/// else of the system. Never 0.
int DpiOf(HWND window) noexcept;

/// The dots per inch of a device context, vertically. Never 0.
int DpiOf(HDC context) noexcept;

/// A length in pixels as twips.
inline float TwipsOf(int pixels, int dpi) noexcept {
    return static_cast<float>(pixels) * TwipsPerInch / static_cast<float>(dpi);
}

inline int PixelsOfHimetric(LONG himetric, int dpi) noexcept {
    return ::MulDiv(himetric, dpi, HimetricPerInch);
}

inline LONG HimetricOfPixels(int pixels, int dpi) noexcept {
    return ::MulDiv(pixels, HimetricPerInch, dpi);
}

inline float TwipsOfHimetric(LONG himetric) noexcept {
    return static_cast<float>(himetric) * TwipsPerInch / HimetricPerInch;
}

} // namespace Quorvane::Win
