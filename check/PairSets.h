// SPDX-License-Identifier: MIT
// For each rule, the rules that stand in some relation to it, as sets.
#pragma once

#include <map>
#include <vector>

#include "check/ConditionRelations.h"
#include "check/RuleSet.h"
#include "check/RuleTable.h"

namespace Quorvane::Check {

/// Sets of the rules that can fire, by what they say of one input or output. What holds of a pair
/// of rules holds of it in each input and output, so intersections of these sets give the pairs.
class PairSets {
  public:
    explicit PairSets(const RuleTable& rules);

    /// The rules that fire fully at a place where this one does, itself included.
    RuleSet Meeting(std::size_t rule) const;

    /// The rules that conclude the same wherever this one and they conclude anything.
    RuleSet Agreeing(std::size_t rule) const;

    /// The rules of positive weight that fire at least as much wherever this one does, but for the
    /// weight, and conclude all that this one does.
    RuleSet Covering(std::size_t rule) const;

    /// Whether each condition of the wide rule covers that of the narrow one.
    bool CoversConditions(std::size_t wide, std::size_t narrow) const;

    const ConditionRelations& RelationsOf(std::size_t input) const { return relations_[input]; }

  private:
    struct InputSets {
        std::vector<RuleSet> Meeting;
        std::vector<RuleSet> Covering;
        /// The rules that cover the whole universe of the input.
        RuleSet Everywhere{0};
    };
    struct OutputSets {
        std::map<double, RuleSet> Same;
        std::map<double, RuleSet> SameOrNone;
    };

    void AddInput(std::size_t input);
    void AddOutput(std::size_t output);

    const RuleTable& rules_;
    RuleSet firing_;
    RuleSet positive_;
    std::vector<ConditionRelations> relations_;
    std::vector<InputSets> inputs_;
    std::vector<OutputSets> outputs_;
};

} // namespace Quorvane::Check
