// SPDX-License-Identifier: MIT
// What the display's windows and its drawing without windows draw alike.
#include "control/display/CellDrawing.h"

#include <algorithm>

#include "win/Handle.h"
#include "win/WideText.h"

namespace Quorvane {
namespace {

constexpr TextView Ellipsis = u"...";

/// How much of a text a line has room for.
struct FittingText {
    int Length;
    /// Of these characters.
    int Width;
    bool IsCut;
};

/// The width of a text in the font that is selected.
int WidthOf(HDC screen, TextView text) noexcept {
    SIZE size{};
    ::GetTextExtentPoint32W(screen, Win::Characters(text), static_cast<int>(text.size()), &size);
    return size.cx;
}

FittingText Fit(HDC screen, TextView text, int width) noexcept {
    const int whole = WidthOf(screen, text);
    if (whole <= width) {
        return {static_cast<int>(text.size()), whole, false};
    }
    const int room = std::max(0, width - WidthOf(screen, Ellipsis));
    int length = 0;
    SIZE size{};
    ::GetTextExtentExPointW(screen, Win::Characters(text), static_cast<int>(text.size()), room,
                            &length, nullptr, &size);
    if (length > 0 && IS_HIGH_SURROGATE(text[static_cast<std::size_t>(length) - 1])) {
        --length; // half a character
    }
    return {length, WidthOf(screen, text.substr(0, static_cast<std::size_t>(length))), true};
}

} // namespace

int LineHeight(HFONT font) noexcept {
    const Win::WindowDc screen(nullptr);
    const Win::Selection selected(screen.Get(), font);
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(screen.Get(), &metrics);
    return metrics.tmHeight;
}

void FillArea(HDC context, const RECT& area, COLORREF color) noexcept {
    const Win::Brush brush(::CreateSolidBrush(color));
    ::FillRect(context, &area, brush.Get());
}

void DrawRule(HDC context, const RECT& area, COLORREF color) noexcept {
    const LONG width = area.right - area.left;
    const LONG height = area.bottom - area.top;
    const bool flat = width >= height;
    const Win::Pen pen(::CreatePen(PS_SOLID, static_cast<int>(std::min(width, height)), color));
    const Win::Selection selected(context, pen.Get());
    const LONG x = area.left + (flat ? 0 : width / 2);
    const LONG y = area.top + (flat ? height / 2 : 0);
    ::MoveToEx(context, x, y, nullptr);
    ::LineTo(context, flat ? area.right : x, flat ? y : area.bottom);
}

void DrawCellText(HDC context, const RECT& cell, TextView text, HFONT font,
                  COLORREF color) noexcept {
    if (cell.right <= cell.left) {
        return;
    }
    FittingText fit{};
    LONG top = cell.top;
    {
        // On the screen: a metafile measures nothing.
        const Win::WindowDc screen(nullptr);
        const Win::Selection selected(screen.Get(), font);
        TEXTMETRICW metrics{};
        ::GetTextMetricsW(screen.Get(), &metrics);
        top += (cell.bottom - cell.top - metrics.tmHeight) / 2;
        fit = Fit(screen.Get(), text, cell.right - cell.left);
    }
    const Win::Selection selected(context, font);
    ::SetBkMode(context, TRANSPARENT);
    ::SetTextColor(context, color);
    ::ExtTextOutW(context, cell.left, top, ETO_CLIPPED, &cell, Win::Characters(text),
                  static_cast<UINT>(fit.Length), nullptr);
    if (fit.IsCut) {
        ::ExtTextOutW(context, cell.left + fit.Width, top, ETO_CLIPPED, &cell,
                      Win::Characters(Ellipsis), static_cast<UINT>(Ellipsis.size()), nullptr);
    }
}

void DrawHeaderCell(HDC context, const RECT& cell, TextView text, HFONT font, int dpi) noexcept {
    FillArea(context, cell, ::GetSysColor(COLOR_WINDOW));
    const int line = std::max(1, ScalePixels(1, dpi));
    const RECT divider{cell.right - line, cell.top, cell.right, cell.bottom};
    DrawRule(context, divider, ::GetSysColor(COLOR_BTNSHADOW));
    const int margin = ScalePixels(6, dpi);
    DrawCellText(context, {cell.left + margin, cell.top, cell.right - margin, cell.bottom}, text,
                 font, ::GetSysColor(COLOR_WINDOWTEXT));
}

} // namespace Quorvane
