// SPDX-License-Identifier: MIT
// The tips that windows of this thread show under a resting mouse.
#pragma once

#include <windows.h>

#include "shared/Text.h"

namespace Quorvane {

/// Rests the mouse on a point of a window's client area. Gives the text of the tip that appears,
/// an empty one where none does.
Text TipAt(HWND window, POINT point);

} // namespace Quorvane
