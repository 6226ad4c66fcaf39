// SPDX-License-Identifier: MIT
// What the display's windows and its drawing without windows draw alike: texts, lines, headers.
#pragma once

#include <windows.h>

#include "control/display/DisplayLayout.h"
#include "shared/Text.h"

namespace Quorvane {

inline RECT RectangleOf(const PixelBox& box) noexcept {
    return {box.Left, box.Top, box.Left + box.Width, box.Top + box.Height};
}

/// How high a line of the font is, in pixels. It is measured on the screen: a metafile measures
/// nothing.
int LineHeight(HFONT font) noexcept;

void FillArea(HDC context, const RECT& area, COLORREF color) noexcept;

/// Draws a narrow rectangle as a line, which no scaling of a metafile makes vanish.
void DrawRule(HDC context, const RECT& area, COLORREF color) noexcept;

/// Draws one line of text in the middle of the height of a cell, cut with "..." where the cell is
/// too narrow for it. The background shows through.
void DrawCellText(HDC context, const RECT& cell, TextView text, HFONT font,
                  COLORREF color) noexcept;

/// So many pixels of 96 to the inch at another resolution.
inline int ScalePixels(int pixels, int dpi) noexcept {
    return ::MulDiv(pixels, dpi, 96);
}

/// The header of a column with a divider at its right edge, as light as the rows.
void DrawHeaderCell(HDC context, const RECT& cell, TextView text, HFONT font, int dpi) noexcept;

} // namespace Quorvane
