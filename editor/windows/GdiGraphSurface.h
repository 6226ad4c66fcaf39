// SPDX-License-Identifier: MIT
// The graph on a device context.
#pragma once

#include <windows.h>

#include "editor/page/GraphSurface.h"
#include "editor/page/GraphTransform.h"

namespace Quorvane::Editor {

/// Draws a graph into the upper left part of a device context. The font and the context are the
/// caller's and outlive the surface.
class GdiGraphSurface final : public GraphSurface {
  public:
    GdiGraphSurface(HDC context, SIZE size, HFONT font, int dpi);
    ~GdiGraphSurface() override;
    GdiGraphSurface(const GdiGraphSurface&) = delete;
    GdiGraphSurface& operator=(const GdiGraphSurface&) = delete;

    void SetScale(const GraphScale& scale) override;
    void Clear() override;
    void SetColor(std::uint32_t color) override { color_ = color; }
    void SetPen(PenStyle style, int width) override;
    void Line(float x1, float y1, float x2, float y2) override;
    void Print(TextView text, float x, float y) override;
    float TextWidth(TextView text) const override;
    float TextHeight(TextView text) const override;

  private:
    SIZE Extent(TextView text) const;

    HDC context_;
    SIZE size_;
    int dpi_;
    int state_;
    GraphTransform transform_;
    COLORREF color_ = 0;
    PenStyle penStyle_ = PenStyle::Solid;
    int penWidth_ = 1;
};

} // namespace Quorvane::Editor
