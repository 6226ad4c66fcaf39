// SPDX-License-Identifier: MIT
// Where the parts of the property page are.
#include "editor/page/PageLayout.h"

#include <algorithm>

#include "editor/page/DrawVariableGraph.h"

namespace Quorvane::Editor {
namespace {

/// The page in dialog units: the size of a page of the platform's property sheets.
constexpr int PageWidth = 252;
constexpr int PageHeight = 218;
constexpr int Margin = 7;
constexpr int Gap = 4;
constexpr int ButtonHeight = 14;

/// A root, a variable, its bounds, and three terms with four points each.
constexpr int WantedTreeLines = 1 + 1 + 2 + 3 * 5;

/// The part of the room that the graph leaves to the trees of a low page.
constexpr int LeastTreeShare = 2;

Area Place(int left, int top, int width, int height) {
    return {left, top, std::max(0, width), std::max(0, height)};
}

/// How much of the room for trees and graph the graph takes.
int GraphHeight(int room, const PageMeasures& measures) {
    const int usual = GraphHeightFor(measures.Units.CharacterHeight) + measures.Edges;
    const int wantedByTrees = WantedTreeLines * measures.TreeLine + measures.Edges;
    const int wanted = std::clamp(room - wantedByTrees, usual, usual * 3 / 2);
    return std::min(wanted, room / LeastTreeShare);
}

} // namespace

PageLayout PageLayout::For(PageSize page, const PageMeasures& measures) {
    const DialogUnits& units = measures.Units;
    const int left = units.X(Margin);
    const int top = units.Y(Margin);
    const int gapX = units.X(Gap);
    const int gapY = units.Y(Gap);
    const int buttonHeight = units.Y(ButtonHeight);
    const int width = std::max(0, page.Width - 2 * left);
    const int room = std::max(0, page.Height - 2 * top - buttonHeight - 2 * gapY);
    const int graphHeight = GraphHeight(room, measures);
    const int treeHeight = room - graphHeight;
    const int treeWidth = (width - gapX) / 2;
    const int buttonTop = top + treeHeight + gapY;
    constexpr auto Count = static_cast<int>(ButtonCount);
    const int buttonWidth = (width - (Count - 1) * gapX) / Count;

    PageLayout layout{};
    layout.TreInput = Place(left, top, treeWidth, treeHeight);
    layout.TreOutput = Place(left + width - treeWidth, top, treeWidth, treeHeight);
    int buttonLeft = left;
    for (Area& button : layout.Buttons) {
        button = Place(buttonLeft, buttonTop, buttonWidth, buttonHeight);
        buttonLeft += buttonWidth + gapX;
    }
    layout.PicMF = Place(left, buttonTop + buttonHeight + gapY, width, graphHeight);
    return layout;
}

PageSize PageLayout::NaturalSize(const DialogUnits& units) {
    return {units.X(PageWidth), units.Y(PageHeight)};
}

} // namespace Quorvane::Editor
