// SPDX-License-Identifier: MIT
// The part of a screen that windows may take.
#pragma once

#include <windows.h>

namespace Quorvane::Win {

/// The part of a window's screen that no task bar covers.
RECT WorkAreaOf(HWND window) noexcept;

/// A window's place moved into the work area of the screen that it mostly lies on, and made smaller
/// where it is larger than that.
RECT WithinWorkArea(const RECT& place) noexcept;

} // namespace Quorvane::Win
