// SPDX-License-Identifier: MIT
// The graph on a device context.
#include "editor/windows/GdiGraphSurface.h"

#include "win/Handle.h"
#include "win/WideText.h"

namespace Quorvane::Editor {
namespace {

constexpr GraphScale PixelScale{0, 1, 0, 1};

} // namespace

GdiGraphSurface::GdiGraphSurface(HDC context, SIZE size, HFONT font, int dpi)
    : context_(context), size_(size), dpi_(dpi), state_(::SaveDC(context)),
      transform_(PixelScale, static_cast<int>(size.cx), static_cast<int>(size.cy)) {
    ::SelectObject(context_, font);
    ::SetBkMode(context_, TRANSPARENT);
}

GdiGraphSurface::~GdiGraphSurface() {
    ::RestoreDC(context_, state_);
}

void GdiGraphSurface::SetScale(const GraphScale& scale) {
    transform_ = GraphTransform(scale, static_cast<int>(size_.cx), static_cast<int>(size_.cy));
}

void GdiGraphSurface::Clear() {
    const RECT area{0, 0, size_.cx, size_.cy};
    ::FillRect(context_, &area, static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH)));
}

void GdiGraphSurface::SetPen(PenStyle style, int width) {
    penStyle_ = style;
    penWidth_ = width;
}

void GdiGraphSurface::Line(float x1, float y1, float x2, float y2) {
    const int width = ::MulDiv(penWidth_, dpi_, USER_DEFAULT_SCREEN_DPI);
    const LOGBRUSH brush{BS_SOLID, color_, 0};
    // The edges of a term are lines of their own: round ends close its corners. Only a geometric
    // pen has ends at any width; dots are a pattern of one-pixel lines.
    const Win::Pen pen(
        penStyle_ == PenStyle::Dotted
            ? ::CreatePen(PS_DOT, 1, color_)
            // NOLINTNEXTLINE(misc-redundant-expression): two of the named bits are 0
            : ::ExtCreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_ROUND | PS_JOIN_ROUND,
                             static_cast<DWORD>(width), &brush, 0, nullptr));
    const Win::Selection selected(context_, pen.Get());
    ::MoveToEx(context_, transform_.LineX(x1, width), transform_.PixelY(y1), nullptr);
    ::LineTo(context_, transform_.LineX(x2, width), transform_.PixelY(y2));
}

void GdiGraphSurface::Print(TextView text, float x, float y) {
    ::SetTextColor(context_, color_);
    ::TextOutW(context_, transform_.PixelX(x), transform_.PixelY(y), Win::Characters(text),
               static_cast<int>(text.size()));
}

float GdiGraphSurface::TextWidth(TextView text) const {
    return transform_.UserWidth(static_cast<int>(Extent(text).cx));
}

float GdiGraphSurface::TextHeight(TextView text) const {
    return transform_.UserHeight(static_cast<int>(Extent(text).cy));
}

SIZE GdiGraphSurface::Extent(TextView text) const {
    SIZE size{};
    ::GetTextExtentPoint32W(context_, Win::Characters(text), static_cast<int>(text.size()), &size);
    return size;
}

} // namespace Quorvane::Editor
