// SPDX-License-Identifier: MIT
// From crisp inputs to degrees of membership.
#pragma once

namespace Quorvane::RunTime {

class RulesInUse;

/// Brings the degrees of all used terms up to date with InputValues. An input whose value has the
/// same text as the one last fuzzified keeps its degrees, so repeated cycles are cheap.
///
/// Raises error 79, "Invalid linguistic input signal.", for an input that is empty, is no number,
/// or is unknown to the model; that input will be fuzzified again, the ones before it stay valid.
void Fuzzify(RulesInUse& rules);

} // namespace Quorvane::RunTime
