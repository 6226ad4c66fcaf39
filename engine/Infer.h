// SPDX-License-Identifier: MIT
// One inference cycle.
#pragma once

namespace Quorvane::RunTime {

/// Turns InputValues into OutputValues: fuzzifies the inputs that changed, fires every rule with
/// the strength weight x product of degrees, and sets every output that the last rule names to
/// sum(strength x singleton) / sum(strength), or to its default where that sum is zero. An empty or
/// unprepared rule base leaves OutputValues as they are.
///
/// Raises error 83, "Invalid Inference.", for any failure: see Fuzzify; a rule that names an output
/// which rule 0 does not name; a result beyond the range of a Double.
void Infer();

} // namespace Quorvane::RunTime
