// SPDX-License-Identifier: MIT
// What is wrong with single rules, variables and terms.
#pragma once

#include <vector>

#include "check/Finding.h"
#include "check/RuleTable.h"

namespace Quorvane::Check {

/// Rules that fail or cannot fire or conclude nothing, and outputs that are not set.
std::vector<Finding> FindRuleFaults(const RuleTable& rules);

/// Bounds, points and positions that are not in order.
std::vector<Finding> FindShapeFaults(const System::FuzzySystem& system);

/// Variables and terms that no rule uses.
std::vector<Finding> FindUnused(const System::FuzzySystem& system);

/// Values of inputs that belong to no term, and terms that have no value of their input.
std::vector<Finding> FindUncovered(const System::FuzzySystem& system);

} // namespace Quorvane::Check
