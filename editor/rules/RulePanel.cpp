// SPDX-License-Identifier: MIT
// The scrolling panels of the rule editor.
#include "editor/rules/RulePanel.h"

#include <algorithm>

#include "shared/Markers.h"

namespace Quorvane::Editor {
namespace {

constexpr int FirstTop = 120;
constexpr int BottomMargin = 120;

/// How much farther than its end a panel scrolls, so that its last row stands clear of the frame.
constexpr int ScrollMargin = 60;

PanelRow MakeRow(const SideTraits& traits, const LinguisticVariable& variable, int top) {
    PanelRow row{.Variable = variable.Name,
                 .LabelName = Text(traits.LabelPrefix) + variable.Name,
                 .LabelCaption = variable.Name + u" =",
                 .LabelArea = {60, top, 1200, 250},
                 .ListName = Text(traits.ListPrefix) + variable.Name,
                 .ListArea = {1250, top, 1500, 650},
                 .Items = {Text(NoneMarker)}};
    for (const auto& [name, term] : variable.MF) {
        row.Items.push_back(term.Name);
    }
    return row;
}

} // namespace

RulePanel MakeRulePanel(Side side) {
    RulePanel panel{{}, BottomMargin};
    for (const auto& [name, variable] : VariablesOf(side)) {
        const int offset = panel.Height - BottomMargin;
        panel.Rows.push_back(MakeRow(TraitsOf(side), variable, FirstTop + offset));
        panel.Height += PanelScrollStep;
    }
    return panel;
}

int ItemHeightIn(int room, int lineHeight) {
    const int items = lineHeight > 0 ? room / lineHeight : 0;
    return items > 0 ? room / items : lineHeight;
}

PanelScroll PanelScrollFor(int panelHeight, int innerHeight) {
    return {panelHeight > innerHeight, std::max(0, panelHeight - innerHeight + ScrollMargin)};
}

} // namespace Quorvane::Editor
