// SPDX-License-Identifier: MIT
// New and deleted variables and terms in the model.
#pragma once

#include "editor/checks/Prompt.h"
#include "editor/checks/Side.h"

namespace Quorvane::Editor {

/// How many variables a side and how many terms a variable may be given here. A loaded definition
/// may hold more.
inline constexpr std::size_t MostVariables = 32;
inline constexpr std::size_t MostTerms = 16;

/// Asks before the rule base is emptied. Without rules nothing is asked and the answer is yes.
bool ConfirmEmptyRuleBase(Prompt& prompt);

/// Adds a variable from -1 to 1 with one term, under the first free name that ends in a number, and
/// replaces the rule base by an empty one: its rules say nothing of the new variable.
LinguisticVariable& NewVariable(Side side);

/// Adds a term under the first free name "MF_" with a number: for an input a trapezoid over the
/// four inner fifths of the universe, for an output a singleton in the middle. Max and Min are
/// left alone. Raises Overflow, and changes nothing, where the bounds lie too far apart.
LinguisticTerm& NewTerm(Side side, LinguisticVariable& variable);

/// Removes a variable, and replaces the rule base by an empty one. Raises MissingKey.
void DeleteVariable(Side side, TextView name);

/// Removes a term and the rules that use it. Max and Min stay as they are until the variable's next
/// point edit. Raises MissingKey.
void DeleteTerm(Side side, TextView variable, TextView term);

} // namespace Quorvane::Editor
