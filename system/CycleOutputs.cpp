// SPDX-License-Identifier: MIT
// The outputs that a cycle of the engine has.
#include "system/CycleOutputs.h"

#include <algorithm>

namespace Quorvane::System {

std::vector<CycleOutput> CycleOutputs(const FuzzySystem& system) {
    std::vector<CycleOutput> outputs;
    if (system.Rules.empty()) {
        return outputs;
    }
    for (const Clause& clause : system.Rules.front().Consequents) {
        const OutputVariable& variable = system.Outputs[clause.Variable];
        CycleOutput& output = outputs.emplace_back();
        output.Variable = clause.Variable;
        output.Name = NameIn(system.Outputs, clause);
        if (output.Name == variable.Name) {
            output.Default = DefaultOf(variable);
        }
    }
    for (const Clause& clause : system.Rules.back().Consequents) {
        if (const auto place = PlaceOf(system, clause, outputs)) {
            outputs[*place].IsSet = true;
        }
    }
    return outputs;
}

std::optional<std::size_t> PlaceOf(const FuzzySystem& system, const Clause& consequent,
                                   const std::vector<CycleOutput>& outputs) {
    const auto found = std::ranges::find_if(outputs, [&](const CycleOutput& output) {
        return output.Variable == consequent.Variable &&
               output.Name == NameIn(system.Outputs, consequent);
    });
    return found == outputs.end() ? std::nullopt
                                  : std::optional<std::size_t>(found - outputs.begin());
}

std::optional<FailingClause> FirstFailingClause(const FuzzySystem& system) {
    const std::vector<CycleOutput> outputs = CycleOutputs(system);
    for (std::size_t rule = 0; rule < system.Rules.size(); ++rule) {
        const auto& consequents = system.Rules[rule].Consequents;
        const bool isLast = rule + 1 == system.Rules.size();
        for (std::size_t i = 0; i < consequents.size(); ++i) {
            if ((consequents[i].Term || isLast) && !PlaceOf(system, consequents[i], outputs)) {
                return FailingClause{rule, i};
            }
        }
    }
    return std::nullopt;
}

} // namespace Quorvane::System
