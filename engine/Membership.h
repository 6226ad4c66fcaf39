// SPDX-License-Identifier: MIT
// The trapezoid.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

#include "engine/DoublePair.h"
#include "shared/LinguisticVariable.h"

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
inline double Membership(const TrapezoidPoints& points, double x) {
    const double p1 = points[0];
    const double p2 = points[1];
    const double p3 = points[2];
    const double p4 = points[3];
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

/// Whether degrees in a term can be computed in pairs: the points are in order and no flank is
/// wider than the largest Double.
inline bool CanBePaired(const TrapezoidPoints& points) {
    return std::ranges::is_sorted(points) && std::isfinite(points[1] - points[0]) &&
           std::isfinite(points[3] - points[2]);
}

/// The value itself in the universe, and infinity, which is beyond all points, outside: below the
/// lower bound or above the upper one, or where it is not a number. A bound that is not a number,
/// as only code can set one, bounds nothing: no value is below or above it.
inline double InUniverse(double x, double upper, double lower) {
    const bool isOutside = x < lower || x > upper || std::isnan(x);
    return isOutside ? std::numeric_limits<double>::infinity() : x;
}

/// Two trapezoids that can be paired, as their flanks.
struct TrapezoidPair {
    DoublePair LeftFoot;
    DoublePair LeftWidth;
    DoublePair RightFoot;
    DoublePair RightWidth;

    TrapezoidPair() = default;
    TrapezoidPair(const TrapezoidPoints& first, const TrapezoidPoints& second)
        : LeftFoot{first[0], second[0]}, LeftWidth{Width(first, 1), Width(second, 1)},
          RightFoot{first[3], second[3]}, RightWidth{Width(first, 3), Width(second, 3)} {}

    /// Both degrees of membership of x, a number that may be infinite.
    ///
    /// Without branches: into which part of a trapezoid a value falls cannot be predicted, and a
    /// wrong guess costs more than both degrees together. So both flanks are evaluated wherever the
    /// value lies, the lesser counts, and what leaves 0..1 is cut off. That changes no degree, as
    /// rounding keeps the order of differences and quotients. Where 0 is divided by 0 the value is
    /// at a corner of the top, and the quotient, which is no number, is passed over.
    DoublePair MembershipsOf(DoublePair x) const {
        const DoublePair rising = (x - LeftFoot) / LeftWidth;
        const DoublePair falling = (RightFoot - x) / RightWidth;
        return Greater(Lesser(falling, Lesser(rising, One)), Zero);
    }

  private:
    static constexpr DoublePair Zero = {0, 0};
    static constexpr DoublePair One = {1, 1};

    /// The width of the flank that ends at a point; never -0, which would turn the signs of what is
    /// divided by it.
    static double Width(const TrapezoidPoints& points, std::size_t end) {
        return points[end] - points[end - 1] + 0.0;
    }
};

} // namespace Quorvane::RunTime
