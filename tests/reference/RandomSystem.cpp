// SPDX-License-Identifier: MIT
// Fuzzy systems made up at random.
#include "tests/reference/RandomSystem.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "shared/Markers.h"
#include "shared/NumberText.h"
#include "tests/reference/RandomRules.h"

namespace Quorvane::Reference {
namespace {

Text Digits(std::int32_t number) {
    return Widen(std::to_string(number));
}

/// A number of so many units, a unit being a power of ten: -35 units of 10^-1 are "-35E-1".
Text Units(std::int32_t count, std::int32_t exponent) {
    return exponent == 0 ? Digits(count) : Digits(count) + u'E' + Digits(exponent);
}

/// The power of ten that a variable is measured in; now and then near the limits of a Double.
std::int32_t MakeExponent(Choices& choices) {
    switch (choices.Below(20)) {
    case 0:
        return 305;
    case 1:
        return -305;
    case 2:
        return choices.Between(-20, 20);
    default:
        return choices.Between(-2, 1);
    }
}

struct Universe {
    std::int32_t Lower;
    std::int32_t Upper;
    std::int32_t Exponent;
};

Universe MakeUniverse(Choices& choices) {
    const std::int32_t lower = choices.Percent(40) ? 0 : choices.Between(-100, 50);
    Universe universe{lower, lower + choices.Between(1, 150), MakeExponent(choices)};
    if (choices.Percent(3)) {
        std::swap(universe.Lower, universe.Upper);
    }
    return universe;
}

/// Four points in units: ascending, as a shape that the editors offer, or as they come.
std::array<std::int32_t, 4> MakePoints(Choices& choices, const Universe& universe) {
    const auto [lower, upper] = std::minmax(universe.Lower, universe.Upper);
    const std::int32_t reach = choices.Percent(15) ? 40 : 0;
    std::array<std::int32_t, 4> points;
    for (std::int32_t& point : points) {
        point = choices.Between(lower - reach, upper + reach);
    }
    if (choices.Percent(4)) {
        return points;
    }
    std::ranges::sort(points);
    switch (choices.Below(7)) {
    case 0:
        points.fill(points[0]);
        break;
    case 1:
        points[2] = points[1];
        break;
    case 2:
        points[0] = points[1] = lower;
        break;
    case 3:
        points[2] = points[3] = upper;
        break;
    case 4:
        points[1] = points[0];
        points[2] = points[3];
        break;
    default:
        break;
    }
    return points;
}

Text MakeName(Choices& choices, TextView stem, std::size_t number) {
    const Text name = Text(stem) + Digits(static_cast<std::int32_t>(number));
    return choices.Percent(20) ? name + u"_b" : name;
}

VariableNames MakeVariable(Choices& choices, const SystemLimits& limits, TextView stem,
                           std::size_t number, std::size_t pointsPerTerm, Text& text) {
    VariableNames names{MakeName(choices, stem, number), {}};
    const Universe universe = MakeUniverse(choices);
    text += names.Name + u'/' + Units(universe.Upper, universe.Exponent) + u'/' +
            Units(universe.Lower, universe.Exponent) + u'/';
    const std::uint32_t count = 1 + choices.Below(limits.Terms);
    for (std::uint32_t i = 0; i < count; ++i) {
        names.Terms.push_back(MakeName(choices, u"t", i));
        text += (i == 0 ? u"" : u";") + names.Terms.back();
        const auto points = MakePoints(choices, universe);
        for (std::size_t point = 0; point < pointsPerTerm; ++point) {
            text += u',' + Units(points[point], universe.Exponent);
        }
    }
    return names;
}

std::vector<VariableNames> MakeVariables(Choices& choices, const SystemLimits& limits,
                                         TextView stem, std::uint32_t count,
                                         std::size_t pointsPerTerm, Text& text) {
    std::vector<VariableNames> variables;
    for (std::uint32_t i = 0; i < count; ++i) {
        text += i == 0 ? u"" : u"|";
        variables.push_back(MakeVariable(choices, limits, stem, i, pointsPerTerm, text));
    }
    return variables;
}

double MakeOddNumber(Choices& choices) {
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    constexpr std::array Odd = {std::numeric_limits<double>::quiet_NaN(),
                                Infinity,
                                -Infinity,
                                std::numeric_limits<double>::max(),
                                std::numeric_limits<double>::denorm_min(),
                                -0.0};
    return Odd[choices.Below(Odd.size())];
}

} // namespace

SystemTexts MakeSystem(Choices& choices, const SystemLimits& limits) {
    SystemTexts texts;
    const std::uint32_t inputCount = 1 + choices.Below(limits.Inputs);
    const std::uint32_t outputCount = 1 + choices.Below(limits.Outputs);
    const auto inputs = MakeVariables(choices, limits, u"In", inputCount, 4, texts.Inputs);
    const auto outputs = MakeVariables(choices, limits, u"Out", outputCount, 1, texts.Outputs);
    texts.Rules = MakeRules(choices, limits, inputs, outputs);
    return texts;
}

std::vector<double> EdgesOf(const LinguisticVariable& variable) {
    std::vector<double> edges{variable.LBound, variable.UBound};
    for (const auto& [name, term] : variable.MF) {
        edges.insert(edges.end(), term.Points.begin(), term.Points.end());
    }
    return edges;
}

double MakeNumber(Choices& choices, const std::vector<double>& edges) {
    const double edge = choices.Pick(edges);
    const double other = choices.Pick(edges);
    switch (choices.Below(16)) {
    case 0:
        return std::nextafter(edge, std::numeric_limits<double>::max());
    case 1:
        return std::nextafter(edge, -std::numeric_limits<double>::max());
    case 2:
        return edge + (edge - other);
    case 3:
        return MakeOddNumber(choices);
    case 4:
    case 5:
    case 6:
        return edge;
    default:
        // Between two edges; a quotient by a power of two rounds the same everywhere.
        return edge + (other - edge) * (choices.Below(4096) / 4096.0);
    }
}

Value MakeValue(Choices& choices, const std::vector<double>& edges) {
    const double number = MakeNumber(choices, edges);
    switch (choices.Below(80)) {
    case 0:
        return {};
    case 1:
        return Text(EmptyMarker);
    case 2:
        return Text(u"abc");
    case 3:
    case 4:
        return Text(u" ") + NumberText(number) + u' ';
    case 5:
    case 6:
    case 7:
    case 8:
        return NumberText(number);
    default:
        return number;
    }
}

} // namespace Quorvane::Reference
