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

} // namespace Quorvane::Editor
