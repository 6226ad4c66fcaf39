// SPDX-License-Identifier: MIT
// The display drawn without its window.
#include "control/DisplayPainter.h"

#include <algorithm>
#include <cmath>

#include "control/Fonts.h"
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

    void Frame(const RECT& area, COLORREF color) const noexcept {
        const int line = std::max(1, Units(1));
        Fill({area.left, area.top, area.right, area.top + line}, color);
        Fill({area.left, area.bottom - line, area.right, area.bottom}, color);
        Fill({area.left, area.top, area.left + line, area.bottom}, color);
        Fill({area.right - line, area.top, area.right, area.bottom}, color);
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
        const bool enabled = display_.lblCaption.Enabled;
        RECT label = At(boxes.Label);
        label.right = std::min(label.right, At(boxes.Strip).right);
        Write(label, display_.lblCaption.Caption, font,
              enabled ? TextColorOn(display_.picCaption.BackColor) : ::GetSysColor(COLOR_GRAYTEXT));
    }

    void DrawHeader(const RECT& list, const ListFace& face, int columnWidth, HFONT font,
                    LONG bottom) const noexcept {
        const RECT header{list.left, list.top, list.right, bottom};
        Fill(header, ::GetSysColor(COLOR_BTNFACE));
        RECT cell = header;
        for (const ListColumn& column : face.Columns) {
            cell.right = std::min<LONG>(cell.left + columnWidth, list.right);
            const RECT divider{cell.right - Units(1), cell.top, cell.right, bottom};
            Fill(divider, ::GetSysColor(COLOR_BTNSHADOW));
            const RECT text{cell.left + Units(6), cell.top, divider.left, bottom};
            Write(text, column.Header, font, ::GetSysColor(COLOR_BTNTEXT));
            cell.left = cell.right;
        }
        Fill({list.left, bottom - Units(1), list.right, bottom}, ::GetSysColor(COLOR_BTNSHADOW));
    }

    void DrawRow(const RECT& row, const ListRow& texts, int columnWidth, HFONT font,
                 COLORREF color) const noexcept {
        const LONG middle = std::min<LONG>(row.left + columnWidth, row.right);
        Write({row.left + Units(4), row.top, middle, row.bottom}, texts.Label, font, color);
        Write({middle + Units(6), row.top, row.right, row.bottom}, texts.Value, font, color);
        Fill({row.left, row.bottom - Units(1), row.right, row.bottom},
             ::GetSysColor(COLOR_BTNFACE));
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
        RECT row{inner.left, headerBottom, inner.right, headerBottom + line + Units(2)};
        const int pitch = row.bottom - row.top;
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
