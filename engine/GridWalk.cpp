// SPDX-License-Identifier: MIT
// The walk over a regular grid of input values.
#include "engine/GridWalk.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "shared/FisError.h"
#include "shared/NumberText.h"

namespace Quorvane::RunTime {
namespace {

/// The most coordinates of all axes together whose texts are kept: the same come up again and
/// again, but memory grows neither with the number of points nor with that of the axes.
constexpr std::size_t MostKeptTexts = 16384;

/// The most characters of a coordinate and the "," after it.
constexpr std::size_t MostCharacters = 24;

/// Where the walk stands on one axis.
struct AxisPosition {
    GridAxis Axis;
    std::int32_t Divisions;
    double Step;
    std::int32_t Index = 0;
    /// The length of the point's text up to and without this axis' value.
    std::size_t PrefixSize = 0;
    /// The texts of the first points, as many as there is room for.
    std::vector<NumberCharacters> Texts{};

    double Coordinate() const {
        return Index == Divisions ? Axis.Upper : Axis.Lower + Index * Step;
    }

    void AppendText(std::string& point) {
        const auto index = static_cast<std::size_t>(Index);
        if (index < Texts.size()) {
            point += Texts[index].View();
            return;
        }
        const NumberCharacters text(Coordinate());
        point += text.View();
        // Points come in order, so the first time this is the next one.
        if (Texts.size() < Texts.capacity()) {
            Texts.push_back(text);
        }
    }
};

std::vector<AxisPosition> StartPositions(const std::vector<GridAxis>& axes,
                                         std::int32_t divisions) {
    const std::size_t keptTexts =
        std::min(MostKeptTexts / axes.size(), static_cast<std::size_t>(divisions) + 1);
    std::vector<AxisPosition> positions;
    positions.reserve(axes.size());
    for (const GridAxis& axis : axes) {
        const double step = (axis.Upper - axis.Lower) / divisions;
        if (!std::isfinite(step)) {
            throw FisError(RuntimeError::Overflow);
        }
        positions.push_back({axis, divisions, step});
        positions.back().Texts.reserve(keptTexts);
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
    point.reserve(positions.size() * MostCharacters);
    std::size_t level = 0;
    for (;;) {
        AxisPosition& position = positions[level];
        visitor.SetInput(level, position.Coordinate());
        point.resize(position.PrefixSize);
        position.AppendText(point);
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
