// SPDX-License-Identifier: MIT
// What the engine makes of a rule base: flat tables in which names have become indices.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <vector>

#include "engine/Membership.h"
#include "shared/LinguisticVariable.h"
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
    /// is room for an even number, from an even one on, as two are computed at a time.
    std::uint32_t FirstTerm = 0;
    std::uint32_t TermCount = 0;
    /// Whether they are computed in pairs: the model has all of them, and each can be paired.
    bool CanBePaired = false;

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

/// What the rules say. It lies in tables of its own, each as small as can be: a cycle reads a few
/// places of each, and the nearest cache is soon full.
struct RuleList {
    /// The weights of all rules, in order.
    std::vector<double> Weights;
    /// Where the antecedents of each rule begin, and of one more that marks the end.
    std::vector<std::uint32_t> FirstAntecedents{0};
    /// Indices into the degrees, each rule's in the order of its text. Rules of fewer antecedents
    /// than others may end in the degree that is always 1: with as many for each the processor can
    /// predict how many there are.
    std::vector<std::uint32_t> Antecedents;
    /// How many antecedents each rule has, 0 where that differs.
    std::size_t AntecedentCount = 0;
    /// Where the consequents of each rule begin, and of one more that marks the end.
    std::vector<std::uint32_t> FirstConsequents{0};
    /// What each consequent says: the position of a singleton, of an output.
    std::vector<double> Points;
    std::vector<std::uint32_t> Outputs;

    std::size_t RuleCount() const { return Weights.size(); }

    std::span<const std::uint32_t> AntecedentsOf(std::size_t rule) const {
        return {Antecedents.data() + FirstAntecedents[rule],
                Antecedents.data() + FirstAntecedents[rule + 1]};
    }

    std::size_t ConsequentCountOf(std::size_t rule) const {
        return FirstConsequents[rule + 1] - FirstConsequents[rule];
    }

    /// Makes the antecedents and consequents added since the last rule a rule.
    void EndRule(double weight) {
        Weights.push_back(weight);
        FirstAntecedents.push_back(static_cast<std::uint32_t>(Antecedents.size()));
        FirstConsequents.push_back(static_cast<std::uint32_t>(Points.size()));
    }
};

/// The prepared rule base. Names compare by exact case. Antecedents and consequents of "[NONE]" are
/// left out of the rules: multiplying by their degree 1 and adding nothing change no bit.
struct RuleTables : RuleList {
    /// Stands for an output that rule 0 does not name.
    static constexpr auto UnknownOutput = std::numeric_limits<std::uint32_t>::max();

    std::vector<UsedInput> UsedInputs;
    /// The degrees of membership of all used terms; 1 until their input is fuzzified. The last is
    /// of no term and always 1.
    std::vector<double> Degrees;
    /// The same terms in the model; null where the model has no such term.
    std::vector<const LinguisticTerm*> BoundTerms;
    /// Two terms each, of the inputs whose terms can be paired.
    std::vector<TrapezoidPair> Trapezoids;
    std::vector<UsedOutput> UsedOutputs;
    /// The numerators and denominators of the used outputs.
    std::vector<DoublePair> Sums;

    /// The outputs that the last rule names, in its order; these are what a cycle sets.
    std::vector<std::uint32_t> LastRuleOutputs;
    /// Whether a rule before the last says something of an output that rule 0 does not name: no
    /// cycle can succeed. What the last rule names shows when the outputs are set.
    bool AddsToUnknownOutput = false;

    /// Whether every rule says something of every output, in the order of the outputs: consequent
    /// rule x outputs + output is then what it says.
    bool NamesEveryOutput = false;
    /// Whether every rule says something of one output, those that say it of the same one lie side
    /// by side, and consequent number rule is what it says.
    bool IsGroupedByOutput = false;

    std::span<const double> DegreesOf(std::size_t input) const {
        return {Degrees.data() + UsedInputs[input].FirstTerm, UsedInputs[input].TermCount};
    }

    /// A rule's weight times the degrees of its terms, multiplied in the order of its text.
    double StrengthOf(std::size_t rule) const {
        double strength = Weights[rule];
        for (const std::uint32_t degree : AntecedentsOf(rule)) {
            strength *= Degrees[degree];
        }
        return strength;
    }
};

} // namespace Quorvane::RunTime
