// SPDX-License-Identifier: MIT
// The trapezoid.
#pragma once

#include <cmath>
#include <cstddef>
#include <limits>

#include "engine/DoublePair.h"
#include "model/LinguisticVariable.h"

namespace Quorvane::RunTime {

/// The degree of membership, in 0..1, of x in a term of an input variable whose universe it is in.
/// With the points P1 <= P2 <= P3 <= P4 of the term:
///
///     1                        P2 <= x <= P3
///     (x - P1) / (P2 - P1)     P1 < x < P2
///     (P4 - x) / (P4 - P3)     P3 < x < P4
///     0                        otherwise, not-a-number included
///
/// A flank of no width is never evaluated, so nothing is divided by zero. Not a number on a flank
/// wider than the largest Double.
inline double Membership(const LinguisticTerm& term, double x) {
    const auto [p1, p2, p3, p4] = term.Points;
    const auto onFlank = [](double height, double width) {
        return std::isfinite(width) ? height / width : std::nan("");
    };
    if (p2 <= x && x <= p3) {
        return 1;
    }
    if (p1 < x && x < p4) {
        return x < p2 ? onFlank(x - p1, p2 - p1) : onFlank(p4 - x, p4 - p3);
    }
    return 0;
}

/// Sets the degrees of membership of a value in terms of an input variable whose universe is from
/// lower to upper; outside, they are 0. Terms and degrees have room for an even number, the last
/// term being there twice if count is odd. Returns false, the degrees then being of no use, where
/// points may be out of order or a flank may be wider than the largest Double.
///
/// Two at a time and without branches: into which part of a trapezoid a value falls cannot be
/// predicted, and a wrong guess costs more than both degrees together. So a flank is evaluated
/// wherever the value lies, and what leaves 0..1 is cut off. That changes no degree, as rounding
/// keeps the order of differences and quotients. Where 0 is divided by 0 the value is at a corner
/// of the top, and what is no number is cut off to 1.
[[gnu::always_inline]] inline bool SetMemberships(const LinguisticTerm* const* terms,
                                                  std::size_t count, double value, double upper,
                                                  double lower, double* degrees) {
    constexpr DoublePair Zero = {0, 0};
    constexpr DoublePair One = {1, 1};
    // What is outside is taken as beyond all points.
    const double inside =
        value >= lower && value <= upper ? value : std::numeric_limits<double>::infinity();
    const DoublePair x = {inside, inside};
    // Negative as soon as two points are out of order, or 0 and -0: by -0 nothing is divided.
    BitPair signs{};
    // Infinite, or not a number, as soon as one of the widths is.
    DoublePair widths{};
    for (std::size_t i = 0; i < count; i += 2) {
        const auto points = [&](std::size_t point) {
            return DoublePair{terms[i]->Points[point], terms[i + 1]->Points[point]};
        };
        const DoublePair p1 = points(0);
        const DoublePair p2 = points(1);
        const DoublePair p3 = points(2);
        const DoublePair p4 = points(3);
        const DoublePair left = p2 - p1;
        const DoublePair right = p4 - p3;
        const auto isOnLeft = x < p2;
        const DoublePair height = isOnLeft ? x - p1 : p4 - x;
        const DoublePair width = isOnLeft ? left : right;
        const DoublePair degree = Greater(Lesser(height / width, One), Zero);
        degrees[i] = degree[0];
        degrees[i + 1] = degree[1];
        widths += width;
        signs |= BitPair(left) | BitPair(p3 - p2) | BitPair(right);
    }
    return std::isfinite(widths[0] + widths[1]) && (signs[0] | signs[1]) >= 0;
}

} // namespace Quorvane::RunTime
