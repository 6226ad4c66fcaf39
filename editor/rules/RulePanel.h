// SPDX-License-Identifier: MIT
// The scrolling panels of the rule editor: one label and one list box per variable. In twips.
#pragma once

#include <vector>

#include "editor/checks/Side.h"

namespace Quorvane::Editor {

/// A place on the panel, in twips from its upper left corner.
struct TwipsArea {
    int Left;
    int Top;
    int Width;
    int Height;

    bool operator==(const TwipsArea&) const = default;
};

/// The controls of one variable.
struct PanelRow {
    Text Variable;
    Text LabelName;
    Text LabelCaption;
    TwipsArea LabelArea;
    Text ListName;
    TwipsArea ListArea;
    /// The choices of the list box: "[NONE]", then the variable's terms.
    std::vector<Text> Items;
    /// The index of the chosen one.
    std::size_t Selected = 0;
};

/// A panel with the variables of one side, in the order of the model.
struct RulePanel {
    std::vector<PanelRow> Rows;
    int Height;
};

/// Raises ObjectNotSet without a model.
RulePanel MakeRulePanel(Side side);

/// The height of the items of a list box with room for lines of a height, so that none is shown in
/// part: as many as find room share it.
int ItemHeightIn(int room, int lineHeight);

/// The smallest and largest step of a panel's scroll bar: one row.
inline constexpr int PanelScrollStep = 750;

/// A panel's scroll bar. Its value runs from 0 to Max; the panel's top is at minus the value.
struct PanelScroll {
    bool Visible;
    int Max;
};

/// The scroll bar of a panel in a frame with the given inner height.
PanelScroll PanelScrollFor(int panelHeight, int innerHeight);

} // namespace Quorvane::Editor
