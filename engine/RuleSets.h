// SPDX-License-Identifier: MIT
// Sets of rules as bits.
#pragma once

#include <bit>
#include <climits>
#include <cstddef>
#include <vector>

namespace Quorvane::RunTime {

/// A piece of a set: 256 rules, one bit each.
struct RuleBlock {
    using Word = std::size_t;
    /// Words that are combined at a time.
    using Words [[gnu::vector_size(16)]] = Word;

    static constexpr std::size_t WordBits = sizeof(Word) * CHAR_BIT;
    static constexpr std::size_t WordCount = sizeof(Words) / sizeof(Word);
    static constexpr std::size_t RuleCount = 2 * WordCount * WordBits;

    // Two members rather than an array, which the compiler would not keep in registers.
    Words Low{};
    Words High{};

    RuleBlock operator~() const { return {~Low, ~High}; }
    RuleBlock& operator|=(const RuleBlock& other) {
        Low |= other.Low;
        High |= other.High;
        return *this;
    }

    void Add(std::size_t rule) {
        Words& half = rule < RuleCount / 2 ? Low : High;
        half[rule / WordBits % WordCount] |= Word{1} << rule % WordBits;
    }

    /// Calls visit with each rule, in order.
    template <class Visit>
    void ForEach(Visit visit) const {
        std::size_t first = 0;
        for (const Words& half : {Low, High}) {
            for (std::size_t i = 0; i < WordCount; ++i) {
                for (Word word = half[i]; word != 0; word &= word - 1) {
                    visit(first + static_cast<std::size_t>(std::countr_zero(word)));
                }
                first += WordBits;
            }
        }
    }
};

/// Some sets over the same rules.
class RuleSets {
  public:
    RuleSets(std::size_t setCount, std::size_t ruleCount)
        : blockCount_((ruleCount + RuleBlock::RuleCount - 1) / RuleBlock::RuleCount),
          blocks_(setCount * blockCount_) {}

    std::size_t BlockCount() const { return blockCount_; }

    /// The blocks of a set.
    RuleBlock* Set(std::size_t index) { return blocks_.data() + index * blockCount_; }
    const RuleBlock* Set(std::size_t index) const { return blocks_.data() + index * blockCount_; }

    void Add(std::size_t set, std::size_t rule) {
        Set(set)[rule / RuleBlock::RuleCount].Add(rule % RuleBlock::RuleCount);
    }

    /// Adds the rules of another set to a set.
    void Unite(std::size_t set, std::size_t other) {
        for (std::size_t block = 0; block < blockCount_; ++block) {
            Set(set)[block] |= Set(other)[block];
        }
    }

  private:
    std::size_t blockCount_;
    std::vector<RuleBlock> blocks_;
};

} // namespace Quorvane::RunTime
