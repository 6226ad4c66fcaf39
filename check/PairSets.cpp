// SPDX-License-Identifier: MIT
// For each rule, the rules that stand in some relation to it, as sets.
#include "check/PairSets.h"

namespace Quorvane::Check {

PairSets::PairSets(const RuleTable& rules)
    : rules_(rules), firing_(rules.Rules()), positive_(rules.Rules()) {
    for (std::size_t rule = 0; rule < rules.Rules(); ++rule) {
        if (rules.CanFire(rule)) {
            firing_.Add(rule);
            if (rules.WeightOf(rule) > 0) {
                positive_.Add(rule);
            }
        }
    }
    for (std::size_t input = 0; input < rules.Inputs(); ++input) {
        relations_.emplace_back(rules.Axes[input], rules.Checked().Inputs[input]);
        AddInput(input);
    }
    for (std::size_t output = 0; output < rules.Outputs.size(); ++output) {
        AddOutput(output);
    }
}

void PairSets::AddInput(std::size_t input) {
    const auto count = static_cast<std::uint32_t>(rules_.Axes[input].Conditions.size());
    const ConditionRelations& relations = relations_.back();
    InputSets& sets = inputs_.emplace_back();
    std::vector<std::uint32_t> everywhere;
    for (std::uint32_t condition = 0; condition < count; ++condition) {
        std::vector<std::uint32_t> meeting;
        std::vector<std::uint32_t> covering;
        for (std::uint32_t other = 0; other < count; ++other) {
            if (relations.Meet(condition, other)) {
                meeting.push_back(other);
            }
            if (relations.Covers(other, condition)) {
                covering.push_back(other);
            }
        }
        sets.Meeting.push_back(RulesWith(rules_, input, meeting));
        sets.Covering.push_back(RulesWith(rules_, input, covering));
        if (relations.HoldsEverywhere(condition)) {
            everywhere.push_back(condition);
        }
    }
    sets.Everywhere = RulesWith(rules_, input, everywhere);
}

void PairSets::AddOutput(std::size_t output) {
    RuleSet silent(rules_.Rules());
    OutputSets& sets = outputs_.emplace_back();
    for (std::size_t rule = 0; rule < rules_.Rules(); ++rule) {
        if (const auto& position = rules_.PositionOf(rule, output)) {
            sets.Same.try_emplace(*position, rules_.Rules()).first->second.Add(rule);
        } else {
            silent.Add(rule);
        }
    }
    sets.SameOrNone = sets.Same;
    for (auto& [position, set] : sets.SameOrNone) {
        set.AddThoseOf(silent);
    }
}

RuleSet PairSets::Meeting(std::size_t rule) const {
    RuleSet meeting = firing_;
    for (std::size_t input = 0; input < inputs_.size(); ++input) {
        const std::uint32_t condition = rules_.ConditionOf(rule, input);
        if (condition != RuleTable::None) {
            meeting.KeepThoseIn(inputs_[input].Meeting[condition]);
        }
    }
    return meeting;
}

RuleSet PairSets::Agreeing(std::size_t rule) const {
    RuleSet agreeing = firing_;
    for (std::size_t output = 0; output < outputs_.size(); ++output) {
        if (const auto& position = rules_.PositionOf(rule, output)) {
            agreeing.KeepThoseIn(outputs_[output].SameOrNone.at(*position));
        }
    }
    return agreeing;
}

RuleSet PairSets::Covering(std::size_t rule) const {
    RuleSet covering = positive_;
    for (std::size_t input = 0; input < inputs_.size(); ++input) {
        const std::uint32_t condition = rules_.ConditionOf(rule, input);
        covering.KeepThoseIn(condition == RuleTable::None ? inputs_[input].Everywhere
                                                          : inputs_[input].Covering[condition]);
    }
    for (std::size_t output = 0; output < outputs_.size(); ++output) {
        if (const auto& position = rules_.PositionOf(rule, output)) {
            covering.KeepThoseIn(outputs_[output].Same.at(*position));
        }
    }
    return covering;
}

bool PairSets::CoversConditions(std::size_t wide, std::size_t narrow) const {
    for (std::size_t input = 0; input < inputs_.size(); ++input) {
        const std::uint32_t outer = rules_.ConditionOf(wide, input);
        const std::uint32_t inner = rules_.ConditionOf(narrow, input);
        const ConditionRelations& relations = relations_[input];
        if (outer == RuleTable::None || relations.HoldsEverywhere(outer)) {
            continue;
        }
        if (inner == RuleTable::None || !relations.Covers(outer, inner)) {
            return false;
        }
    }
    return true;
}

} // namespace Quorvane::Check
