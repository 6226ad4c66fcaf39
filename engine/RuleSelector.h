// SPDX-License-Identifier: MIT
// Finds the rules that fire without looking at those that do not.
#pragma once

#include <cstdint>
#include <span>
#include <variant>

#include "engine/RuleBitSets.h"
#include "engine/RuleGrid.h"

namespace Quorvane::RunTime {

/// A rule fires only if all its terms have a degree other than 0; the others would add zeros to
/// sums that start at zero, so leaving them out changes no bit. A selector fits the shape of its
/// rule base: a grid where the rules cover the combinations of terms, else sets of rules.
class RuleSelector {
  public:
    /// Selects nothing.
    RuleSelector() = default;

    explicit RuleSelector(const RuleTables& tables) {
        if (auto grid = RuleGrid::Build(tables)) {
            shape_ = std::move(*grid);
        } else {
            shape_ = RuleBitSets(tables);
        }
    }

    /// An input has new degrees, one for each of its used terms.
    void Update(std::size_t input, std::span<const double> degrees) {
        if (auto* const grid = std::get_if<RuleGrid>(&shape_)) {
            grid->Update(input, degrees);
        } else if (auto* const sets = std::get_if<RuleBitSets>(&shape_)) {
            sets->Update(input, degrees);
        }
    }

    /// The rules that can fire, in rule order. Valid until the next call.
    std::span<const std::uint32_t> Select() {
        if (auto* const grid = std::get_if<RuleGrid>(&shape_)) {
            return grid->Select();
        }
        auto* const sets = std::get_if<RuleBitSets>(&shape_);
        return sets ? sets->Select() : std::span<const std::uint32_t>();
    }

  private:
    std::variant<std::monostate, RuleGrid, RuleBitSets> shape_;
};

} // namespace Quorvane::RunTime
