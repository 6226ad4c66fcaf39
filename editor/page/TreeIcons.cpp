// SPDX-License-Identifier: MIT
// The icons of the trees, drawn in the size that the screen asks for.
#include "editor/page/TreeIcons.h"

#include <algorithm>
#include <cmath>

namespace Quorvane::Editor {
namespace {

/// Icons are designed on a square of 16 units.
constexpr double DesignSide = 16;

struct Point {
    double X;
    double Y;
};

struct Color {
    int Red;
    int Green;
    int Blue;
};

constexpr Color Line{60, 90, 140};
constexpr Color Faint{168, 180, 200};
constexpr Color Accent{214, 92, 40};
constexpr Color InputColor{38, 120, 178};
constexpr Color OutputColor{58, 140, 72};

/// How far a point is from a line between two others.
double Distance(Point p, Point from, Point to) {
    const double dx = to.X - from.X;
    const double dy = to.Y - from.Y;
    const double length = dx * dx + dy * dy;
    const double along =
        length == 0 ? 0
                    : std::clamp(((p.X - from.X) * dx + (p.Y - from.Y) * dy) / length, 0.0, 1.0);
    return std::hypot(p.X - from.X - along * dx, p.Y - from.Y - along * dy);
}

/// A picture in design units on which strokes and dots are laid one over the other, with soft
/// edges.
class Picture {
  public:
    explicit Picture(int side)
        : side_(side), unit_(side / DesignSide),
          pixels_(static_cast<std::size_t>(side) * static_cast<std::size_t>(side)) {}

    void Stroke(Point from, Point to, double width, Color color) {
        Cover(color, [&](Point p) { return width / 2 - Distance(p, from, to); });
    }

    void Dot(Point centre, double radius, Color color) {
        Cover(color, [&](Point p) { return radius - std::hypot(p.X - centre.X, p.Y - centre.Y); });
    }

    std::vector<std::uint32_t> Take() { return std::move(pixels_); }

  private:
    /// Lays a colour where `depth`, the distance in design units from the edge inwards, is
    /// positive.
    template <class Depth>
    void Cover(Color color, Depth depth) {
        for (int y = 0; y < side_; ++y) {
            for (int x = 0; x < side_; ++x) {
                const Point centre{(x + 0.5) / unit_, (y + 0.5) / unit_};
                const double share = std::clamp(depth(centre) * unit_ + 0.5, 0.0, 1.0);
                if (share > 0) {
                    const int at = y * side_ + x;
                    Blend(pixels_[static_cast<std::size_t>(at)], color, share);
                }
            }
        }
    }

    static void Blend(std::uint32_t& pixel, Color color, double share) {
        const auto channel = [&pixel](int shift) {
            return static_cast<double>(pixel >> shift & 0xFF);
        };
        const auto packed = [](double value, int shift) {
            return static_cast<std::uint32_t>(std::lround(value)) << shift;
        };
        // What is below keeps its part of the opacity, and the same part of the colour.
        const double below = channel(24) / 255 * (1 - share);
        const double opacity = below + share;
        const auto mix = [&](int shift, int value) {
            return packed((channel(shift) * below + value * share) / opacity, shift);
        };
        pixel = packed(opacity * 255, 24) | mix(16, color.Red) | mix(8, color.Green) |
                mix(0, color.Blue);
    }

    int side_;
    double unit_;
    std::vector<std::uint32_t> pixels_;
};

constexpr Point Trapezoid[] = {{1.5, 13}, {5, 4}, {11, 4}, {14.5, 13}};

void DrawAxis(Picture& picture) {
    picture.Stroke({1, 13.5}, {15, 13.5}, 1, Faint);
}

void DrawTrapezoid(Picture& picture, Color color) {
    DrawAxis(picture);
    for (std::size_t i = 0; i + 1 < std::size(Trapezoid); ++i) {
        picture.Stroke(Trapezoid[i], Trapezoid[i + 1], 1.6, color);
    }
}

/// The trapezoid with one of its points marked.
void DrawPoint(Picture& picture, std::size_t point) {
    DrawTrapezoid(picture, Faint);
    picture.Dot(Trapezoid[point], 2.4, Accent);
}

/// An arrow in `color` into the wall of a universe (true) or out of it.
void DrawVariable(Picture& picture, Color color, bool inwards) {
    const double wall = inwards ? 13.5 : 2.5;
    picture.Stroke({wall, 2.5}, {wall, 13.5}, 1.8, color);
    const double tip = inwards ? 11.5 : 14;
    picture.Stroke({tip - 9, 8}, {tip, 8}, 1.8, color);
    picture.Stroke({tip - 3.5, 4.5}, {tip, 8}, 1.8, color);
    picture.Stroke({tip - 3.5, 11.5}, {tip, 8}, 1.8, color);
}

/// Three lines of a list, each with a dot in `color`.
void DrawVariables(Picture& picture, Color color) {
    for (const double y : {3.5, 8.0, 12.5}) {
        picture.Dot({3, y}, 1.7, color);
        picture.Stroke({6.5, y}, {14, y}, 1.6, Line);
    }
}

/// The universe as a line between two walls, one of them marked.
void DrawBound(Picture& picture, bool upper) {
    picture.Stroke({3, 8}, {13, 8}, 1.2, Faint);
    picture.Stroke({2.5, 3}, {2.5, 13}, upper ? 1.2 : 2.4, upper ? Faint : Accent);
    picture.Stroke({13.5, 3}, {13.5, 13}, upper ? 2.4 : 1.2, upper ? Accent : Faint);
}

void DrawSingleton(Picture& picture) {
    DrawAxis(picture);
    picture.Stroke({8, 13}, {8, 4}, 1.6, Line);
    picture.Dot({8, 13}, 2.4, Accent);
}

} // namespace

std::vector<std::uint32_t> DrawTreeIcon(TextView key, int side) {
    Picture picture(side);
    if (key == u"Inputs") {
        DrawVariables(picture, InputColor);
    } else if (key == u"Outputs") {
        DrawVariables(picture, OutputColor);
    } else if (key == u"Input") {
        DrawVariable(picture, InputColor, true);
    } else if (key == u"Output") {
        DrawVariable(picture, OutputColor, false);
    } else if (key == u"UBound") {
        DrawBound(picture, true);
    } else if (key == u"LBound") {
        DrawBound(picture, false);
    } else if (key == u"MF") {
        DrawTrapezoid(picture, Line);
    } else if (key == u"MF_P") {
        DrawSingleton(picture);
    } else if (key.starts_with(u"MF_P")) {
        DrawPoint(picture, static_cast<std::size_t>(key.back() - u'1'));
    }
    return picture.Take();
}

} // namespace Quorvane::Editor
