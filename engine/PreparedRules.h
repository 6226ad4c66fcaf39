// SPDX-License-Identifier: MIT
// A prepared rule base, ready for cycles.
#pragma once

#include "engine/ModelBinding.h"
#include "engine/RuleSelector.h"
#include "engine/RuleTables.h"

namespace Quorvane::RunTime {

/// The tables, and what makes a cycle over them fast.
struct PreparedRules : RuleTables {
    RuleSelector Selector;
    ModelBinding Binding;
    /// Whether the sums are those of the current degrees.
    bool AreSumsCurrent = false;
};

} // namespace Quorvane::RunTime
