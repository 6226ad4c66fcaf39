// SPDX-License-Identifier: MIT
// One inference cycle over a system as a value, with everything that happens in it.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "explain/Arithmetic.h"
#include "system/CycleOutputs.h"
#include "system/FuzzySystem.h"

namespace Quorvane::Explain {

/// A number for each input of the system, in its order; none for one that has no value. It may be
/// not-a-number or infinite.
using Reading = std::vector<std::optional<double>>;

/// An input in the cycle.
struct InputState {
    std::optional<double> Value;
    /// Whether a rule names it. Others play no part, whatever their value.
    bool IsUsed = false;
    /// For each term, the degree to which the value belongs to it: none without a value, and where
    /// it lies on a flank that is wider than the largest Double.
    std::vector<std::optional<double>> Degrees;
};

/// What a rule adds to an output.
struct Contribution {
    /// The index of the rule.
    std::size_t Rule = 0;
    /// The index of the term that it chooses, and its position.
    std::uint32_t Term = 0;
    double Position = 0;
    /// Not 0.
    double Strength = 0;
};

/// Why an output has its value.
enum class Cause {
    /// Rules fire: it is their weighted average.
    RulesFire,
    /// The rest have the default. The cycle failed:
    CycleFailed,
    /// the last rule does not name the output, so that no cycle sets it,
    NotInLastRule,
    /// no rule chooses a term of it,
    NoRuleChoosesTerm,
    /// the rules that do have strength 0,
    NoRuleFires,
    /// rules fire, but with strengths that sum to 0.
    StrengthsCancel,
};

/// An output after the cycle.
struct OutputState {
    System::CycleOutput Output;
    /// The rules with a strength other than 0 that choose one of its terms, in order.
    std::vector<Contribution> Contributions;
    WeightedSum Sum;
    /// None where it is the default and there is none.
    std::optional<double> Value;
    Explain::Cause Cause = Cause::NoRuleFires;
};

/// What made the cycle fail.
enum class FailureKind {
    /// An input that a rule names has no value.
    NoValue,
    /// A value lies on a flank that is wider than the largest Double.
    FlankTooWide,
    /// A strength, sum or average is beyond the range of a Double.
    Overflow,
    /// A rule names an output that the first rule does not name (FirstFailingClause).
    OutputNotInFirstRule,
};

struct Failure {
    FailureKind Kind;
    /// The id of the message that the control shows, which is that of the step it had come to.
    std::int32_t MessageId = 0;
    /// The input and the rule where it is of one, and the term of the input.
    std::optional<std::uint32_t> Input;
    std::optional<std::uint32_t> Term;
    std::optional<std::size_t> Rule;
};

struct Evaluation {
    std::vector<InputState> Inputs;
    /// For each rule, its weight times the degrees of its terms. As far as they were computed,
    /// where the cycle failed.
    std::vector<double> Strengths;
    std::vector<OutputState> Outputs;
    std::optional<Failure> Fault;
};

/// Runs one cycle as the control does for a newly loaded system: the values of its outputs are the
/// same to the bit. The reading has a place for every input. Slow on purpose: every term and every
/// rule is evaluated, one after the other.
Evaluation Evaluate(const System::FuzzySystem& system, const Reading& reading);

} // namespace Quorvane::Explain
