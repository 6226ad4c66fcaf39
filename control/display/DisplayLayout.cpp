// SPDX-License-Identifier: MIT
// Where the constituents of the control are.
#include "control/display/DisplayLayout.h"

#include <algorithm>
#include <cmath>

namespace Quorvane {
namespace {

constexpr float TwipsPerInch = 1440;

/// Where the label begins in the strip, in twips.
constexpr float LabelLeft = 90;

void LayOutList(ListGeometry& list, float width, float height) {
    list.Width = width / 2 + ListOverlap / 2;
    list.Top = CaptionStripHeight;
    const float room = height - CaptionStripHeight - StatusBarHeight;
    if (room >= 0) {
        list.Height = room;
    }
    list.ColumnWidth = list.Width / 2;
}

/// Turns twips into pixels.
class Scale {
  public:
    explicit Scale(float dpi) : pixelsPerTwip_(dpi / TwipsPerInch) {}

    /// Far beyond any surface lengths end, so that they and their sums stay numbers.
    int operator()(float twips) const {
        constexpr float Longest = 0x1p28F;
        return static_cast<int>(std::lround(std::clamp(twips * pixelsPerTwip_, -Longest, Longest)));
    }

  private:
    float pixelsPerTwip_;
};

ListBox ScaleList(const ListGeometry& list, int left, int right, const Scale& scale) {
    const int top = scale(list.Top);
    const int bottom = scale(list.Top + list.Height);
    return {{left, top, right - left, bottom - top}, scale(list.ColumnWidth)};
}

} // namespace

float LabelWidthFor(float captionTextWidth) {
    return LabelWidthFactor * captionTextWidth;
}

void LayOut(DisplayLayout& layout, float width, float height, float captionTextWidth) {
    layout.StripWidth = width;
    layout.LabelWidth = LabelWidthFor(captionTextWidth);
    LayOutList(layout.Input, width, height);
    LayOutList(layout.Output, width, height);
    layout.Output.Left = width / 2 - ListOverlap / 2;
}

PixelLayout ToPixels(const DisplayLayout& layout, int width, int height, float dpi) {
    const Scale scale(dpi);
    const int strip = scale(CaptionStripHeight);
    const float heightInTwips = static_cast<float>(height) * TwipsPerInch / dpi;
    const int statusTop = scale(heightInTwips - StatusBarHeight);
    const int inputRight = scale(layout.Input.Width);
    const int outputLeft = inputRight - scale(ListOverlap);
    PixelLayout pixels;
    pixels.Strip = {0, 0, scale(layout.StripWidth), strip};
    pixels.Label = {scale(LabelLeft), 0, scale(layout.LabelWidth), strip};
    pixels.Caption = pixels.Label;
    pixels.Caption.Width =
        std::clamp(pixels.Strip.Width - pixels.Label.Left, 0, pixels.Label.Width);
    pixels.Input = ScaleList(layout.Input, 0, inputRight, scale);
    pixels.Output = ScaleList(layout.Output, outputLeft, width, scale);
    pixels.Status = {0, statusTop, width, height - statusTop};
    return pixels;
}

} // namespace Quorvane
