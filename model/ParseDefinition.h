// SPDX-License-Identifier: MIT
// From the stored definition texts to the model.
#pragma once

namespace Quorvane::Main {

/// Decodes the three definition texts of the process and replaces the model by what they say:
/// InputVariables, InputValues (every input at its lower bound), OutputVariables,
/// DefaultOutputValues (every output at the middle of its universe) and RuleBase.
///
/// Plain texts, in which nothing is trimmed:
///   inputs   Name/UBound/LBound/Term,p1,p2,p3,p4;Term,...|Name/...
///   outputs  Name/UBound/LBound/Term,p;Term,...|Name/...
///   rules    Input>Term;Input>Term/Output<Term;Output<Term:Weight|...
///
/// Raises TypeMismatch for a text that does not decode, TypeMismatch or Overflow for a number that
/// does not convert, SubscriptOutOfRange for a missing field and DuplicateKey for a name that
/// repeats; what was built until then stays in place. The prepared rule tables are those of the old
/// model until the rule base is prepared anew.
void ParseDefinition();

} // namespace Quorvane::Main
