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

/// More dots to the inch than any surface has; text is drawn no larger, and lengths do not
/// overflow, in a picture that is enlarged beyond that.
constexpr int MostDpi = 20000;

/// So many rows are more than any surface shows; a metafile takes as many as it is told.
constexpr LONG MostRows = 16384;

/// The part of a device context that can be seen, in its units; all of it in a metafile, whose
/// surface nobody knows.
RECT VisiblePart(HDC context, const RECT& bounds) noexcept {
    const DWORD type = ::GetObjectType(context);
    RECT visible;
    if (type == OBJ_METADC || type == OBJ_ENHMETADC ||
        ::GetClipBox(context, &visible) == RGN_ERROR) {
        return bounds;
    }
    return visible;
}

/// The units to the inch at which a control of a height in twips fills a height in units.
int DpiFor(LONG units, float twips) noexcept {
    const float dpi = static_cast<float>(units) * Win::TwipsPerInch / std::max(twips, 1.0F);
    return std::clamp(static_cast<int>(std::lround(std::min<float>(dpi, MostDpi))), 1, MostDpi);
}

/// Draws the parts one after the other, in units of the device context.
class DisplayPainter {
  public:
    DisplayPainter(HDC context, const RECT& bounds, const Display& display, float height)
        : context_(context), origin_{bounds.left, bounds.top}, size_{bounds.right - bounds.left,
                                                                     bounds.bottom - bounds.top},
          visible_(VisiblePart(context, bounds)), display_(display),
          dpi_(DpiFor(size_.cy, height)) {}

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

    /// Where drawing downwards can end: at a bottom, or just below what is seen.
    LONG LastSeen(LONG bottom) const noexcept { return std::min(bottom, visible_.bottom + Line()); }

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
        const LONG hidden = std::max<LONG>(0, (visible_.top - rows.top) / pitch);
        LONG bottom = rows.top + (hidden + 1) * pitch;
        for (LONG drawn = 0; bottom <= LastSeen(rows.bottom) && drawn < MostRows; ++drawn) {
            Rule({rows.left, bottom - line, rows.right, bottom}, color);
            bottom += pitch;
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
        LONG drawn = 0;
        for (const ListRow& texts : face.Rows) {
            if (row.top >= LastSeen(inner.bottom) || drawn++ == MostRows) {
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
    RECT visible_;
    const Display& display_;
    /// Units to the inch of the control as it is drawn.
    int dpi_;
};

} // namespace

void DrawDisplay(HDC context, const RECT& bounds, const Display& display, float height) {
    DisplayPainter(context, bounds, display, height).Draw();
}

} // namespace Quorvane
