// SPDX-License-Identifier: MIT
// Fires a rule base that covers few of the combinations of terms.
#pragma once

#include "engine/RuleSets.h"
#include "engine/RuleStrengths.h"

namespace Quorvane::RunTime {

/// An input rules out the rules that use one of its terms of degree 0; those that fire are left
/// when all inputs have done so. The terms of an input are taken in groups so small that there is a
/// set for every choice of terms that can have degree 0: a cycle only picks the right one.
class RuleBitSets {
  public:
    explicit RuleBitSets(const RuleTables& tables);

    // Sets keep their addresses when they move.
    RuleBitSets(RuleBitSets&&) = default;
    RuleBitSets& operator=(RuleBitSets&&) = default;
    RuleBitSets(const RuleBitSets&) = delete;
    RuleBitSets& operator=(const RuleBitSets&) = delete;
    ~RuleBitSets() = default;

    /// An input has new degrees.
    void Update(const RuleTables& tables, std::size_t input);

    /// Visits the rules that use no term of degree 0, in order, with their strengths.
    template <class Visit>
    void Fire(const RuleTables& tables, Visit visit) const {
        WithStrengths(tables, [&](auto strengthOf) {
            for (std::size_t block = 0; block < users_.BlockCount(); ++block) {
                RuleBlock ruledOut = beyondLast_.Set(0)[block];
                for (const RuleBlock* const set : ruledOut_) {
                    ruledOut |= set[block];
                }
                const std::size_t first = block * RuleBlock::RuleCount;
                (~ruledOut).ForEach(
                    [&](std::size_t place) { visit(first + place, strengthOf(first + place)); });
            }
        });
    }

  private:
    /// Some terms of an input, side by side in the degrees.
    struct TermGroup {
        std::uint32_t FirstTerm;
        std::uint32_t TermCount;
        /// The users of none of the terms; those of some of them, their bits in the order of the
        /// terms making a number, come that number of sets later.
        std::size_t FirstSet;

        std::size_t SetCount() const { return std::size_t{1} << TermCount; }
    };

    void MakeGroups(const RuleTables& tables);
    void FillSets(const RuleTables& tables);

    std::vector<TermGroup> groups_;
    /// The first group of each input that has groups, and the end: in a rule base of very many
    /// terms only the first inputs have some. Rules that are not ruled out for lack of a set are
    /// found to have no strength.
    std::vector<std::size_t> firstGroups_;
    RuleSets users_;
    /// What each group rules out: one of the sets.
    std::vector<const RuleBlock*> ruledOut_;
    /// One set: the places beyond the last rule.
    RuleSets beyondLast_;
};

} // namespace Quorvane::RunTime
