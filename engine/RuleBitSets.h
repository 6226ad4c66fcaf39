// SPDX-License-Identifier: MIT
// Fires a rule base that covers few of the combinations of terms.
#pragma once

#include "engine/RuleSets.h"
#include "engine/RuleTables.h"

namespace Quorvane::RunTime {

/// For every term the set of rules that use it. An input rules out the rules that use one of its
/// terms of degree 0; those that fire are left when all inputs have done so. Their strengths are
/// kept: when an input changes, only the rules that use it are multiplied anew.
class RuleBitSets {
  public:
    explicit RuleBitSets(const RuleTables& tables);

    /// An input has new degrees.
    void Update(const RuleTables& tables, std::size_t input);

    /// Visits the rules that use no term of degree 0, in order, with their strengths.
    template <class Visit>
    void Fire(const RuleTables& tables, Visit visit) {
        for (std::size_t block = 0; block < stale_.BlockCount(); ++block) {
            const std::size_t first = block * RuleBlock::RuleCount;
            RuleBlock ruledOut;
            for (std::size_t set = 0; set <= inputCount_; ++set) {
                ruledOut |= ruledOut_.Set(set)[block];
            }
            RuleBlock& stale = stale_.Set(0)[block];
            (stale & ~ruledOut).ForEach([&](std::size_t place) {
                strengths_[first + place] = tables.StrengthOf(first + place);
            });
            stale = stale & ruledOut;
            (~ruledOut).ForEach(
                [&](std::size_t place) { visit(first + place, strengths_[first + place]); });
        }
    }

  private:
    void FillSets(const RuleTables& tables);

    /// How many inputs have sets: in a rule base of very many terms only the first ones. Rules that
    /// are not ruled out for lack of a set are found to have no strength.
    std::size_t inputCount_;
    RuleSets usersOfTerm_;
    RuleSets usersOfInput_;
    /// What each input rules out; the last set rules out the places beyond the last rule.
    RuleSets ruledOut_;

    /// For each term of an input that is being updated, whether it rules out its users.
    std::vector<RuleBlock::Words> masks_;

    std::vector<double> strengths_;
    /// One set: the rules whose kept strength is older than one of their degrees.
    RuleSets stale_;
};

} // namespace Quorvane::RunTime
