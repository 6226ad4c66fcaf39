// SPDX-License-Identifier: MIT
// The outputs that a cycle of the engine has.
#pragma once

#include "system/FuzzySystem.h"

namespace Quorvane::System {

/// An output of the engine. In most systems there is one for each output variable, under its name,
/// with its default, and set by every cycle; then all that follows is just that.
struct CycleOutput {
    /// The index of the output variable.
    std::uint32_t Variable = 0;
    /// The name as the first rule writes it.
    Text Name;
    /// The value where no rule fires: the variable's default, but none at all (Empty) where the
    /// name is of other case than the variable's.
    std::optional<double> Default;
    /// Whether the last rule names the output. One that it leaves out keeps its default, whatever
    /// fires.
    bool IsSet = false;

    bool operator==(const CycleOutput&) const = default;
};

/// A clause that no cycle survives.
struct FailingClause {
    std::size_t Rule = 0;
    /// Its place among the consequents.
    std::size_t Consequent = 0;

    bool operator==(const FailingClause&) const = default;
};

/// The engine's outputs, in the order of the first rule, which makes them: an output that it does
/// not name is none. Without rules there are none.
std::vector<CycleOutput> CycleOutputs(const FuzzySystem& system);

/// The place of a consequent's output among them; none where the first rule does not name it. Names
/// compare exactly.
std::optional<std::size_t> PlaceOf(const FuzzySystem& system, const Clause& consequent,
                                   const std::vector<CycleOutput>& outputs);

/// The first consequent that makes every cycle fail: it chooses a term for an output that the first
/// rule does not name, or stands in the last rule and names such an output.
std::optional<FailingClause> FirstFailingClause(const FuzzySystem& system);

} // namespace Quorvane::System
