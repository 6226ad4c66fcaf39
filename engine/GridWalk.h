// SPDX-License-Identifier: MIT
// The walk over a regular grid of input values.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace Quorvane::RunTime {

/// One input's universe, with both bounds in the grid.
struct GridAxis {
    double Lower;
    double Upper;
};

/// What is done on the way.
class GridVisitor {
  public:
    virtual ~GridVisitor() = default;

    /// An input, by the index of its axis, takes a new value; the inputs after it will follow.
    virtual void SetInput(std::size_t axis, double value) = 0;

    /// All inputs are set. The point is their values in fixed number form, joined by ",".
    virtual void VisitPoint(std::string_view point) = 0;
};

/// Visits the (divisions + 1) ^ axes points of the grid, the last axis fastest. Point j of an axis
/// is Lower + j * step with step = (Upper - Lower) / divisions, but the last is Upper itself, which
/// the rounded product can miss. Raises Overflow where a step is beyond the range of a Double and
/// SubscriptOutOfRange where there is no axis. Whatever the visitor raises ends the walk.
void WalkGrid(const std::vector<GridAxis>& axes, std::int32_t divisions, GridVisitor& visitor);

} // namespace Quorvane::RunTime
