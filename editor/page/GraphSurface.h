// SPDX-License-Identifier: MIT
// The surface on which the graph is drawn, in user units.
#pragma once

#include <cstdint>

#include "shared/Text.h"

namespace Quorvane::Editor {

/// The user coordinates of a surface: its left edge and its width, its top edge and its height. A
/// negative height means that y grows upwards.
struct GraphScale {
    float Left;
    float Width;
    float Top;
    float Height;
};

enum class PenStyle { Solid, Dotted };

/// A picture that lines and texts are drawn on. All positions and extents are in the user units of
/// the last scale. Lines and texts take the last colour.
class GraphSurface {
  public:
    virtual ~GraphSurface() = default;

    virtual void SetScale(const GraphScale& scale) = 0;
    virtual void Clear() = 0;

    /// 0x00BBGGRR.
    virtual void SetColor(std::uint32_t color) = 0;

    /// The width is in pixels at 96 DPI.
    virtual void SetPen(PenStyle style, int width) = 0;

    virtual void Line(float x1, float y1, float x2, float y2) = 0;

    /// Prints a text with its upper left corner at the point.
    virtual void Print(TextView text, float x, float y) = 0;

    virtual float TextWidth(TextView text) const = 0;

    /// Negative where y grows upwards.
    virtual float TextHeight(TextView text) const = 0;
};

} // namespace Quorvane::Editor
