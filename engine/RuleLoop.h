// SPDX-License-Identifier: MIT
// Fires a rule base of a few rules.
#pragma once

#include "engine/RuleTables.h"

namespace Quorvane::RunTime {

/// Fires every rule: so few that finding out which of them have a strength takes longer.
class RuleLoop {
  public:
    void Update(const RuleTables&, std::size_t) {}

    template <class Visit>
    void Fire(const RuleTables& tables, Visit visit) {
        for (std::size_t rule = 0; rule < tables.RuleCount(); ++rule) {
            visit(rule, tables.StrengthOf(rule));
        }
    }
};

} // namespace Quorvane::RunTime
