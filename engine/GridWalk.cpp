// SPDX-License-Identifier: MIT
// The walk over a regular grid of input values.
#include "engine/GridWalk.h"

#include <cmath>
#include <string>

#include "shared/FisError.h"
#include "shared/NumberText.h"

namespace Quorvane::RunTime {
namespace {

/// Where the walk stands on one axis.
struct AxisPosition {
    GridAxis Axis;
    double Step;
    std::int32_t Index = 0;
    /// The length of the point's text up to and without this axis' value.
    std::size_t PrefixSize = 0;

    double Coordinate(std::int32_t divisions) const {
        return Index == divisions ? Axis.Upper : Axis.Lower + Index * Step;
    }
};

std::vector<AxisPosition> StartPositions(const std::vector<GridAxis>& axes,
                                         std::int32_t divisions) {
    std::vector<AxisPosition> positions;
    positions.reserve(axes.size());
    for (const GridAxis& axis : axes) {
        const double step = (axis.Upper - axis.Lower) / divisions;
        if (!std::isfinite(step)) {
            throw FisError(RuntimeError::Overflow);
        }
        positions.push_back({axis, step});
    }
    return positions;
}

} // namespace

// A loop rather than a recursion: the number of axes comes from a text of the host.
void WalkGrid(const std::vector<GridAxis>& axes, std::int32_t divisions, GridVisitor& visitor) {
    if (axes.empty()) {
        throw FisError(RuntimeError::SubscriptOutOfRange);
    }
    std::vector<AxisPosition> positions = StartPositions(axes, divisions);
    std::string point;
    std::size_t level = 0;
    for (;;) {
        AxisPosition& position = positions[level];
        const double value = position.Coordinate(divisions);
        visitor.SetInput(level, value);
        point.resize(position.PrefixSize);
        point += NumberCharacters(value).View();
        if (level + 1 < positions.size()) {
            point += ',';
            ++level;
            positions[level].Index = 0;
            positions[level].PrefixSize = point.size();
            continue;
        }
        visitor.VisitPoint(point);
        while (positions[level].Index == divisions) {
            if (level == 0) {
                return;
            }
            --level;
        }
        ++positions[level].Index;
    }
}

} // namespace Quorvane::RunTime
