// SPDX-License-Identifier: MIT
// Sets of rules.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "check/RuleTable.h"

namespace Quorvane::Check {

/// Some of so many rules, a bit for each.
class RuleSet {
  public:
    explicit RuleSet(std::size_t rules) : words_((rules + BitsPerWord - 1) / BitsPerWord) {}

    void Add(std::size_t rule) { words_[rule / BitsPerWord] |= Bit(rule); }

    void AddThoseOf(const RuleSet& other) {
        for (std::size_t i = 0; i < words_.size(); ++i) {
            words_[i] |= other.words_[i];
        }
    }

    void KeepThoseIn(const RuleSet& other) {
        for (std::size_t i = 0; i < words_.size(); ++i) {
            words_[i] &= other.words_[i];
        }
    }

    void Remove(const RuleSet& other) {
        for (std::size_t i = 0; i < words_.size(); ++i) {
            words_[i] &= ~other.words_[i];
        }
    }

    bool Contains(std::size_t rule) const { return (words_[rule / BitsPerWord] & Bit(rule)) != 0; }

    bool IsEmpty() const {
        return std::ranges::all_of(words_, [](std::uint64_t word) { return word == 0; });
    }

    /// Calls act(rule) for each rule, in ascending order.
    template <class Act>
    void ForEach(Act act) const {
        for (std::size_t i = 0; i < words_.size(); ++i) {
            for (std::uint64_t word = words_[i]; word != 0; word &= word - 1) {
                act(i * BitsPerWord + static_cast<std::size_t>(std::countr_zero(word)));
            }
        }
    }

  private:
    static constexpr std::size_t BitsPerWord = 64;

    static std::uint64_t Bit(std::size_t rule) { return std::uint64_t{1} << (rule % BitsPerWord); }

    std::vector<std::uint64_t> words_;
};

/// The rules that have one of these conditions on an input, or none.
RuleSet RulesWith(const RuleTable& rules, std::size_t input,
                  const std::vector<std::uint32_t>& conditions);

} // namespace Quorvane::Check
