// SPDX-License-Identifier: MIT
// Console: lines of text to the console, or as UTF-8 to a file or pipe.
#pragma once

#include <windows.h>

#include "shared/Text.h"

namespace Quorvane::Host {

/// Writes `line` and a line end to the standard handle `stream` (STD_OUTPUT_HANDLE or
/// STD_ERROR_HANDLE), at once.
void WriteConsoleLine(DWORD stream, TextView line);

} // namespace Quorvane::Host
