// SPDX-License-Identifier: MIT
// From degrees of membership to the sums of the outputs.
#include "engine/FireRules.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "engine/PreparedRules.h"
#include "shared/FisError.h"

namespace Quorvane::RunTime {
namespace {

/// Adds up where every rule says something of every output. The sums of a few outputs stay in
/// registers: adding to memory takes several times as long.
template <std::size_t OutputCount>
void AddToEveryOutput(PreparedRules& rules) {
    const Consequent* const consequents = rules.Consequents.data();
    std::array<DoublePair, OutputCount> sums{};
    rules.Selector.Fire(rules, [&](std::size_t rule, double strength) {
        for (std::size_t output = 0; output < OutputCount; ++output) {
            sums[output] += strength * consequents[rule * OutputCount + output].Share;
        }
    });
    std::ranges::copy(sums, rules.Sums.begin());
}

void AddToNamedOutputs(PreparedRules& rules) {
    std::ranges::fill(rules.Sums, DoublePair{});
    DoublePair* const sums = rules.Sums.data();
    rules.Selector.Fire(rules, [&rules, sums](std::size_t rule, double strength) {
        for (const Consequent& consequent : rules.ConsequentsOf(rule)) {
            sums[consequent.Output] += strength * consequent.Share;
        }
    });
}

void AddUp(PreparedRules& rules) {
    switch (rules.NamesEveryOutput ? rules.UsedOutputs.size() : 0) {
    case 1:
        return AddToEveryOutput<1>(rules);
    case 2:
        return AddToEveryOutput<2>(rules);
    default:
        return AddToNamedOutputs(rules);
    }
}

} // namespace

void FireRules(PreparedRules& rules) {
    AddUp(rules);
    // A sum that has left the range of a Double never comes back into it, so one look is enough.
    for (const DoublePair& sum : rules.Sums) {
        if (!std::isfinite(sum[0]) || !std::isfinite(sum[1])) {
            throw FisError(RuntimeError::Overflow);
        }
    }
    rules.AreSumsCurrent = true;
}

} // namespace Quorvane::RunTime
