// SPDX-License-Identifier: MIT
// The platform's colours for persons and for drawing.
#include "control/Colors.h"

namespace Quorvane {

COLORREF ToColorRef(OLE_COLOR color, OLE_COLOR otherwise) noexcept {
    COLORREF result = 0;
    if (FAILED(::OleTranslateColor(color, nullptr, &result))) {
        ::OleTranslateColor(otherwise, nullptr, &result);
    }
    return result;
}

COLORREF TextColorOn(OLE_COLOR strip) noexcept {
    if (strip == ActiveTitleColor) {
        return ::GetSysColor(COLOR_CAPTIONTEXT);
    }
    const COLORREF color = ToColorRef(strip, ActiveTitleColor);
    // The brightness that the eye sees, in thousandths of full white.
    const int brightness =
        (299 * GetRValue(color) + 587 * GetGValue(color) + 114 * GetBValue(color)) / 255;
    constexpr int Middle = 500;
    return brightness < Middle ? RGB(255, 255, 255) : RGB(0, 0, 0);
}

} // namespace Quorvane
