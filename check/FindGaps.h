// SPDX-License-Identifier: MIT
// Where no rule fires.
#pragma once

#include <vector>

#include "check/CheckSystem.h"
#include "check/RuleTable.h"

namespace Quorvane::Check {

/// The values of the inputs for which no rule fires that concludes something about an output: a
/// finding for all outputs that have the same ones.
std::vector<Finding> FindGaps(const RuleTable& rules, const CheckLimits& limits);

} // namespace Quorvane::Check
