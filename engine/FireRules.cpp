// SPDX-License-Identifier: MIT
// From degrees of membership to the sums of the outputs.
#include "engine/FireRules.h"

#include <array>
#include <cmath>

#include "engine/PreparedRules.h"
#include "shared/FisError.h"

namespace Quorvane::RunTime {
namespace {

/// Sums up where every rule says something of every output, so that there is one denominator. A few
/// outputs' sums stay in registers: adding to memory takes four times as long.
template <std::size_t OutputCount>
void AddToEveryOutput(PreparedRules& rules) {
    const Consequent* const consequents = rules.Consequents.data();
    std::array<double, OutputCount> numerators{};
    double denominator = 0;
    rules.Selector.Fire(rules, [&](std::size_t rule, double strength) {
        for (std::size_t output = 0; output < OutputCount; ++output) {
            numerators[output] += strength * consequents[rule * OutputCount + output].Point;
        }
        denominator += strength;
    });
    for (std::size_t output = 0; output < OutputCount; ++output) {
        rules.UsedOutputs[output].Numerator = numerators[output];
        rules.UsedOutputs[output].Denominator = denominator;
    }
}

void AddToNamedOutputs(PreparedRules& rules) {
    for (UsedOutput& output : rules.UsedOutputs) {
        output.Numerator = 0;
        output.Denominator = 0;
    }
    rules.Selector.Fire(rules, [&rules](std::size_t rule, double strength) {
        for (const Consequent& consequent : rules.ConsequentsOf(rule)) {
            UsedOutput& output = rules.UsedOutputs[consequent.Output];
            output.Numerator += strength * consequent.Point;
            output.Denominator += strength;
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
    for (const UsedOutput& output : rules.UsedOutputs) {
        if (!std::isfinite(output.Numerator) || !std::isfinite(output.Denominator)) {
            throw FisError(RuntimeError::Overflow);
        }
    }
    rules.AreSumsCurrent = true;
}

} // namespace Quorvane::RunTime
