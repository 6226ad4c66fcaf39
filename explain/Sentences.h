// SPDX-License-Identifier: MIT
// What happens in a cycle, in words and formulas.
#pragma once

#include "explain/Blockers.h"
#include "explain/Evaluation.h"

namespace Quorvane::Explain {

/// A rule as a sentence, without what takes no part in it: "IF Level IS High AND Inflow IS Large
/// THEN Pump IS Full WITH 0.5". A rule without conditions says "ALWAYS", one without conclusions
/// "THEN nothing", and a weight of 1 is left out.
Text RuleSentence(const System::FuzzySystem& system, const System::Rule& rule);

/// How a rule comes to its strength, weight first: "0.5 x 0.75 x 1 = 0.375".
Text StrengthFormula(const System::FuzzySystem& system, const Evaluation& evaluation,
                     std::size_t rule);

/// How an output that rules set comes to its value: "(0.25 x 500 + 0.375 x 1000) / (0.25 + 0.375) =
/// 500 / 0.625 = 800". Of many contributions it shows the first ones.
Text OutputFormula(const OutputState& output);

/// Why an output has its default: "no rule fires". The blockers say more.
Text CauseSentence(Cause cause);

/// What blocks a rule: "Level = 120 is outside 0 to 100".
Text BlockerSentence(const System::FuzzySystem& system, const Evaluation& evaluation,
                     const Blocker& blocker);

/// What made the cycle fail: "the input Level has no value".
Text FailureSentence(const System::FuzzySystem& system, const Failure& failure);

} // namespace Quorvane::Explain
