// SPDX-License-Identifier: MIT
// The platform's colours for persons and for drawing.
#include "control/display/Colors.h"

namespace Quorvane {

COLORREF ToColorRef(OLE_COLOR value, OLE_COLOR otherwise) noexcept {
    COLORREF result = 0;
    if (FAILED(::OleTranslateColor(value, nullptr, &result))) {
        ::OleTranslateColor(otherwise, nullptr, &result);
    }
    return result;
}

namespace {

/// The system's own on a title-bar colour, else black or white, whichever is easier to read.
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

} // namespace

COLORREF CaptionColor(OLE_COLOR strip, bool enabled) noexcept {
    const COLORREF text = TextColorOn(strip);
    if (enabled) {
        return text;
    }
    const COLORREF back = ToColorRef(strip, ActiveTitleColor);
    const auto halfway = [](int a, int b) { return static_cast<BYTE>((a + b) / 2); };
    return RGB(halfway(GetRValue(text), GetRValue(back)), halfway(GetGValue(text), GetGValue(back)),
               halfway(GetBValue(text), GetBValue(back)));
}

} // namespace Quorvane
