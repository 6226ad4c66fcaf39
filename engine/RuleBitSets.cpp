// SPDX-License-Identifier: MIT
// Fires a rule base that covers few of the combinations of terms.
#include "engine/RuleBitSets.h"

#include <algorithm>

namespace Quorvane::RunTime {
namespace {

/// The most terms of a group: it has a set for each choice of them.
constexpr std::uint32_t MostTerms = 4;

/// The most blocks that all sets together may take: 64 MB, far above what any system that a person
/// designs needs, and below what would harm the host.
constexpr std::size_t MostBlocks = std::size_t{2} * 1024 * 1024;

} // namespace

RuleBitSets::RuleBitSets(const RuleTables& tables)
    : users_(0, 0), beyondLast_(1, tables.RuleCount()) {
    MakeGroups(tables);
    FillSets(tables);
    for (std::size_t input = 0; input < tables.UsedInputs.size(); ++input) {
        Update(tables, input);
    }
}

void RuleBitSets::MakeGroups(const RuleTables& tables) {
    const std::size_t mostSets = MostBlocks / beyondLast_.BlockCount();
    std::size_t setCount = 0;
    firstGroups_.push_back(0);
    for (const UsedInput& input : tables.UsedInputs) {
        std::size_t nextSet = setCount;
        for (std::uint32_t term = 0; term < input.TermCount; term += MostTerms) {
            groups_.push_back(
                {input.FirstTerm + term, std::min(MostTerms, input.TermCount - term), nextSet});
            nextSet += groups_.back().SetCount();
        }
        if (nextSet > mostSets) {
            groups_.resize(firstGroups_.back());
            break;
        }
        setCount = nextSet;
        firstGroups_.push_back(groups_.size());
    }
    users_ = RuleSets(setCount, tables.RuleCount());
    ruledOut_.resize(groups_.size());
}

void RuleBitSets::FillSets(const RuleTables& tables) {
    // The users of the first term of a group are one set after the users of none.
    constexpr std::size_t NoSet = 0;
    std::vector<std::size_t> setOfTerm(tables.Degrees.size(), NoSet);
    for (const TermGroup& group : groups_) {
        for (std::uint32_t i = 0; i < group.TermCount; ++i) {
            setOfTerm[group.FirstTerm + i] = group.FirstSet + (std::size_t{1} << i);
        }
    }
    for (std::size_t rule = 0; rule < tables.RuleCount(); ++rule) {
        for (const std::uint32_t term : tables.AntecedentsOf(rule)) {
            if (setOfTerm[term] != NoSet) {
                users_.Add(setOfTerm[term], rule);
            }
        }
    }
    for (const TermGroup& group : groups_) {
        // Users of several terms are those of all but one and those of that one.
        for (std::size_t terms = 1; terms < group.SetCount(); ++terms) {
            const std::size_t allButOne = terms & (terms - 1);
            users_.Unite(group.FirstSet + terms, group.FirstSet + allButOne);
            users_.Unite(group.FirstSet + terms, group.FirstSet + (terms ^ allButOne));
        }
    }
    const std::size_t places = beyondLast_.BlockCount() * RuleBlock::RuleCount;
    for (std::size_t place = tables.RuleCount(); place < places; ++place) {
        beyondLast_.Add(0, place);
    }
}

void RuleBitSets::Update(const RuleTables& tables, std::size_t input) {
    if (input + 1 >= firstGroups_.size()) {
        return;
    }
    for (std::size_t i = firstGroups_[input]; i < firstGroups_[input + 1]; ++i) {
        const TermGroup& group = groups_[i];
        // Computed, as it cannot be predicted whether a degree is 0.
        std::size_t terms = 0;
        for (std::uint32_t term = 0; term < group.TermCount; ++term) {
            const bool isOff = !(tables.Degrees[group.FirstTerm + term] > 0);
            terms |= static_cast<std::size_t>(isOff) << term;
        }
        ruledOut_[i] = users_.Set(group.FirstSet + terms);
    }
}

} // namespace Quorvane::RunTime
