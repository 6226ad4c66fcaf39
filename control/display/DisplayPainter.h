// SPDX-License-Identifier: MIT
// The display without its window: drawn for a host that prints or has not activated the control.
#pragma once

#include <windows.h>

#include "control/display/Display.h"

namespace Quorvane {

/// Draws the display, as its window looks, into the bounds. `height` is the height of the control
/// in twips: it gives the scale of text and lines. The device context has one unit in both
/// directions, and may be recording a metafile.
void DrawDisplay(HDC context, const RECT& bounds, const Display& display, float height);

} // namespace Quorvane
