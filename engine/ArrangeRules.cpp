// SPDX-License-Identifier: MIT
// Puts rule tables into the form in which they fire fastest; no form changes a sum.
#include "engine/ArrangeRules.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "engine/RuleTables.h"

namespace Quorvane::RunTime {
namespace {

/// For each output the rules that say something of it; nothing where one speaks of several.
std::optional<std::vector<std::vector<std::uint32_t>>> RulesByOutput(const RuleTables& tables) {
    std::vector<std::vector<std::uint32_t>> byOutput(tables.UsedOutputs.size());
    for (std::uint32_t rule = 0; rule < tables.RuleCount(); ++rule) {
        const std::size_t count = tables.ConsequentCountOf(rule);
        if (count > 1) {
            return std::nullopt;
        }
        if (count == 1) {
            byOutput[tables.Outputs[tables.FirstConsequents[rule]]].push_back(rule);
        }
    }
    return byOutput;
}

/// Adds a rule of one consequent to others.
void AddRule(RuleList& rules, const RuleList& source, std::uint32_t rule) {
    const auto antecedents = source.AntecedentsOf(rule);
    rules.Antecedents.insert(rules.Antecedents.end(), antecedents.begin(), antecedents.end());
    rules.Points.push_back(source.Points[source.FirstConsequents[rule]]);
    rules.Outputs.push_back(source.Outputs[source.FirstConsequents[rule]]);
    rules.EndRule(source.Weights[rule]);
}

} // namespace

void GroupByOutput(RuleTables& tables) {
    const auto byOutput = RulesByOutput(tables);
    if (!byOutput) {
        return;
    }
    RuleList grouped;
    for (const auto& rules : *byOutput) {
        for (const std::uint32_t rule : rules) {
            AddRule(grouped, tables, rule);
        }
    }
    static_cast<RuleList&>(tables) = std::move(grouped);
    tables.IsGroupedByOutput = !tables.UsedOutputs.empty();
}

void EvenOutAntecedents(RuleTables& tables) {
    std::size_t most = 0;
    for (std::size_t rule = 0; rule < tables.RuleCount(); ++rule) {
        most = std::max(most, tables.AntecedentsOf(rule).size());
    }
    // In 64 bits: what a hostile rule base asks for can be beyond 32.
    if (std::uint64_t{most} * tables.RuleCount() > 2 * tables.Antecedents.size()) {
        return;
    }
    const auto one = static_cast<std::uint32_t>(tables.Degrees.size() - 1);
    std::vector<std::uint32_t> antecedents(most * tables.RuleCount(), one);
    for (std::size_t rule = 0; rule < tables.RuleCount(); ++rule) {
        std::ranges::copy(tables.AntecedentsOf(rule), antecedents.data() + most * rule);
    }
    for (std::size_t rule = 0; rule <= tables.RuleCount(); ++rule) {
        tables.FirstAntecedents[rule] = static_cast<std::uint32_t>(most * rule);
    }
    tables.Antecedents = std::move(antecedents);
    tables.AntecedentCount = most;
}

bool NamesEveryOutput(const RuleTables& tables) {
    const std::size_t outputCount = tables.UsedOutputs.size();
    // In 64 bits for the same reason.
    if (tables.Outputs.size() != std::uint64_t{outputCount} * tables.RuleCount()) {
        return false;
    }
    for (std::size_t i = 0; i < tables.Outputs.size(); ++i) {
        if (tables.Outputs[i] != i % outputCount) {
            return false;
        }
    }
    return true;
}

} // namespace Quorvane::RunTime
