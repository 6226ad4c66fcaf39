// SPDX-License-Identifier: MIT
// The trapezoid.
#include "engine/Membership.h"

#include <cmath>

#include "engine/EngineRoutine.h"

namespace Quorvane::RunTime {
namespace {

/// The degree on a flank of a width, at a distance from its foot.
double FlankDegree(double distance, double width) {
    if (!std::isfinite(width)) {
        throw FisError(RuntimeError::Overflow);
    }
    return distance / width;
}

double TrapezoidDegree(const LinguisticTerm& term, double x) {
    const auto [p1, p2, p3, p4] = term.Points;
    if (p2 <= x && x <= p3) {
        return 1;
    }
    if (p1 < x && x < p4) {
        return x < p2 ? FlankDegree(x - p1, p2 - p1) : FlankDegree(p4 - x, p4 - p3);
    }
    return 0;
}

} // namespace

double Membership(const BoundTerm& term, double x, double upper, double lower) {
    return RunRoutine(Message::InvalidInputVariable, [&]() -> double {
        if (term.IsNone) {
            return 1;
        }
        if (!term.Shape) {
            throw FisError(RuntimeError::MissingKey);
        }
        return x < lower || x > upper ? 0 : TrapezoidDegree(*term.Shape, x);
    });
}

} // namespace Quorvane::RunTime
