// SPDX-License-Identifier: MIT
// Which part of their universes outputs reach.
#pragma once

#include <vector>

#include "check/CheckSystem.h"
#include "check/Response.h"
#include "check/RuleTable.h"

namespace Quorvane::Check {

/// The outputs that come near only one of their bounds, or none, whatever the inputs are.
std::vector<Finding> FindReach(const RuleTable& rules, Response& response,
                               const CheckLimits& limits);

} // namespace Quorvane::Check
