// SPDX-License-Identifier: MIT
// Fires rules without looking at those that do not fire.
#pragma once

#include <variant>

#include "engine/RuleBitSets.h"
#include "engine/RuleGrid.h"
#include "engine/RuleLoop.h"

namespace Quorvane::RunTime {

/// A rule fires only if all its terms have a degree other than 0; the others would add zeros to
/// sums that start at zero, so leaving them out changes no bit. A selector fits its rule base: a
/// grid where many rules cover the combinations of terms, else sets of rules.
class RuleSelector {
  public:
    RuleSelector() = default;

    /// Makes the selector that fits. Where that is none to which the order of the rules matters,
    /// they are grouped by output.
    explicit RuleSelector(RuleTables& tables);

    /// An input has new degrees. The tables are those that the selector was made for.
    void Update(const RuleTables& tables, std::size_t input) {
        std::visit([&](auto& shape) { shape.Update(tables, input); }, shape_);
    }

    /// Visits the rules that can fire, in order, with their strengths. The tables are those that
    /// the selector was made for.
    template <class Visit>
    void Fire(const RuleTables& tables, Visit visit) {
        std::visit([&](auto& shape) { shape.Fire(tables, visit); }, shape_);
    }

  private:
    std::variant<RuleLoop, RuleBitSets, RuleGrid> shape_;
};

} // namespace Quorvane::RunTime
