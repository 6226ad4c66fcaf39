// SPDX-License-Identifier: MIT
// The columns of the rule list.
#pragma once

#include <functional>

#include "editor/rules/RulePanel.h"

namespace Quorvane::Editor {

enum class ColumnAlignment { Left, Right };

struct RuleColumn {
    /// "[NUMBER]", a variable's name or "[WEIGHT]". An input and an output may share a key.
    Text Key;
    Text Caption;
    /// In twips.
    int Width;
    ColumnAlignment Alignment;
};

/// The width of a text in the list's font, in twips.
using TextMeasure = std::function<double(TextView)>;

/// The columns in their order: number, inputs, outputs, weight.
std::vector<RuleColumn> MakeRuleColumns(const RulePanel& inputs, const RulePanel& outputs,
                                        const TextMeasure& textWidth);

/// What the texts of the list take, with what stands beside them, in twips.
struct RuleListMeasures {
    TextMeasure Heading;
    TextMeasure Cell;
};

/// Makes a measure in a font that is so many times as large as that of the rows.
using ScaledMeasure = std::function<TextMeasure(double scale)>;

/// The columns with the smallest font of `picRule`, which is as large as that of the rows or up to
/// twice as large, in which they hold their headings, all terms, and the numbers of so many rules.
std::vector<RuleColumn> FitRuleColumns(const RulePanel& inputs, const RulePanel& outputs,
                                       std::size_t rules, const RuleListMeasures& texts,
                                       const ScaledMeasure& picRule);

} // namespace Quorvane::Editor
