// SPDX-License-Identifier: MIT
// Fires rules without looking at those that do not fire.
#include "engine/RuleSelector.h"

#include "engine/ArrangeRules.h"

namespace Quorvane::RunTime {
namespace {

/// Up to so many rules, firing them all is faster than looking for those that have a strength.
constexpr std::size_t FewRules = 24;
/// Up to so many, looking at a bit of each is faster than finding the cells of a grid.
constexpr std::size_t SomeRules = 100;

} // namespace

RuleSelector::RuleSelector(RuleTables& tables) {
    if (tables.RuleCount() > SomeRules) {
        if (auto grid = RuleGrid::Build(tables)) {
            shape_ = std::move(*grid);
            return;
        }
    }
    GroupByOutput(tables);
    if (tables.RuleCount() > FewRules) {
        shape_ = RuleBitSets(tables);
    }
}

} // namespace Quorvane::RunTime
