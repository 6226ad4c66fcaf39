// SPDX-License-Identifier: MIT
// The arithmetic of inference, written down plainly, step by step.
#pragma once

#include <array>
#include <cmath>
#include <optional>

#include "shared/FisError.h"

namespace Quorvane::Explain {

/// A result as it is. Raises Overflow for one beyond the range of a Double.
inline double Finite(double result) {
    if (!std::isfinite(result)) {
        throw FisError(RuntimeError::Overflow);
    }
    return result;
}

/// The degree of membership, in 0..1, of x in a trapezoid over a universe. Outside the universe it
/// is 0. Raises Overflow on a flank wider than the largest Double.
inline double Degree(const std::array<double, 4>& points, double lower, double upper, double x) {
    const auto [p1, p2, p3, p4] = points;
    if (x < lower || x > upper) {
        return 0;
    }
    if (p2 <= x && x <= p3) {
        return 1;
    }
    if (p1 < x && x < p4) {
        return x < p2 ? Finite(x - p1) / Finite(p2 - p1) : Finite(p4 - x) / Finite(p4 - p3);
    }
    return 0;
}

/// What the rules that fire say of an output.
struct WeightedSum {
    /// sum(strength x position)
    double Numerator = 0;
    /// sum(strength)
    double Denominator = 0;

    /// Adds what one rule says. Raises Overflow.
    void Add(double strength, double position) {
        Numerator = Finite(Numerator + Finite(strength * position));
        Denominator = Finite(Denominator + strength);
    }

    /// The average position; none where the strengths sum to 0. Raises Overflow.
    std::optional<double> Average() const {
        return Denominator == 0 ? std::nullopt : std::optional(Finite(Numerator / Denominator));
    }

    bool operator==(const WeightedSum&) const = default;
};

} // namespace Quorvane::Explain
