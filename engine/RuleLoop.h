// SPDX-License-Identifier: MIT
// Fires a rule base of a few rules.
#pragma once

#include "engine/RuleStrengths.h"

namespace Quorvane::RunTime {

/// Fires every rule: so few that finding out which of them have a strength takes longer.
class RuleLoop {
  public:
    void Update(const RuleTables&, std::size_t) {}

    /// Visits all rules, in order, with their strengths.
    template <class Visit>
    void Fire(const RuleTables& tables, Visit visit) const {
        WithStrengths(tables, [&](auto strengthOf) {
            const std::size_t end = tables.RuleCount();
            for (std::size_t rule = 0; rule < end; ++rule) {
                visit(rule, strengthOf(rule));
            }
        });
    }
};

} // namespace Quorvane::RunTime
