// SPDX-License-Identifier: MIT
// The platform's font objects.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include "com/ComPtr.h"
#include "shared/Text.h"
#include "win/Handle.h"

namespace Quorvane {

/// A new font object with the face and size of the user's dialogs. Throws Com::HresultError.
Com::ComPtr<IFontDisp> NewDialogFont();

/// Whether two font objects have the same attributes; a null font equals only null.
bool HaveSameAttributes(IFontDisp* left, IFontDisp* right);

/// A font to draw with, as high as the font object says at so many dots per inch. The object's own
/// handle is made for the screen only. No font where the object is null or does not answer.
Win::Font DrawingFont(IFontDisp* font, int dpi) noexcept;

/// The bold font of the caption, and the font of the status bar, at so many dots per inch.
Win::Font CaptionFont(int dpi) noexcept;
Win::Font StatusFont(int dpi) noexcept;

/// The width of a text in pixels.
int TextWidth(HFONT font, const Text& text) noexcept;

} // namespace Quorvane
