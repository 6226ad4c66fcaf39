// SPDX-License-Identifier: MIT
// Sets of rules.
#include "check/RuleSet.h"

namespace Quorvane::Check {

RuleSet RulesWith(const RuleTable& rules, std::size_t input,
                  const std::vector<std::uint32_t>& conditions) {
    std::vector<bool> wanted(rules.Axes[input].Conditions.size());
    for (const std::uint32_t condition : conditions) {
        wanted[condition] = true;
    }
    RuleSet set(rules.Rules());
    for (std::size_t rule = 0; rule < rules.Rules(); ++rule) {
        const std::uint32_t condition = rules.ConditionOf(rule, input);
        if (condition == RuleTable::None || wanted[condition]) {
            set.Add(rule);
        }
    }
    return set;
}

} // namespace Quorvane::Check
