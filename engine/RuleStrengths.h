// SPDX-License-Identifier: MIT
// How the strengths of rules are computed.
#pragma once

#include <utility>

#include "engine/RuleTables.h"

namespace Quorvane::RunTime {

/// The strength of a rule where all have as many antecedents as there are places: written out, as
/// the loop would take as long as the products.
template <std::size_t... Places>
auto EvenStrengths(const RuleTables& tables, std::index_sequence<Places...>) {
    return [weights = tables.Weights.data(), antecedents = tables.Antecedents.data(),
            degrees = tables.Degrees.data()](std::size_t rule) {
        const std::uint32_t* const terms = antecedents + sizeof...(Places) * rule;
        return (weights[rule] * ... * degrees[terms[Places]]);
    };
}

/// Calls fire with a function that computes the strength of a rule, its weight times the degrees of
/// its terms, multiplied in the order of its text.
template <class Fire>
void WithStrengths(const RuleTables& tables, Fire fire) {
    switch (tables.AntecedentCount) {
    case 2:
        return fire(EvenStrengths(tables, std::make_index_sequence<2>()));
    case 3:
        return fire(EvenStrengths(tables, std::make_index_sequence<3>()));
    case 4:
        return fire(EvenStrengths(tables, std::make_index_sequence<4>()));
    default:
        return fire([&tables](std::size_t rule) { return tables.StrengthOf(rule); });
    }
}

} // namespace Quorvane::RunTime
