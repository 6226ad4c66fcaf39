// SPDX-License-Identifier: MIT
// The parts of a rule's text.
#pragma once

#include <optional>
#include <vector>

#include "shared/StringKeyedDictionary.h"

namespace Quorvane::Editor {

/// Whether two names, or two rules, are the same: keys of the model are compared so.
inline constexpr KeyEqual SameName{KeyComparison::IgnoreCase};

/// Where a rule's text falls apart. The parts view the text; a part that a damaged text lacks is
/// empty.
struct RuleParts {
    /// All before the ":": antecedents and consequents.
    TextView Head;
    TextView Antecedents;
    TextView Consequents;
    TextView Weight;
};

/// Splits the text of one rule, "A>Low;B>High/Y<Top:1". The text outlives the parts.
RuleParts SplitRule(TextView rule);

/// The term that a list of antecedents (mark ">") or consequents (mark "<") gives a variable, names
/// compared without regard to case; the first one counts. Nothing where the list does not mention
/// the variable.
std::optional<TextView> TermOf(TextView list, char16_t mark, TextView variable);

/// The terms that such a list gives, by variable: one reading of the list for all variables. They
/// view the list.
StringKeyedDictionary<TextView> TermsOf(TextView list, char16_t mark);

/// The term that such a list shows in the column of one of the variables: the variable's own, or,
/// where the list does not mention the variable, the next term of a variable that has no column.
/// Empty where there is none.
TextView ShownTerm(TextView list, char16_t mark, const std::vector<Text>& variables,
                   std::size_t column);

/// A rule's weight as the user reads it: with the user's decimal separator. A weight that is no
/// number stays as it is.
Text UserWeightText(TextView weight);

} // namespace Quorvane::Editor
