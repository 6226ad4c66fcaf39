// SPDX-License-Identifier: MIT
// The conversion between the user units of a graph and the pixels of its picture.
#include "editor/page/GraphTransform.h"

#include <algorithm>
#include <cmath>

namespace Quorvane::Editor {
namespace {

/// Drawing surfaces count pixels in 16 bits, signs included, in their oldest parts.
constexpr double FarthestPixel = 16000;

/// Whether an extent can be divided by.
bool IsUsable(float extent) {
    return std::isfinite(extent) && extent != 0;
}

int Pixel(float position, float start, float extent, int pixels) {
    if (!IsUsable(extent)) {
        return pixels / 2;
    }
    const double pixel = (double{position} - double{start}) / double{extent} * pixels;
    if (std::isnan(pixel)) {
        return pixels / 2;
    }
    return static_cast<int>(std::lround(std::clamp(pixel, -FarthestPixel, FarthestPixel)));
}

float UserExtent(int extentPixels, float extent, int pixels) {
    if (pixels <= 0 || !std::isfinite(extent)) {
        return 0;
    }
    return static_cast<float>(double{extent} * extentPixels / pixels);
}

} // namespace

GraphTransform::GraphTransform(const GraphScale& scale, int pixelWidth, int pixelHeight)
    : scale_(scale), pixelWidth_(pixelWidth), pixelHeight_(pixelHeight) {}

int GraphTransform::PixelX(float x) const {
    return Pixel(x, scale_.Left, scale_.Width, pixelWidth_);
}

int GraphTransform::PixelY(float y) const {
    return Pixel(y, scale_.Top, scale_.Height, pixelHeight_);
}

int GraphTransform::LineX(float x, int penWidth) const {
    const int pixel = PixelX(x);
    if (pixel < 0 || pixel > pixelWidth_) {
        return pixel;
    }
    const int first = penWidth / 2;
    const int last = pixelWidth_ - (penWidth + 1) / 2;
    return std::max(first, std::min(pixel, last));
}

float GraphTransform::UserWidth(int pixels) const {
    return UserExtent(pixels, scale_.Width, pixelWidth_);
}

float GraphTransform::UserHeight(int pixels) const {
    return UserExtent(pixels, scale_.Height, pixelHeight_);
}

} // namespace Quorvane::Editor
