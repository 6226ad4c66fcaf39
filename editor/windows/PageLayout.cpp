// SPDX-License-Identifier: MIT
// Where the parts of the property page are.
#include "editor/windows/PageLayout.h"

#include <algorithm>

namespace Quorvane::Editor {
namespace {

/// The page in dialog units: the size of a page of the platform's property sheets.
constexpr int PageWidth = 252;
constexpr int PageHeight = 218;
constexpr int Margin = 7;
constexpr int Gap = 4;
constexpr int ButtonHeight = 14;

/// The share of the page's height, in percent, that the trees take.
constexpr int TreeShare = 42;

RECT Area(int left, int top, int width, int height) {
    return {left, top, left + std::max(0, width), top + std::max(0, height)};
}

} // namespace

PageLayout PageLayout::For(SIZE page, const DialogFont& font) {
    const int left = font.X(Margin);
    const int top = font.Y(Margin);
    const int gapX = font.X(Gap);
    const int gapY = font.Y(Gap);
    const int width = std::max(0, static_cast<int>(page.cx) - 2 * left);
    const int height = std::max(0, static_cast<int>(page.cy) - 2 * top);
    const int treeWidth = (width - gapX) / 2;
    const int treeHeight = height * TreeShare / 100;
    const int buttonTop = top + treeHeight + gapY;
    const int buttonHeight = font.Y(ButtonHeight);
    constexpr auto Count = static_cast<int>(ButtonCount);
    const int buttonWidth = (width - (Count - 1) * gapX) / Count;
    const int graphTop = buttonTop + buttonHeight + gapY;

    PageLayout layout{};
    layout.TreInput = Area(left, top, treeWidth, treeHeight);
    layout.TreOutput = Area(left + width - treeWidth, top, treeWidth, treeHeight);
    int buttonLeft = left;
    for (RECT& button : layout.Buttons) {
        button = Area(buttonLeft, buttonTop, buttonWidth, buttonHeight);
        buttonLeft += buttonWidth + gapX;
    }
    layout.PicMF = Area(left, graphTop, width, top + height - graphTop);
    return layout;
}

SIZE PageLayout::NaturalSize(const DialogFont& font) {
    return {font.X(PageWidth), font.Y(PageHeight)};
}

} // namespace Quorvane::Editor
