// SPDX-License-Identifier: MIT
// Why rules do not fire.
#pragma once

#include "explain/Evaluation.h"

namespace Quorvane::Explain {

enum class BlockerKind {
    /// The rule's weight is 0.
    Weight,
    /// The value of an input is outside its universe, or not a number.
    OutsideUniverse,
    /// The value belongs to the term of an antecedent with degree 0.
    NotInTerm,
    /// All factors are other than 0, but their product is too small for a Double.
    Underflow,
};

/// What makes the strength of a rule 0.
struct Blocker {
    BlockerKind Kind{};
    std::size_t Rule = 0;
    /// The input and the term, where it is an antecedent.
    std::optional<std::uint32_t> Input;
    std::optional<std::uint32_t> Term;
};

/// Whether a value is a number within the universe of an input.
bool IsInside(const System::InputVariable& input, double value);

/// The first that blocks a rule of strength 0: its weight, an input outside, a degree. The cycle
/// must not have failed.
Blocker BlockerOf(const System::FuzzySystem& system, const Evaluation& evaluation,
                  std::size_t rule);

/// A blocker for each rule that chooses a term of an output of the cycle and has strength 0, in
/// order. The cycle must not have failed.
std::vector<Blocker> BlockersOf(const System::FuzzySystem& system, const Evaluation& evaluation,
                                const OutputState& output);

} // namespace Quorvane::Explain
