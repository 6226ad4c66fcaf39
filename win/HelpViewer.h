// SPDX-License-Identifier: MIT
// Help files in the viewer of the platform.
#pragma once

#include <windows.h>

#include "shared/Text.h"

namespace Quorvane::Win {

/// Opens a compiled help file in the platform's viewer. False, and nothing has happened, where
/// there is no such file, or no viewer.
bool ShowHelpFile(HWND owner, const Text& file) noexcept;

} // namespace Quorvane::Win
