// SPDX-License-Identifier: MIT
// Fires a rule base that covers few of the combinations of terms.
#include "engine/RuleBitSets.h"

#include <algorithm>

namespace Quorvane::RunTime {
namespace {

/// The most blocks that all sets together may take: 64 MB, far above what any system that a person
/// designs needs, and below what would harm the host.
constexpr std::size_t MostBlocks = std::size_t{2} * 1024 * 1024;

/// How many inputs, from the first on, can have sets.
std::size_t CountInputsWithSets(const RuleTables& tables) {
    const std::size_t blocksPerSet = RuleSets::BlocksFor(tables.RuleCount());
    std::size_t blocks = 0;
    std::size_t count = 0;
    for (const UsedInput& input : tables.UsedInputs) {
        blocks += (input.TermCount + 2) * blocksPerSet;
        if (blocks > MostBlocks) {
            break;
        }
        ++count;
    }
    return count;
}

/// The number of the first term of an input, or of all terms for the input after the last.
std::size_t FirstTerm(const RuleTables& tables, std::size_t input) {
    return input < tables.UsedInputs.size() ? tables.UsedInputs[input].FirstTerm
                                            : tables.Degrees.size();
}

} // namespace

RuleBitSets::RuleBitSets(const RuleTables& tables)
    : inputCount_(CountInputsWithSets(tables)),
      usersOfTerm_(FirstTerm(tables, inputCount_), tables.RuleCount()),
      usersOfInput_(inputCount_, tables.RuleCount()),
      ruledOut_(inputCount_ + 1, tables.RuleCount()), strengths_(tables.RuleCount()),
      stale_(1, tables.RuleCount()) {
    FillSets(tables);
    std::size_t mostTerms = 0;
    for (const UsedInput& input : tables.UsedInputs) {
        mostTerms = std::max<std::size_t>(mostTerms, input.TermCount);
    }
    masks_.resize(mostTerms);
    for (std::size_t input = 0; input < inputCount_; ++input) {
        Update(tables, input);
    }
}

void RuleBitSets::FillSets(const RuleTables& tables) {
    const std::size_t termCount = FirstTerm(tables, inputCount_);
    for (std::size_t rule = 0; rule < tables.RuleCount(); ++rule) {
        for (const std::uint32_t term : tables.AntecedentsOf(rule)) {
            if (term < termCount) {
                usersOfTerm_.Add(term, rule);
            }
        }
        stale_.Add(0, rule);
    }
    for (std::size_t input = 0; input < inputCount_; ++input) {
        for (std::size_t term = FirstTerm(tables, input); term < FirstTerm(tables, input + 1);
             ++term) {
            for (std::size_t block = 0; block < stale_.BlockCount(); ++block) {
                usersOfInput_.Set(input)[block] |= usersOfTerm_.Set(term)[block];
            }
        }
    }
    const std::size_t places = stale_.BlockCount() * RuleBlock::RuleCount;
    for (std::size_t place = tables.RuleCount(); place < places; ++place) {
        ruledOut_.Add(inputCount_, place);
    }
}

void RuleBitSets::Update(const RuleTables& tables, std::size_t input) {
    const std::size_t blockCount = stale_.BlockCount();
    RuleBlock* const stale = stale_.Set(0);
    if (input >= inputCount_) {
        std::fill_n(stale, blockCount, ~RuleBlock());
        return;
    }
    const std::span<const double> degrees = tables.DegreesOf(input);
    for (std::size_t i = 0; i < degrees.size(); ++i) {
        // A mask, as it cannot be predicted whether a degree is 0.
        masks_[i] = RuleBlock::Words{} - static_cast<RuleBlock::Word>(!(degrees[i] > 0));
    }
    const RuleBlock* const usersOfInput = usersOfInput_.Set(input);
    const RuleBlock* const usersOfTerms = usersOfTerm_.Set(tables.UsedInputs[input].FirstTerm);
    RuleBlock* const ruledOut = ruledOut_.Set(input);
    for (std::size_t block = 0; block < blockCount; ++block) {
        const RuleBlock* users = usersOfTerms + block;
        RuleBlock rules;
        for (std::size_t i = 0; i < degrees.size(); ++i) {
            rules |= *users & masks_[i];
            users += blockCount;
        }
        ruledOut[block] = rules;
        stale[block] |= usersOfInput[block];
    }
}

} // namespace Quorvane::RunTime
