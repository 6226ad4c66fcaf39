// SPDX-License-Identifier: MIT
// What the engine makes of a rule base: flat tables in which names have become indices.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <vector>

#include "engine/DoublePair.h"
#include "model/LinguisticVariable.h"
#include "shared/Text.h"
#include "shared/Value.h"

namespace Quorvane::RunTime {

/// An input that some rule names.
struct UsedInput {
    /// Where its value is; null where it has to be asked for by name, because it is missing or in a
    /// host's dictionary.
    const Value* Current = nullptr;
    /// Null where the model has no such variable.
    const LinguisticVariable* Variable = nullptr;
    /// The value last fuzzified; absent ("[EMPTY]") until one has been.
    std::optional<double> LastInput{};
    /// Where its terms stand in RuleTables::Degrees and BoundTerms, and how many there are. There
    /// is room for an even number, as two are computed at a time.
    std::uint32_t FirstTerm = 0;
    std::uint32_t TermCount = 0;
    /// Whether the model has all of them.
    bool HasAllTerms = false;

    Text Name{};
    /// The terms that rules use of it, in the order of their first use. Without "[NONE]", whose
    /// degree is 1 whatever the value.
    std::vector<Text> Terms{};
};

/// An output that rule 0 names.
struct UsedOutput {
    /// Where its value is; null where OutputValues has no such item.
    Value* Current = nullptr;
    /// Where its default is; null where it has to be asked for by name.
    const Value* Default = nullptr;
    Text Name{};
};

/// A rule, and where its part of the antecedents and consequents begins; it ends where that of the
/// next rule begins.
struct Rule {
    double Weight;
    std::uint32_t FirstAntecedent;
    std::uint32_t FirstConsequent;
};

/// What a rule says of one output.
struct Consequent {
    /// What a strength of 1 adds to the numerator and the denominator: the position of the
    /// singleton, and 1.
    DoublePair Share;
    std::uint32_t Output;
};

/// The prepared rule base. Names compare by exact case. Antecedents and consequents of "[NONE]" are
/// left out of the rules: multiplying by their degree 1 and adding nothing change no bit.
struct RuleTables {
    /// Stands for an output that rule 0 does not name.
    static constexpr auto UnknownOutput = std::numeric_limits<std::uint32_t>::max();

    std::vector<UsedInput> UsedInputs;
    /// The degrees of membership of all used terms; 1 until their input is fuzzified. The last is
    /// of no term and always 1.
    std::vector<double> Degrees;
    /// The same terms in the model; null where the model has no such term.
    std::vector<const LinguisticTerm*> BoundTerms;
    std::vector<UsedOutput> UsedOutputs;
    /// The numerators and denominators of the used outputs.
    std::vector<DoublePair> Sums;

    /// All rules in order, and one more that marks the end.
    std::vector<Rule> Rules;
    /// Indices into Degrees, each rule's in the order of its text. Rules of fewer antecedents than
    /// others may end in the degree that is always 1: with as many for each the processor can
    /// predict how many there are.
    std::vector<std::uint32_t> Antecedents;
    std::vector<Consequent> Consequents;

    /// The outputs that the last rule names, in its order; these are what a cycle sets.
    std::vector<std::uint32_t> LastRuleOutputs;
    /// Whether a rule before the last says something of an output that rule 0 does not name: no
    /// cycle can succeed. What the last rule names shows when the outputs are set.
    bool AddsToUnknownOutput = false;

    /// Whether every rule says something of every output, in the order of the outputs: consequent
    /// rule * outputs + output is then what it says.
    bool NamesEveryOutput = false;

    std::size_t RuleCount() const { return Rules.size() - 1; }

    std::span<const std::uint32_t> AntecedentsOf(std::size_t rule) const {
        return {Antecedents.data() + Rules[rule].FirstAntecedent,
                Antecedents.data() + Rules[rule + 1].FirstAntecedent};
    }
    std::span<const Consequent> ConsequentsOf(std::size_t rule) const {
        return {Consequents.data() + Rules[rule].FirstConsequent,
                Consequents.data() + Rules[rule + 1].FirstConsequent};
    }

    std::span<const double> DegreesOf(std::size_t input) const {
        return {Degrees.data() + UsedInputs[input].FirstTerm, UsedInputs[input].TermCount};
    }

    /// A rule's weight times the degrees of its terms, multiplied in the order of its text.
    double StrengthOf(std::size_t rule) const {
        double strength = Rules[rule].Weight;
        for (const std::uint32_t degree : AntecedentsOf(rule)) {
            strength *= Degrees[degree];
        }
        return strength;
    }
};

} // namespace Quorvane::RunTime
