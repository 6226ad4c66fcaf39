// SPDX-License-Identifier: MIT
// The columns of the rule list.
#include "editor/rules/RuleColumns.h"

#include <cmath>

#include "text/GetText.h"
#include "text/TextIds.h"

namespace Quorvane::Editor {
namespace {

// Wider than the headings: the cells below are bold, and a sorted column is to stay readable.
constexpr double VariableWidthFactor = 1.25;
constexpr double FixedWidthFactor = 2;

class ColumnBuilder {
  public:
    explicit ColumnBuilder(const TextMeasure& textWidth) : textWidth_(textWidth) {}

    void Add(Text key, Text caption, double widthFactor, ColumnAlignment alignment) {
        const auto width = static_cast<int>(std::lround(widthFactor * textWidth_(caption)));
        columns_.push_back({std::move(key), std::move(caption), width, alignment});
    }

    void AddVariables(Side side, const RulePanel& panel) {
        const SideTraits& traits = TraitsOf(side);
        std::int32_t headingId = traits.FirstHeadingId;
        for (const PanelRow& row : panel.Rows) {
            Add(row.Variable, Main::GetText(headingId) + row.Variable + Main::GetText(TextIds::Is),
                VariableWidthFactor, ColumnAlignment::Left);
            headingId = traits.FurtherHeadingId;
        }
    }

    std::vector<RuleColumn> Take() { return std::move(columns_); }

  private:
    const TextMeasure& textWidth_;
    std::vector<RuleColumn> columns_;
};

} // namespace

std::vector<RuleColumn> MakeRuleColumns(const RulePanel& inputs, const RulePanel& outputs,
                                        const TextMeasure& textWidth) {
    ColumnBuilder builder(textWidth);
    builder.Add(u"[NUMBER]", Main::GetText(TextIds::Number), FixedWidthFactor,
                ColumnAlignment::Left);
    builder.AddVariables(Side::Input, inputs);
    builder.AddVariables(Side::Output, outputs);
    builder.Add(u"[WEIGHT]", Main::GetText(TextIds::Weight), FixedWidthFactor,
                ColumnAlignment::Right);
    return builder.Take();
}

} // namespace Quorvane::Editor
