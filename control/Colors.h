// SPDX-License-Identifier: MIT
// The platform's colours for persons and for drawing.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

namespace Quorvane {

/// The window-background and window-text colours of the system.
inline constexpr OLE_COLOR DefaultBackColor = 0x80000005;
inline constexpr OLE_COLOR DefaultForeColor = 0x80000008;

/// The desktop and active-title-bar colours of the system.
inline constexpr OLE_COLOR DesktopColor = 0x80000001;
inline constexpr OLE_COLOR ActiveTitleColor = 0x80000002;

/// The colour to draw with. Hosts may store any number as a colour; one that means none is drawn
/// as `otherwise`.
COLORREF ToColorRef(OLE_COLOR color, OLE_COLOR otherwise) noexcept;

/// The colour of text on the caption strip: the system's own on a title-bar colour, else black or
/// white, whichever is easier to read.
COLORREF TextColorOn(OLE_COLOR strip) noexcept;

} // namespace Quorvane
