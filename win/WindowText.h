// SPDX-License-Identifier: MIT
// Giving windows a text or a state, but only where they have another.
#pragma once

#include <windows.h>

#include "shared/Text.h"

namespace Quorvane::Win {

/// The text of a window. Throws std::bad_alloc.
Text TextOf(HWND window);

/// Sets a window's text unless it is that already, which would flicker. Without memory the text
/// stays as it is.
void ShowText(HWND window, const Text& text) noexcept;

/// Enables or disables a window unless it is so already. Returns whether it was not.
bool Enable(HWND window, bool enabled) noexcept;

} // namespace Quorvane::Win
