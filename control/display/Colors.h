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
COLORREF ToColorRef(OLE_COLOR value, OLE_COLOR otherwise) noexcept;

/// The colour of the caption on a strip. That of a disabled one is halfway to the strip's own,
/// since the system's grey is hard to see on a coloured strip.
COLORREF CaptionColor(OLE_COLOR strip, bool enabled) noexcept;

} // namespace Quorvane
