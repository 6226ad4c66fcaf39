// SPDX-License-Identifier: MIT
// Where the constituents of the control are: rectangles and columns from width and height.
#pragma once

#include <array>

namespace Quorvane {

/// The height of the caption strip, and so the top of the lists, in twips.
inline constexpr float CaptionStripHeight = 330;

/// The height of the status bar in twips.
inline constexpr float StatusBarHeight = 330;

/// The lists overlap by so many twips in the middle, so that their frames make one line there.
inline constexpr float ListOverlap = 20;

/// The label is wider than its text by this factor, as room for a font that prints wider.
inline constexpr float LabelWidthFactor = 1.5F;

/// What stands in the surface of the control.
enum class Constituent { Strip, Input, Output, Status };

/// How the constituents lie upon each other, the top one first: they overlap where the control is
/// lower than strip and status bar, and where a list has kept its height.
inline constexpr std::array StackingOrder = {Constituent::Strip, Constituent::Input,
                                             Constituent::Output, Constituent::Status};

/// A list and its two columns, in twips.
struct ListGeometry {
    float Left = 0;
    float Top = CaptionStripHeight;
    float Width = 0;
    float Height = 0;
    /// Of each of the two columns.
    float ColumnWidth = 0;

    bool operator==(const ListGeometry&) const = default;
};

/// The constituents in twips. The strip and the input list begin at the left edge, the status bar
/// ends at the bottom edge.
struct DisplayLayout {
    float StripWidth = 0;
    float LabelWidth = 0;
    ListGeometry Input;
    ListGeometry Output;

    bool operator==(const DisplayLayout&) const = default;
};

/// Lays the constituents out for an inner width and height, in twips, in single precision. A list
/// keeps its height where there is no room for one: a control lower than strip and status bar.
void LayOut(DisplayLayout& layout, float width, float height, float captionTextWidth);

/// The width of the label for a caption of this text width.
float LabelWidthFor(float captionTextWidth);

/// A rectangle in pixels.
struct PixelBox {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;

    bool operator==(const PixelBox&) const = default;
};

/// A list and its columns in pixels.
struct ListBox {
    PixelBox Box;
    int ColumnWidth = 0;

    bool operator==(const ListBox&) const = default;
};

/// The constituents in pixels.
struct PixelLayout {
    PixelBox Strip;
    /// Inside the strip.
    PixelBox Label;
    /// The part of the label that the strip has room for, where its text is cut.
    PixelBox Caption;
    ListBox Input;
    ListBox Output;
    PixelBox Status;

    bool operator==(const PixelLayout&) const = default;
};

/// The layout in pixels of a surface of the given size and dots per inch. Edges are rounded to the
/// nearest pixel; but the lists always overlap by the same number of pixels, and the output list
/// ends where the surface does.
PixelLayout ToPixels(const DisplayLayout& layout, int width, int height, float dpi);

} // namespace Quorvane
