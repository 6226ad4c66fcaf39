// SPDX-License-Identifier: MIT
// From degrees of membership to the sums of the outputs.
#pragma once

namespace Quorvane::RunTime {

struct PreparedRules;

/// Fires the rules: a rule of the strength a adds a x p to the numerator and a to the denominator
/// of every output of which it says the singleton p. Raises Overflow for a sum beyond the range of
/// a Double.
void FireRules(PreparedRules& rules);

} // namespace Quorvane::RunTime
