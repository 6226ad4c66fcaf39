// SPDX-License-Identifier: MIT
// From rule texts to the engine's tables.
#pragma once

#include <optional>

#include "shared/Text.h"

namespace Quorvane::RunTime {

/// Compiles RuleBase into new rule tables and makes new OutputValues that hold the default of every
/// output that rule 0 names. All inputs will be fuzzified anew. A host that still holds the former
/// OutputValues keeps them as they are.
///
/// Raises error 82, "Invalid linguistict rule.", whatever is wrong with a rule; tables and outputs
/// are then those of the last successful preparation.
void PrepareRuleBase();

/// The singleton position of an output term; absent for the term "[NONE]".
/// Raises error 81, "Invalid linguistict output variable.", for an unknown output or term.
std::optional<double> ConsequentPoint(TextView output, TextView term);

} // namespace Quorvane::RunTime
