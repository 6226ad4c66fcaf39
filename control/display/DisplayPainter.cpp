// SPDX-License-Identifier: MIT
// The display drawn without its window.
#include "control/display/DisplayPainter.h"

#include <algorithm>
#include <cmath>

#include "com/Fonts.h"
#include "control/display/CellDrawing.h"
#include "win/Dpi.h"
#include "win/WideText.h"

namespace Quorvane {
namespace {

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
        // A list that has no room keeps the height that it has.
        DisplayLayout layout = display_.Layout();
        const Win::Font captionFont = CaptionFont(dpi_);
        const float textWidth =
            Win::TwipsOf(TextWidth(captionFont.Get(), display_.lblCaption.Caption), dpi_);
        LayOut(layout, Win::TwipsOf(size_.cx, dpi_), Win::TwipsOf(size_.cy, dpi_), textWidth);
        const PixelLayout boxes = ToPixels(layout, size_.cx, size_.cy, static_cast<float>(dpi_));
        // Where it is low, more stands in the control than it has room for.
        ::IntersectClipRect(context_, origin_.x, origin_.y, origin_.x + size_.cx,
                            origin_.y + size_.cy);
        // A host's context comes with settings of its own.
        ::SetTextAlign(context_, TA_LEFT | TA_TOP | TA_NOUPDATECP);
        ::SetROP2(context_, R2_COPYPEN);
        // The undermost first.
        std::for_each(StackingOrder.rbegin(), StackingOrder.rend(), [&](Constituent constituent) {
            DrawConstituent(constituent, boxes, captionFont.Get());
        });
    }

  private:
    void DrawConstituent(Constituent constituent, const PixelLayout& boxes,
                         HFONT captionFont) const noexcept {
        switch (constituent) {
        case Constituent::Strip:
            DrawStrip(boxes, captionFont);
            break;
        case Constituent::Input:
            DrawList(boxes.Input, display_.lvwInput);
            break;
        case Constituent::Output:
            DrawList(boxes.Output, display_.lvwOutput);
            break;
        case Constituent::Status:
            DrawStatus(boxes.Status);
            break;
        }
    }

    RECT At(const PixelBox& box) const noexcept {
        const LONG left = origin_.x + box.Left;
        const LONG top = origin_.y + box.Top;
        return {left, top, left + box.Width, top + box.Height};
    }

    /// So many pixels of 96 to the inch, in units.
    int Units(int pixels) const noexcept { return ScalePixels(pixels, dpi_); }

    /// The width of lines.
    int Line() const noexcept { return std::max(1, Units(1)); }

    void Fill(const RECT& area, COLORREF color) const noexcept { FillArea(context_, area, color); }

    void Rule(const RECT& area, COLORREF color) const noexcept { DrawRule(context_, area, color); }

    void Frame(const RECT& area, COLORREF color) const noexcept {
        const int line = Line();
        Rule({area.left, area.top, area.right, area.top + line}, color);
        Rule({area.left, area.bottom - line, area.right, area.bottom}, color);
        Rule({area.left, area.top, area.left + line, area.bottom}, color);
        Rule({area.right - line, area.top, area.right, area.bottom}, color);
    }

    void Write(const RECT& cell, const Text& text, HFONT font, COLORREF color) const noexcept {
        DrawCellText(context_, cell, text, font, color);
    }

    void DrawStrip(const PixelLayout& boxes, HFONT font) const noexcept {
        const COLORREF back = ToColorRef(display_.picCaption.BackColor, ActiveTitleColor);
        Fill(At(boxes.Strip), back);
        Write(At(boxes.Caption), display_.lblCaption.Caption, font,
              CaptionColor(display_.picCaption.BackColor, display_.lblCaption.Enabled));
    }

    void DrawHeader(const RECT& list, const ListFace& face, int columnWidth, HFONT font,
                    LONG bottom) const noexcept {
        const RECT header{list.left, list.top, list.right, bottom};
        // As visual styles draw it: as light as the rows.
        Fill(header, ::GetSysColor(COLOR_WINDOW));
        RECT cell = header;
        for (const ListColumn& column : face.Columns) {
            cell.right = cell.left + columnWidth;
            DrawHeaderCell(context_, cell, column.Header, font, dpi_);
            cell.left = cell.right;
        }
    }

    void DrawRow(const RECT& row, const ListRow& texts, int columnWidth, HFONT font,
                 COLORREF color) const noexcept {
        const LONG middle = row.left + columnWidth;
        const LONG right = middle + columnWidth;
        Write({row.left + Units(6), row.top, middle - Units(1), row.bottom}, texts.Label, font,
              color);
        Write({middle + Units(5), row.top, right - Units(1), row.bottom}, texts.Value, font, color);
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
        const LONG headerBottom = inner.top + line + Units(6);
        const COLORREF color = face.Enabled ? ToColorRef(face.ForeColor, DefaultForeColor)
                                            : ::GetSysColor(COLOR_GRAYTEXT);
        RECT row{inner.left, headerBottom, inner.right, headerBottom + line + Units(1)};
        // Also where no handle is left to measure with: the rows have to come to an end.
        const LONG pitch = std::max<LONG>(row.bottom - row.top, 1);
        const Win::SavedDc saved(context_);
        ::IntersectClipRect(context_, outer.left, outer.top, outer.right, outer.bottom);
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
