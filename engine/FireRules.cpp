// SPDX-License-Identifier: MIT
// From degrees of membership to the sums of the outputs.
#include "engine/FireRules.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/PreparedRules.h"
#include "shared/FisError.h"

namespace Quorvane::RunTime {
namespace {

/// What a strength adds to the numerator and the denominator of an output.
DoublePair Share(double strength, double point) {
    return DoublePair{strength * point, strength};
}

/// Adds up where every rule says something of one output, the only one.
void AddToOneOutput(PreparedRules& rules) {
    const double* const points = rules.Points.data();
    DoublePair sum{};
    rules.Selector.Fire(
        rules, [&](std::size_t rule, double strength) { sum += Share(strength, points[rule]); });
    rules.Sums[0] = sum;
}

/// Adds up where every rule says something of two outputs. Their denominators are the same.
void AddToBothOutputs(PreparedRules& rules) {
    const double* const points = rules.Points.data();
    DoublePair numerators{};
    double denominator = 0;
    rules.Selector.Fire(rules, [&](std::size_t rule, double strength) {
        numerators += strength * DoublePair{points[2 * rule], points[2 * rule + 1]};
        denominator += strength;
    });
    rules.Sums[0] = DoublePair{numerators[0], denominator};
    rules.Sums[1] = DoublePair{numerators[1], denominator};
}

/// Adds up where rules of the same output lie side by side. The sum of the output that they have
/// come to stays in a register.
void AddToOneOutputAfterTheOther(PreparedRules& rules) {
    std::ranges::fill(rules.Sums, DoublePair{});
    const double* const points = rules.Points.data();
    const std::uint32_t* const outputs = rules.Outputs.data();
    DoublePair* const sums = rules.Sums.data();
    DoublePair sum{};
    std::uint32_t output = 0;
    rules.Selector.Fire(rules, [&](std::size_t rule, double strength) {
        if (outputs[rule] != output) {
            sums[std::exchange(output, outputs[rule])] = std::exchange(sum, DoublePair{});
        }
        sum += Share(strength, points[rule]);
    });
    sums[output] = sum;
}

/// Out of line: it needs many registers, which FireRules would save for the others as well.
[[gnu::noinline]] void AddToNamedOutputs(PreparedRules& rules) {
    std::ranges::fill(rules.Sums, DoublePair{});
    DoublePair* const sums = rules.Sums.data();
    rules.Selector.Fire(rules, [&rules, sums](std::size_t rule, double strength) {
        for (std::size_t i = rules.FirstConsequents[rule]; i < rules.FirstConsequents[rule + 1];
             ++i) {
            sums[rules.Outputs[i]] += Share(strength, rules.Points[i]);
        }
    });
}

/// The sums of the outputs that rules are adding to stay in registers where that is possible:
/// adding to memory takes several times as long.
void AddUp(PreparedRules& rules) {
    if (rules.NamesEveryOutput && rules.UsedOutputs.size() == 1) {
        AddToOneOutput(rules);
    } else if (rules.NamesEveryOutput && rules.UsedOutputs.size() == 2) {
        AddToBothOutputs(rules);
    } else if (rules.IsGroupedByOutput) {
        AddToOneOutputAfterTheOther(rules);
    } else {
        AddToNamedOutputs(rules);
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
