// SPDX-License-Identifier: MIT
// How changes of variables and terms are carried into the rule base.
#pragma once

#include "shared/Text.h"

namespace Quorvane::Editor {

/// Replaces a text by another one, wherever it occurs in a rule, without regard to where names
/// begin: "A>" also changes the "BA>" of another variable, "A>MF_1" the "A>MF_10" of another term.
/// Every rule keeps its place. Returns false and changes nothing where two rules would become
/// equal. Raises ObjectNotSet without a model.
bool RenameInRules(TextView oldText, TextView newText);

/// Removes every rule whose text contains a text, again without regard to where names begin: what
/// is removed for "A>MF_1" includes the rules with "A>MF_10". Raises ObjectNotSet without a model.
void RemoveRulesContaining(TextView text);

} // namespace Quorvane::Editor
