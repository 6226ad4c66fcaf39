// SPDX-License-Identifier: MIT
// Finds the rules that fire in a rule base that covers few of the combinations of terms.
#include "engine/RuleBitSets.h"

#include <algorithm>
#include <bit>

#include "engine/RuleTables.h"

namespace Quorvane::RunTime {
namespace {

constexpr std::size_t WordBits = 64;

/// The most words that all sets together may take: 64 MB, far above what any system that a person
/// designs needs, and below what would harm the host.
constexpr std::size_t MostWords = std::size_t{8} * 1024 * 1024;

} // namespace

RuleBitSets::RuleBitSets(const RuleTables& tables)
    : ruleCount_(tables.RuleCount()), wordCount_((ruleCount_ + WordBits - 1) / WordBits),
      setCount_(std::min(tables.Degrees.size(), MostWords / std::max<std::size_t>(wordCount_, 1))),
      users_(setCount_ * wordCount_), zeroTerms_(tables.UsedInputs.size()), alive_(wordCount_) {
    for (std::size_t rule = 0; rule < ruleCount_; ++rule) {
        for (const std::uint32_t term : tables.AntecedentsOf(rule)) {
            if (term < setCount_) {
                users_[term * wordCount_ + rule / WordBits] |= Word{1} << rule % WordBits;
            }
        }
    }
    selected_.reserve(ruleCount_);
    for (const UsedInput& input : tables.UsedInputs) {
        firstTerms_.push_back(input.FirstDegree);
        zeroTerms_[firstTerms_.size() - 1].reserve(input.Terms.size());
    }
}

void RuleBitSets::Update(std::size_t input, std::span<const double> degrees) {
    auto& zeroTerms = zeroTerms_[input];
    zeroTerms.clear();
    for (std::size_t i = 0; i < degrees.size(); ++i) {
        const std::size_t term = firstTerms_[input] + i;
        if (degrees[i] == 0 && term < setCount_) {
            zeroTerms.push_back(static_cast<std::uint32_t>(term));
        }
    }
}

void RuleBitSets::FillAlive() {
    std::ranges::fill(alive_, ~Word{0});
    if (const std::size_t rest = ruleCount_ % WordBits; rest != 0) {
        alive_.back() = (Word{1} << rest) - 1;
    }
}

std::span<const std::uint32_t> RuleBitSets::Select() {
    FillAlive();
    for (const auto& zeroTerms : zeroTerms_) {
        for (const std::uint32_t term : zeroTerms) {
            const Word* const users = &users_[term * wordCount_];
            for (std::size_t i = 0; i < wordCount_; ++i) {
                alive_[i] &= ~users[i];
            }
        }
    }
    selected_.clear();
    for (std::size_t i = 0; i < wordCount_; ++i) {
        for (Word word = alive_[i]; word != 0; word &= word - 1) {
            const std::size_t rule =
                i * WordBits + static_cast<std::size_t>(std::countr_zero(word));
            selected_.push_back(static_cast<std::uint32_t>(rule));
        }
    }
    return selected_;
}

} // namespace Quorvane::RunTime
