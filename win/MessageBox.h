// SPDX-License-Identifier: MIT
// Message boxes.
#pragma once

#include <windows.h>

#include "shared/Text.h"

namespace Quorvane::Win {

/// Shows a modal message box over the owner, which may be null, and returns the button's id.
int ShowMessage(HWND owner, const Text& message, const Text& title, UINT style) noexcept;

} // namespace Quorvane::Win
