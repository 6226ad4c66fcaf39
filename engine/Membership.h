// SPDX-License-Identifier: MIT
// The trapezoid.
#pragma once

#include <cmath>
#include <cstddef>

#include "engine/DoublePair.h"
#include "model/LinguisticVariable.h"

namespace Quorvane::RunTime {

struct MembershipPair {
    DoublePair Degrees;
    /// The widths of the flanks that were divided by, 1 where none was.
    DoublePair Widths;
};

/// The degrees of membership, in 0..1, of x in two terms of an input variable whose universe it is
/// in. With the points P1 <= P2 <= P3 <= P4 of a term:
///
///     1                        P2 <= x <= P3
///     (x - P1) / (P2 - P1)     P1 < x < P2
///     (P4 - x) / (P4 - P3)     P3 < x < P4
///     0                        otherwise, not-a-number included
///
/// A flank of no width is never evaluated, so nothing is divided by zero.
///
/// The cases are masks rather than branches: into which one a value falls cannot be predicted, and
/// a wrong guess costs more than both degrees together.
inline MembershipPair Membership(const LinguisticTerm& first, const LinguisticTerm& second,
                                 double value) {
    constexpr DoublePair Zero = {0, 0};
    constexpr DoublePair One = {1, 1};
    const auto points = [&](std::size_t i) {
        return DoublePair{first.Points[i], second.Points[i]};
    };
    const DoublePair p1 = points(0);
    const DoublePair p2 = points(1);
    const DoublePair p3 = points(2);
    const DoublePair p4 = points(3);
    const DoublePair x = {value, value};
    const auto isOnTop = (p2 <= x) & (x <= p3);
    const auto isOnFlank = (p1 < x) & (x < p4) & ~isOnTop;
    const auto isOnLeft = x < p2;
    const DoublePair foot = isOnLeft ? p1 : p4;
    const DoublePair shoulder = isOnLeft ? p2 : p3;
    // Off the flanks, where the width can be zero, something is divided by 1 and left out.
    const DoublePair width = isOnFlank ? shoulder - foot : One;
    const DoublePair quotient = (x - foot) / width;
    return {isOnTop ? One : (isOnFlank ? quotient : Zero), width};
}

/// Sets the degrees of membership of x in terms of an input variable whose universe is from lower
/// to upper; outside, they are 0. Terms and degrees have room for an even number, the last term
/// being there twice if count is odd. Returns false when a flank may be wider than the largest
/// Double.
inline bool SetMemberships(const LinguisticTerm* const* terms, std::size_t count, double x,
                           double upper, double lower, double* degrees) {
    const bool isOutside = x < lower || x > upper;
    // Infinite, or not a number, as soon as one of the widths is.
    DoublePair widths{};
    for (std::size_t i = 0; i < count; i += 2) {
        const MembershipPair pair =
            isOutside ? MembershipPair{} : Membership(*terms[i], *terms[i + 1], x);
        widths += pair.Widths;
        degrees[i] = pair.Degrees[0];
        degrees[i + 1] = pair.Degrees[1];
    }
    return std::isfinite(widths[0] + widths[1]);
}

} // namespace Quorvane::RunTime
