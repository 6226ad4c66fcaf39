// SPDX-License-Identifier: MIT
// Rules that contradict each other or say the same twice.
#pragma once

#include "check/CheckSystem.h"
#include "check/RuleTable.h"

namespace Quorvane::Check {

/// Compares each rule that can fire with each other, and adds conflicts, overlaps, fallbacks and
/// covered rules to a result.
///
/// In time of rules x rules x inputs / 64: it works on sets of rules, 64 at a time.
void ComparePairs(const RuleTable& rules, const CheckLimits& limits, CheckResult& result);

} // namespace Quorvane::Check
