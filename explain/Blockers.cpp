// SPDX-License-Identifier: MIT
// Why rules do not fire.
#include "explain/Blockers.h"

#include <algorithm>

namespace Quorvane::Explain {

using System::Clause;

bool IsInside(const System::InputVariable& input, double value) {
    return value >= input.Lower && value <= input.Upper;
}

Blocker BlockerOf(const System::FuzzySystem& system, const Evaluation& evaluation,
                  std::size_t rule) {
    if (system.Rules[rule].Weight == 0) {
        return {BlockerKind::Weight, rule, {}, {}};
    }
    const auto& antecedents = system.Rules[rule].Antecedents;
    const auto degreeIsZero = [&](const Clause& clause) {
        return clause.Term && evaluation.Inputs[clause.Variable].Degrees[*clause.Term] == 0.0;
    };
    const auto isOutside = [&](const Clause& clause) {
        return degreeIsZero(clause) &&
               !IsInside(system.Inputs[clause.Variable], *evaluation.Inputs[clause.Variable].Value);
    };
    if (const auto outside = std::ranges::find_if(antecedents, isOutside);
        outside != antecedents.end()) {
        return {BlockerKind::OutsideUniverse, rule, outside->Variable, outside->Term};
    }
    if (const auto zero = std::ranges::find_if(antecedents, degreeIsZero);
        zero != antecedents.end()) {
        return {BlockerKind::NotInTerm, rule, zero->Variable, zero->Term};
    }
    return {BlockerKind::Underflow, rule, {}, {}};
}

std::vector<Blocker> BlockersOf(const System::FuzzySystem& system, const Evaluation& evaluation,
                                const OutputState& output) {
    std::vector<Blocker> blockers;
    const std::vector<System::CycleOutput> only{output.Output};
    for (std::size_t i = 0; i < system.Rules.size(); ++i) {
        const bool isOfOutput =
            std::ranges::any_of(system.Rules[i].Consequents, [&](const Clause& clause) {
                return clause.Term && PlaceOf(system, clause, only);
            });
        if (isOfOutput && evaluation.Strengths[i] == 0) {
            blockers.push_back(BlockerOf(system, evaluation, i));
        }
    }
    return blockers;
}

} // namespace Quorvane::Explain
