// SPDX-License-Identifier: MIT
// The degree to which a number belongs to a term.
#pragma once

#include <array>

#include "check/Axis.h"

namespace Quorvane::Check {

/// The degree of a number in the universe of the term's input.
inline double DegreeOf(const std::array<double, 4>& points, double x) {
    if (points[1] <= x && x <= points[2]) {
        return 1;
    }
    if (points[0] < x && x < points[3]) {
        return x < points[1] ? (x - points[0]) / (points[1] - points[0])
                             : (points[3] - x) / (points[3] - points[2]);
    }
    return 0;
}

/// The degree to which a condition holds.
inline double DegreeOf(const Condition& condition, const System::InputVariable& input, double x) {
    double degree = 1;
    for (const std::uint32_t term : condition.Terms) {
        degree *= DegreeOf(input.Terms[term].Points, x);
    }
    return degree;
}

} // namespace Quorvane::Check
