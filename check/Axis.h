// SPDX-License-Identifier: MIT
// The universe of an input, cut into pieces on which nothing changes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "check/Finding.h"
#include "system/FuzzySystem.h"

namespace Quorvane::Check {

/// What a rule asks of one input: that its value belongs to a term. A rule that writes one input in
/// two ways asks for two terms.
struct Condition {
    std::vector<std::uint32_t> Terms;

    bool operator==(const Condition&) const = default;
};

/// Numbers on which the degree of every term is one straight line.
struct Piece {
    Range Values;
    /// The conditions that hold there to some degree, and those that hold fully; ascending.
    std::vector<std::uint32_t> Active;
    std::vector<std::uint32_t> Full;
};

/// An input with the conditions that rules put on it. The pieces are ranges of Doubles, each
/// beginning with the Double after the last of the one before: they leave nothing out, whichever
/// ends belong to a term.
struct Axis {
    double Lower = 0;
    double Upper = 0;
    std::vector<Condition> Conditions;
    std::vector<Piece> Pieces;
};

/// The axis of an input; without pieces where its bounds are not in order.
Axis MakeAxis(const System::InputVariable& input, std::vector<Condition> conditions);

/// A condition for each term, in their order.
std::vector<Condition> OneForEachTerm(const System::InputVariable& input);

/// The length of a range in shares of the axis, 0..1.
double ShareOf(const Axis& axis, const Range& range);

/// A number within a range at or near its middle, of few digits if there is one; the first end
/// where the ends are not in order.
double MiddleOf(const Range& range);

/// Ranges on which the same of some conditions hold.
struct ActiveClass {
    /// Those conditions, ascending.
    std::vector<std::uint32_t> Active;
    /// The widest range, how many there are, and the sum of their shares of the axis.
    Range Widest;
    std::size_t Ranges = 0;
    double Share = 0;
};

/// The classes of an axis by those conditions that are marked. A class comes before all classes
/// in which more holds. No two classes hold the same.
std::vector<ActiveClass> ClassesOf(const Axis& axis, const std::vector<bool>& marked);

/// Whether all of the first, ascending, are in the second.
bool IsSubset(std::span<const std::uint32_t> first, std::span<const std::uint32_t> second);

} // namespace Quorvane::Check
