// SPDX-License-Identifier: MIT
// The rules of fuzzy systems made up at random.
#pragma once

#include "tests/reference/RandomSystem.h"

namespace Quorvane::Reference {

/// What the rules have to know of a variable.
struct VariableNames {
    Text Name;
    std::vector<Text> Terms;
};

/// The rules of a system that has these variables, joined as in its definition text.
Text MakeRules(Choices& choices, const SystemLimits& limits,
               const std::vector<VariableNames>& inputs, const std::vector<VariableNames>& outputs);

} // namespace Quorvane::Reference
