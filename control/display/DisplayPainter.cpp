// SPDX-License-Identifier: MIT
// The display drawn without its window.
#include "control/display/DisplayPainter.h"

#include <algorithm>
#include <cmath>

#include "com/Fonts.h"
#include "win/Dpi.h"
#include "win/WideText.h"

namespace Quorvane {
namespace {

/// How high a line of the font is. It is measured on the screen: a metafile measures nothing.
int LineHeight(HFONT font) noexcept {
    const Win::WindowDc screen(nullptr);
    const Win::Selection selected(screen.Get(), font);
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(screen.Get(), &metrics);
    return metrics.tmHeight;
}

/// Draws the parts one after the other, in units of the device context.
class DisplayPainter {
  public:
    DisplayPainter(HDC context, const RECT& bounds, const Display& display, float height)
        : context_(context), origin_{bounds.left, bounds.top}, size_{bounds.right - bounds.left,
                                                                     bounds.bottom - bounds.top},
          display_(display),
          dpi_(std::max(
              1, static_cast<int>(std::lround(static_cast<float>(size_.cy) * Win::TwipsPerInch /
                                              std::max(height, 1.0F))))) {}

    void Draw() {
        const Win::SavedDc saved(context_);
        DisplayLayout layout;
        const Win::Font captionFont = CaptionFont(dpi_);
        const float textWidth =
            Win::TwipsOf(TextWidth(captionFont.Get(), display_.lblCaption.Caption), dpi_);
        LayOut(layout, Win::TwipsOf(size_.cx, dpi_), Win::TwipsOf(size_.cy, dpi_), textWidth);
        const PixelLayout boxes = ToPixels(layout, size_.cx, size_.cy, static_cast<float>(dpi_));
        ::SetBkMode(context_, TRANSPARENT);
        // A host's context comes with settings of its own.
        ::SetTextAlign(context_, TA_LEFT | TA_TOP | TA_NOUPDATECP);
        ::SetROP2(context_, R2_COPYPEN);
        DrawStrip(boxes, captionFont.Get());
        // In the order of the windows: the input list lies over the output list.
        DrawList(boxes.Output, display_.lvwOutput);
        DrawList(boxes.Input, display_.lvwInput);
        DrawStatus(boxes.Status);
    }

  private:
    RECT At(const PixelBox& box) const noexcept {
        const LONG left = origin_.x + box.Left;
        const LONG top = origin_.y + box.Top;
        return {left, top, left + box.Width, top + box.Height};
    }

    /// So many pixels of 96 to the inch, in units.
    int Units(int pixels) const noexcept { return ::MulDiv(pixels, dpi_, 96); }

    void Fill(const RECT& area, COLORREF color) const noexcept {
        const Win::Brush brush(::CreateSolidBrush(color));
        ::FillRect(context_, &area, brush.Get());
    }

    /// Draws a narrow rectangle as a line, which no scaling of a metafile makes vanish.
    void Rule(const RECT& area, COLORREF color) const noexcept {
        const LONG width = area.right - area.left;
        const LONG height = area.bottom - area.top;
        const bool flat = width >= height;
        const Win::Pen pen(::CreatePen(PS_SOLID, static_cast<int>(std::min(width, height)), color));
        const Win::Selection selected(context_, pen.Get());
        const LONG x = area.left + (flat ? 0 : width / 2);
        const LONG y = area.top + (flat ? height / 2 : 0);
        ::MoveToEx(context_, x, y, nullptr);
        ::LineTo(context_, flat ? area.right : x, flat ? y : area.bottom);
    }

    /// The width of lines.
    int Line() const noexcept { return std::max(1, Units(1)); }

    void Frame(const RECT& area, COLORREF color) const noexcept {
        const int line = Line();
        Rule({area.left, area.top, area.right, area.top + line}, color);
        Rule({area.left, area.bottom - line, area.right, area.bottom}, color);
        Rule({area.left, area.top, area.left + line, area.bottom}, color);
        Rule({area.right - line, area.top, area.right, area.bottom}, color);
    }

    /// One line of text, in the middle of the height of its cell.
    void Write(const RECT& cell, const Text& text, HFONT font, COLORREF color) const noexcept {
        const Win::Selection selected(context_, font);
        ::SetTextColor(context_, color);
        const LONG top = cell.top + (cell.bottom - cell.top - LineHeight(font)) / 2;
        ::ExtTextOutW(context_, cell.left, top, ETO_CLIPPED, &cell, Win::Wide(text),
                      static_cast<UINT>(text.size()), nullptr);
    }

    void DrawStrip(const PixelLayout& boxes, HFONT font) const noexcept {
        const COLORREF back = ToColorRef(display_.picCaption.BackColor, ActiveTitleColor);
        Fill(At(boxes.Strip), back);
        RECT label = At(boxes.Label);
        label.right = std::min(label.right, At(boxes.Strip).right);
        Write(label, display_.lblCaption.Caption, font,
              CaptionColor(display_.picCaption.BackColor, display_.lblCaption.Enabled));
    }

    void DrawHeader(const RECT& list, const ListFace& face, int columnWidth, HFONT font,
                    LONG bottom) const noexcept {
        const RECT header{list.left, list.top, list.right, bottom};
        // As visual styles draw it: as light as the rows.
        Fill(header, ::GetSysColor(COLOR_WINDOW));
        RECT cell = header;
        for (const ListColumn& column : face.Columns) {
            cell.right = std::min<LONG>(cell.left + columnWidth, list.right);
            const RECT divider{cell.right - Line(), cell.top, cell.right, bottom};
            if (cell.right + Line() < list.right) {
                Rule(divider, ::GetSysColor(COLOR_BTNSHADOW));
            }
            const RECT text{cell.left + Units(6), cell.top, divider.left, bottom};
            Write(text, column.Header, font, ::GetSysColor(COLOR_WINDOWTEXT));
            cell.left = cell.right;
        }
    }

    void DrawRow(const RECT& row, const ListRow& texts, int columnWidth, HFONT font,
                 COLORREF color) const noexcept {
        const LONG middle = std::min<LONG>(row.left + columnWidth, row.right);
        Write({row.left + Units(6), row.top, middle, row.bottom}, texts.Label, font, color);
        Write({middle + Units(5), row.top, row.right, row.bottom}, texts.Value, font, color);
    }

    /// The lines under the rows, whether or not these are used, and between the columns.
    void DrawGrid(const RECT& rows, LONG pitch, int columnWidth) const noexcept {
        const COLORREF color = ::GetSysColor(COLOR_BTNFACE);
        const int line = Line();
        for (LONG bottom = rows.top + pitch; bottom <= rows.bottom; bottom += pitch) {
            Rule({rows.left, bottom - line, rows.right, bottom}, color);
        }
        const LONG middle = rows.left + columnWidth;
        if (middle < rows.right) {
            Rule({middle, rows.top, middle + line, rows.bottom}, color);
        }
    }

    void DrawList(const ListBox& box, const ListFace& face) const noexcept {
        const RECT outer = At(box.Box);
        if (outer.bottom <= outer.top) {
            return;
        }
        Fill(outer, ToColorRef(face.BackColor, DefaultBackColor));
        const Win::Font font = DrawingFont(face.Font.Get().Get(), dpi_);
        RECT inner = outer;
        ::InflateRect(&inner, -Units(1), -Units(1));
        const int line = LineHeight(font.Get());
        const LONG headerBottom = std::min<LONG>(inner.top + line + Units(6), inner.bottom);
        const COLORREF color = face.Enabled ? ToColorRef(face.ForeColor, DefaultForeColor)
                                            : ::GetSysColor(COLOR_GRAYTEXT);
        RECT row{inner.left, headerBottom, inner.right, headerBottom + line + Units(1)};
        // Also where no handle is left to measure with: the rows have to come to an end.
        const LONG pitch = std::max<LONG>(row.bottom - row.top, 1);
        DrawGrid({inner.left, headerBottom, inner.right, inner.bottom}, pitch, box.ColumnWidth);
        for (const ListRow& texts : face.Rows) {
            if (row.top >= inner.bottom) {
                break;
            }
            const LONG bottom = row.bottom;
            row.bottom = std::min(bottom, inner.bottom);
            DrawRow(row, texts, box.ColumnWidth, font.Get(), color);
            row.top = bottom;
            row.bottom = bottom + pitch;
        }
        DrawHeader(inner, face, box.ColumnWidth, font.Get(), headerBottom);
        Frame(outer, ::GetSysColor(COLOR_WINDOWFRAME));
    }

    /// The picture of a failed cycle is in a panel that is hidden by then.
    void DrawStatus(const PixelBox& box) const noexcept {
        RECT area = At(box);
        Fill(area, ::GetSysColor(COLOR_BTNFACE));
        if (display_.sbMessage.Visible) {
            const Win::Font font = StatusFont(dpi_);
            area.left += Units(4);
            Write(area, display_.sbMessage.Message, font.Get(), ::GetSysColor(COLOR_BTNTEXT));
        }
    }

    HDC context_;
    POINT origin_;
    SIZE size_;
    const Display& display_;
    /// Units to the inch of the control as it is drawn.
    int dpi_;
};

} // namespace

void DrawDisplay(HDC context, const RECT& bounds, const Display& display, float height) {
    DisplayPainter(context, bounds, display, height).Draw();
}

} // namespace Quorvane
