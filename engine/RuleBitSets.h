// SPDX-License-Identifier: MIT
// Finds the rules that fire in a rule base that covers few of the combinations of terms.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace Quorvane::RunTime {

struct RuleTables;

/// For every term the set of rules that use it, one bit per rule. The rules that fire are those
/// that use no term of degree 0. In a rule base of very many terms only the first ones have a set;
/// rules that are not ruled out for lack of one are found to add zeros.
class RuleBitSets {
  public:
    explicit RuleBitSets(const RuleTables& tables);

    /// An input has new degrees, one for each of its used terms.
    void Update(std::size_t input, std::span<const double> degrees);

    /// The rules that use no term of degree 0, in rule order. Valid until the next call.
    std::span<const std::uint32_t> Select();

  private:
    using Word = std::uint64_t;

    /// Has every rule's bit set and none beyond.
    void FillAlive();

    std::size_t ruleCount_;
    std::size_t wordCount_;
    std::size_t setCount_;
    /// The sets of the first setCount_ terms, each of wordCount_ words.
    std::vector<Word> users_;
    /// The first term of each input, and its terms of degree 0 at present.
    std::vector<std::uint32_t> firstTerms_;
    std::vector<std::vector<std::uint32_t>> zeroTerms_;

    // Reused from one call to the next, so that selecting allocates nothing.
    std::vector<Word> alive_;
    std::vector<std::uint32_t> selected_;
};

} // namespace Quorvane::RunTime
