// SPDX-License-Identifier: MIT
// Where outputs change fastest.
#pragma once

#include <vector>

#include "check/CheckSystem.h"
#include "check/Response.h"
#include "check/RuleTable.h"

namespace Quorvane::Check {

/// For each output, the input along which it changes most over a hundredth of the input's universe,
/// and the largest jump between neighbouring values, if there is one.
std::vector<Finding> FindSteepest(const RuleTable& rules, Response& response,
                                  const CheckLimits& limits);

} // namespace Quorvane::Check
