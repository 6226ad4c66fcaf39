// SPDX-License-Identifier: MIT
// What the engine makes of a rule base: flat tables in which names have become indices.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <vector>

#include "engine/ModelBinding.h"
#include "engine/RuleSelector.h"
#include "shared/Text.h"

namespace Quorvane::RunTime {

/// An input that some rule names.
struct UsedInput {
    Text Name;
    /// The value last fuzzified; absent ("[EMPTY]") until one has been.
    std::optional<double> LastInput{};
    /// The terms that rules use of it, "[NONE]" included, in the order of their first use.
    std::vector<Text> Terms{};
    /// Where the degrees of these terms stand, one after the other, in RuleTables::Degrees.
    std::uint32_t FirstDegree = 0;
};

/// An output that rule 0 names, with its running sums.
struct UsedOutput {
    Text Name;
    double Numerator = 0;
    double Denominator = 0;
};

/// A rule, and where its part of the antecedents and consequents begins; it ends where that of the
/// next rule begins.
struct Rule {
    double Weight;
    std::uint32_t FirstAntecedent;
    std::uint32_t FirstConsequent;
};

/// What a rule says of one output: the position of the singleton.
struct Consequent {
    std::uint32_t Output;
    double Point;
};

/// The prepared rule base. Names compare by exact case. Antecedents and consequents of "[NONE]" are
/// left out of the rules: multiplying by their degree 1 and adding nothing change no bit.
struct RuleTables {
    /// Stands for an output that rule 0 does not name.
    static constexpr auto UnknownOutput = std::numeric_limits<std::uint32_t>::max();

    std::vector<UsedInput> UsedInputs;
    /// The degrees of membership of all used terms; 1 until their input is fuzzified.
    std::vector<double> Degrees;
    std::vector<UsedOutput> UsedOutputs;

    /// All rules in order, and one more that marks the end.
    std::vector<Rule> Rules;
    /// Indices into Degrees, each rule's in the order of its text.
    std::vector<std::uint32_t> Antecedents;
    std::vector<Consequent> Consequents;

    /// The outputs that the last rule names, in its order; these are what a cycle sets.
    std::vector<std::uint32_t> LastRuleOutputs;
    /// Whether a rule before the last says something of an output that rule 0 does not name: no
    /// cycle can succeed. What the last rule names shows when the outputs are set.
    bool AddsToUnknownOutput = false;

    RuleSelector Selector;
    ModelBinding Binding;
    /// Whether the sums are those of the current degrees.
    bool AreSumsCurrent = false;

    std::size_t RuleCount() const { return Rules.size() - 1; }

    std::span<const std::uint32_t> AntecedentsOf(std::size_t rule) const {
        return {Antecedents.data() + Rules[rule].FirstAntecedent,
                Antecedents.data() + Rules[rule + 1].FirstAntecedent};
    }
    std::span<const Consequent> ConsequentsOf(std::size_t rule) const {
        return {Consequents.data() + Rules[rule].FirstConsequent,
                Consequents.data() + Rules[rule + 1].FirstConsequent};
    }

    std::span<const double> DegreesOf(const UsedInput& input) const {
        return {Degrees.data() + input.FirstDegree, input.Terms.size()};
    }
};

} // namespace Quorvane::RunTime
