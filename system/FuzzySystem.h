// SPDX-License-Identifier: MIT
// A fuzzy system as a value: variables, terms and rules, with nothing of the process behind them.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "shared/Text.h"

namespace Quorvane::System {

/// A trapezoid: left foot, left shoulder, right shoulder, right foot. The engine takes the points
/// as they come, so they need not be in order.
struct InputTerm {
    Text Name;
    std::array<double, 4> Points{};

    bool operator==(const InputTerm&) const = default;
};

/// A singleton.
struct OutputTerm {
    Text Name;
    double Position = 0;

    bool operator==(const OutputTerm&) const = default;
};

/// A variable with a bounded universe. The names of its terms differ without regard to case.
template <class Term>
struct Variable {
    Text Name;
    double Lower = 0;
    double Upper = 0;
    std::vector<Term> Terms;

    bool operator==(const Variable&) const = default;
};

using InputVariable = Variable<InputTerm>;
using OutputVariable = Variable<OutputTerm>;

/// What a rule says of one variable.
struct Clause {
    /// The index of the variable among the inputs or the outputs.
    std::uint32_t Variable = 0;
    /// The index of the term; none stands for "[NONE]".
    std::optional<std::uint32_t> Term;
    /// The variable's name as the rule writes it, where that is of other case; else empty. The
    /// engine keeps outputs by their exact names, so the case of one can matter (CycleOutputs.h).
    Text Spelling;

    bool operator==(const Clause&) const = default;
};

/// IF every antecedent THEN every consequent. A rule need not name every variable. Their order is
/// that of the products and sums, and so of their rounding. No two clauses of a list write the same
/// name, but two may write that of one variable in different case: then both count.
struct Rule {
    std::vector<Clause> Antecedents;
    std::vector<Clause> Consequents;
    /// A factor of the rule's strength, any number.
    double Weight = 1;

    bool operator==(const Rule&) const = default;
};

/// The names of the inputs differ without regard to case, and so do those of the outputs. All
/// numbers are finite, and so is the middle of each output's universe.
struct FuzzySystem {
    std::vector<InputVariable> Inputs;
    std::vector<OutputVariable> Outputs;
    std::vector<Rule> Rules;

    bool operator==(const FuzzySystem&) const = default;
};

/// The value of an output for which no rule fires: the middle of its universe.
inline double DefaultOf(const OutputVariable& output) {
    return (output.Lower + output.Upper) / 2;
}

/// The name of a clause's variable as the rule writes it.
template <class Term>
TextView NameIn(const std::vector<Variable<Term>>& variables, const Clause& clause) {
    return clause.Spelling.empty() ? TextView(variables[clause.Variable].Name)
                                   : TextView(clause.Spelling);
}

} // namespace Quorvane::System
