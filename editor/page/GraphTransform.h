// SPDX-License-Identifier: MIT
// The conversion between the user units of a graph and the pixels of its picture.
#pragma once

#include "editor/page/GraphSurface.h"

namespace Quorvane::Editor {

/// Maps user coordinates to the pixels of a picture of the given size. It never fails: a universe
/// without width stands in the middle of the picture, and what lies far outside is moved to where
/// a drawing surface can still take it.
class GraphTransform {
  public:
    /// For a picture of so many pixels, which may be none at all, and any scale.
    GraphTransform(const GraphScale& scale, int pixelWidth, int pixelHeight);

    int PixelX(float x) const;
    int PixelY(float y) const;

    /// The middle of a line of so many pixels: on the border of the picture it has all its width
    /// inside.
    int LineX(float x, int penWidth) const;

    /// A width or height in pixels as one in user units; the sign is that of the scale.
    float UserWidth(int pixels) const;
    float UserHeight(int pixels) const;

  private:
    GraphScale scale_;
    int pixelWidth_;
    int pixelHeight_;
};

} // namespace Quorvane::Editor
