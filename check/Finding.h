// SPDX-License-Identifier: MIT
// What a check of a fuzzy system can find.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace Quorvane::Check {

/// A note is worth knowing but no fault; with an error the system cannot work as it is written.
enum class Severity { Note, Warning, Error };

/// What was found. Behind each, the members of Finding that tell more.
enum class FindingKind {
    // Errors.

    /// There is no rule, and so no output.
    NoRules,
    /// A rule concludes something about an output that the first rule does not name, so that every
    /// cycle fails. Rules, Output.
    FailingRule,
    /// The last rule does not name an output: it keeps its default whatever fires. Output.
    OutputNotSet,
    /// The lower bound is not below the upper one. Input or Output.
    BoundsNotAscending,
    /// The points of a term are not in order. Input, Term.
    PointsNotAscending,
    /// A flank is wider than the largest Double, so that cycles fail on it. Input, Term.
    FlankTooWide,

    // Warnings.

    /// There are values of the inputs for which no rule fires that concludes something about the
    /// outputs. Outputs, Region (the largest of Count), Example, Share.
    Gap,
    /// Rules with the same conditions conclude differently. Rules (two), Output, Example.
    Conflict,
    /// Rules with other conditions fire fully at the same place and conclude differently. Rules
    /// (two), Output, Example.
    Overlap,
    /// The weight is 0. Rules.
    WeightZero,
    /// The weight is negative or above 1. Rules, Figure (the weight).
    WeightOutOfRange,
    /// A condition holds nowhere in its input's universe. Rules, Input, Term.
    ConditionNeverHolds,
    /// A rule concludes nothing about any output. Rules.
    NoConclusion,
    /// Wherever a rule fires, another one that concludes the same fires at least as much. Rules
    /// (the one that is covered, the one that covers it).
    RuleCovered,
    /// No rule has a condition on an input, or a conclusion about an output. Input or Output.
    UnusedVariable,
    /// No rule uses a term of a variable that is used. Input or Output, Term.
    UnusedTerm,
    /// A term has no value of its input's universe. Input, Term.
    TermOutsideUniverse,
    /// There are values of an input that belong to none of its terms. Input, Region (of one
    /// variable, the largest of Count), Example (of one variable), Share.
    UncoveredUniverse,
    /// A position is beyond the bounds of its output. Output, Term, Figure (the position).
    PositionOutsideUniverse,
    /// An output never comes near one of its bounds. Output, Region (of one variable: what it does
    /// reach of its universe), Example (where it is nearest to the bound), Figure (the bound).
    RangeNotReached,

    // Notes.

    /// A more general rule of less weight fires together with another one and concludes
    /// differently: it works where no other rule does. Rules (the general one, the other), Output.
    Fallback,
    /// An output jumps between neighbouring values of an input; the largest jump. Input, Output,
    /// Example (before the jump), Figure (by how much).
    Jump,
    /// Where an output changes most over a hundredth of an input's universe. Input, Output, Example
    /// (the begin), Figure (by how much), Share (of the output's universe).
    Steepest,
};

/// All numbers from First to Last, both included.
struct Range {
    double First = 0;
    double Last = 0;

    bool operator==(const Range&) const = default;
};

/// One finding. Variables, terms and rules are indices into the system that was checked.
struct Finding {
    FindingKind Kind{};
    Severity Level{};
    std::optional<std::uint32_t> Input;
    std::optional<std::uint32_t> Output;
    std::optional<std::uint32_t> Term;
    std::vector<std::uint32_t> Rules;
    std::vector<std::uint32_t> Outputs;
    /// A range for each input.
    std::vector<Range> Region;
    /// A value for each input, at which the finding can be seen.
    std::vector<double> Example;
    /// How many regions there are.
    std::size_t Count = 0;
    /// The share of the universe, 0..1; 0 for single values.
    double Share = 0;
    double Figure = 0;
    /// Whether all numbers were looked at. Else there is at least what is reported.
    bool IsExact = true;
};

} // namespace Quorvane::Check
