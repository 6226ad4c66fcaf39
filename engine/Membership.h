// SPDX-License-Identifier: MIT
// The trapezoid.
#pragma once

#include "engine/ModelBinding.h"

namespace Quorvane::RunTime {

/// The degree of membership, in 0..1, of x in a term of an input variable, over the universe from
/// lower to upper. With the term's points P1 <= P2 <= P3 <= P4:
///
///     1                        the term "[NONE]"
///     0                        x < lower or x > upper
///     1                        P2 <= x <= P3
///     (x - P1) / (P2 - P1)     P1 < x < P2
///     (P4 - x) / (P4 - P3)     P3 < x < P4
///     0                        otherwise, not-a-number included
///
/// A flank of no width is never evaluated, so nothing is divided by zero. Raises error 80,
/// "Invalid linguistic input variable.", for a term that the model lacks and for a flank wider than
/// the largest Double.
double Membership(const BoundTerm& term, double x, double upper, double lower);

} // namespace Quorvane::RunTime
