// SPDX-License-Identifier: MIT
// Resolutions, and lengths in twips, HIMETRIC and pixels.
#pragma once

#include <windows.h>

namespace Quorvane::Win {

inline constexpr int TwipsPerInch = 1440;
inline constexpr int HimetricPerInch = 2540;

/// Sent to top-level windows, and to child windows after their parents, when the resolution of
/// their monitor has changed. Newer than the headers for the oldest Windows.
inline constexpr UINT DpiChanged = 0x02E0;
inline constexpr UINT DpiChangedAfterParent = 0x02E3;

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
