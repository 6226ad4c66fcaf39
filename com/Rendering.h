// SPDX-License-Identifier: MIT
// Pictures of a control: drawn, recorded and copied.
#pragma once

#include <windows.h>

#include <objidl.h>

#include "com/ControlCore.h"

namespace Quorvane::Com {

/// Draws the control into the bounds, given in the logical units of any device context. What the
/// caller has selected there is left as it was.
void DrawIn(ControlCore& core, HDC context, RECT bounds);

/// A picture of the control in a medium that the caller releases; TYMED_MFPICT, TYMED_ENHMF or
/// TYMED_GDI (a bitmap). Throws HresultError.
STGMEDIUM Render(ControlCore& core, DWORD mediumType);

} // namespace Quorvane::Com
