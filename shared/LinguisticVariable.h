// SPDX-License-Identifier: MIT
// The records of a fuzzy system: variables with a bounded universe, and their terms.
#pragma once

#include <array>

#include "shared/ChangeStamp.h"
#include "shared/StringKeyedDictionary.h"

namespace Quorvane {

/// The points of a trapezoid in ascending order: left foot, left shoulder, right shoulder, right
/// foot. A triangle has equal shoulders, a singleton four equal points.
using TrapezoidPoints = std::array<StampedNumber, 4>;

/// A term of a variable. Every output term is a singleton.
struct LinguisticTerm {
    Text Name;
    TrapezoidPoints Points;
};

/// An input or output variable.
struct LinguisticVariable {
    Text Name;
    /// The upper and the lower bound of the universe.
    double UBound;
    double LBound;
    /// The largest and the smallest point of any term. Without terms that reach beyond, they stay
    /// at the opposite bounds: Max at LBound and Min at UBound.
    double Max;
    double Min;
    /// The terms by name, in text order, names compared without regard to case.
    StringKeyedDictionary<LinguisticTerm> MF{KeyComparison::IgnoreCase};
};

/// Widens the variable's Max and Min so that they take in a term.
inline void IncludeTerm(LinguisticVariable& variable, const LinguisticTerm& term) {
    if (variable.Min > term.Points.front()) {
        variable.Min = term.Points.front();
    }
    if (variable.Max < term.Points.back()) {
        variable.Max = term.Points.back();
    }
}

} // namespace Quorvane
