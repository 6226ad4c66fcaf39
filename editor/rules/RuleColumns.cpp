// SPDX-License-Identifier: MIT
// The columns of the rule list.
#include "editor/rules/RuleColumns.h"

#include <algorithm>
#include <cmath>

#include "shared/NumberText.h"
#include "text/GetText.h"
#include "text/TextIds.h"

namespace Quorvane::Editor {
namespace {

/// How large the font of `picRule` may be, in tenths of the rows' font. A larger one would leave
/// most columns half empty for the sake of one.
constexpr int SmallestScale = 10;
constexpr int LargestScale = 20;

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

/// Whether columns hold what is to be read in them, each its own.
class ColumnReader {
  public:
    ColumnReader(const std::vector<RuleColumn>& columns, const RuleListMeasures& texts)
        : column_(columns.begin()), texts_(texts) {}

    bool Holds(const std::vector<Text>& cells) {
        const RuleColumn& column = *column_++;
        const auto fits = [this, &column](const Text& cell) {
            return texts_.Cell(cell) <= column.Width;
        };
        return texts_.Heading(column.Caption) <= column.Width && std::ranges::all_of(cells, fits);
    }

    bool HoldsTerms(const RulePanel& panel) {
        return std::ranges::all_of(panel.Rows,
                                   [this](const PanelRow& row) { return Holds(row.Items); });
    }

  private:
    std::vector<RuleColumn>::const_iterator column_;
    const RuleListMeasures& texts_;
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

std::vector<RuleColumn> FitRuleColumns(const RulePanel& inputs, const RulePanel& outputs,
                                       std::size_t rules, const RuleListMeasures& texts,
                                       const ScaledMeasure& picRule) {
    const std::vector<Text> numbers{NumberText(static_cast<double>(rules))};
    std::vector<RuleColumn> columns;
    bool fits = false;
    for (int scale = SmallestScale; scale <= LargestScale && !fits; ++scale) {
        columns = MakeRuleColumns(inputs, outputs, picRule(scale / 10.0));
        ColumnReader reader(columns, texts);
        fits = reader.Holds(numbers) && reader.HoldsTerms(inputs) && reader.HoldsTerms(outputs) &&
               reader.Holds({});
    }
    return columns;
}

} // namespace Quorvane::Editor
