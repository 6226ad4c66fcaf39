// SPDX-License-Identifier: MIT
// Where the parts of the property page are.
#pragma once

#include <array>
#include <cstddef>

#include "editor/page/DialogUnits.h"

namespace Quorvane::Editor {

/// What the page's layout follows from, in pixels.
struct PageMeasures {
    DialogUnits Units;
    /// The height of a line of a tree.
    int TreeLine;
    /// The height of the edges of a tree or a picture, upper and lower.
    int Edges;
};

/// A place in a window's client area, in pixels.
struct Area {
    int Left;
    int Top;
    int Width;
    int Height;

    bool operator==(const Area&) const = default;
};

struct PageSize {
    int Width;
    int Height;

    bool operator==(const PageSize&) const = default;
};

/// The places of the page's parts: trees side by side, the buttons below them, the graph below all.
struct PageLayout {
    static constexpr std::size_t ButtonCount = 4;

    Area TreInput;
    Area TreOutput;
    /// `cmdAdd`, `cmdModify`, `cmdDelete`, `cmdRule`.
    std::array<Area, ButtonCount> Buttons;
    Area PicMF;

    /// The layout of a page of the given size. The graph takes the height in which its texts stand
    /// clear of each other, the trees the rest; where those show a whole variable, the graph grows
    /// by half. No part has a negative size, however small the page is.
    static PageLayout For(PageSize page, const PageMeasures& measures);

    /// The size that the page is laid out for.
    static PageSize NaturalSize(const DialogUnits& units);
};

} // namespace Quorvane::Editor
