// SPDX-License-Identifier: MIT
// The rules of a system in the form in which they are searched.
#include "check/RuleTable.h"

#include <algorithm>
#include <map>

namespace Quorvane::Check {
namespace {

/// The index of a condition among those of an input. One for each term is there from the start;
/// others are added.
std::uint32_t IndexOf(Condition condition, std::vector<Condition>& conditions) {
    if (condition.Terms.size() == 1) {
        return condition.Terms.front();
    }
    const auto found = std::ranges::find(conditions, condition);
    const auto index = static_cast<std::uint32_t>(found - conditions.begin());
    if (found == conditions.end()) {
        conditions.push_back(std::move(condition));
    }
    return index;
}

/// Which conditions of an axis hold anywhere.
std::vector<bool> HoldingSomewhere(const Axis& axis) {
    std::vector<bool> holding(axis.Conditions.size());
    for (const Piece& piece : axis.Pieces) {
        for (const std::uint32_t condition : piece.Active) {
            holding[condition] = true;
        }
    }
    return holding;
}

} // namespace

RuleTable::RuleTable(const System::FuzzySystem& system)
    : Outputs(System::CycleOutputs(system)), checked_(&system),
      conditions_(system.Rules.size() * system.Inputs.size(), None),
      conditionCounts_(system.Rules.size()), positions_(system.Rules.size() * Outputs.size()),
      canFire_(system.Rules.size()) {
    std::vector<std::vector<Condition>> conditions;
    for (const System::InputVariable& input : system.Inputs) {
        conditions.push_back(OneForEachTerm(input));
    }
    Axes.resize(system.Inputs.size());
    for (std::size_t rule = 0; rule < system.Rules.size(); ++rule) {
        ReadRule(rule, conditions);
    }
    for (std::size_t input = 0; input < Axes.size(); ++input) {
        Axes[input] = MakeAxis(system.Inputs[input], std::move(conditions[input]));
        holding_.push_back(HoldingSomewhere(Axes[input]));
    }
    for (std::size_t rule = 0; rule < system.Rules.size(); ++rule) {
        bool fires = system.Rules[rule].Weight != 0;
        for (std::size_t input = 0; input < Axes.size(); ++input) {
            const std::uint32_t condition = ConditionOf(rule, input);
            fires = fires && (condition == None || HoldsSomewhere(input, condition));
        }
        canFire_[rule] = fires;
    }
}

void RuleTable::ReadRule(std::size_t rule, std::vector<std::vector<Condition>>& conditions) {
    std::map<std::uint32_t, Condition> named;
    for (const System::Clause& clause : checked_->Rules[rule].Antecedents) {
        if (clause.Term) {
            named[clause.Variable].Terms.push_back(*clause.Term);
        }
    }
    for (auto& [input, condition] : named) {
        std::ranges::sort(condition.Terms);
        conditions_[rule * Inputs() + input] = IndexOf(std::move(condition), conditions[input]);
    }
    conditionCounts_[rule] = static_cast<std::uint32_t>(named.size());
    for (const System::Clause& clause : checked_->Rules[rule].Consequents) {
        const auto place = System::PlaceOf(*checked_, clause, Outputs);
        if (clause.Term && place) {
            positions_[rule * Outputs.size() + *place] =
                checked_->Outputs[clause.Variable].Terms[*clause.Term].Position;
        }
    }
}

} // namespace Quorvane::Check
