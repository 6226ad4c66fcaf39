// SPDX-License-Identifier: MIT
// Tests of how a universe is cut into pieces.
#include "check/Axis.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace Quorvane::Check {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();

System::InputVariable Input(double lower, double upper, std::vector<std::array<double, 4>> points) {
    System::InputVariable input{u"X", lower, upper, {}};
    for (const auto& each : points) {
        input.Terms.push_back({u"T", each});
    }
    return input;
}

Axis AxisOf(const System::InputVariable& input) {
    return MakeAxis(input, OneForEachTerm(input));
}

using Indices = std::vector<std::uint32_t>;

TEST(Axis, HasAPieceForEachLineOfATrapezoid) {
    const Axis axis = AxisOf(Input(0, 10, {{2, 4, 6, 8}}));
    const auto after = [](double x) { return std::nextafter(x, Infinity); };
    const auto before = [](double x) { return std::nextafter(x, -Infinity); };
    const std::vector<Range> ranges = {
        {0, 2}, {after(2), before(4)}, {4, 6}, {after(6), before(8)}, {8, 10}};
    ASSERT_EQ(axis.Pieces.size(), ranges.size());
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        EXPECT_EQ(axis.Pieces[i].Values, ranges[i]) << i;
        EXPECT_EQ(axis.Pieces[i].Active, i >= 1 && i <= 3 ? Indices{0} : Indices{}) << i;
        EXPECT_EQ(axis.Pieces[i].Full, i == 2 ? Indices{0} : Indices{}) << i;
    }
}

TEST(Axis, LeavesNothingOutBetweenItsPieces) {
    const Axis axis = AxisOf(Input(-1, 3, {{-5, -2, 0, 0.1}, {0.1, 0.1, 0.1, 0.1}, {0, 1, 7, 9}}));
    EXPECT_EQ(axis.Pieces.front().Values.First, -1);
    EXPECT_EQ(axis.Pieces.back().Values.Last, 3);
    for (std::size_t i = 1; i < axis.Pieces.size(); ++i) {
        EXPECT_EQ(std::nextafter(axis.Pieces[i - 1].Values.Last, Infinity),
                  axis.Pieces[i].Values.First);
    }
}

TEST(Axis, HasNoPiecesWhereTheBoundsAreTheWrongWayRound) {
    EXPECT_TRUE(AxisOf(Input(1, 0, {{0, 0, 1, 1}})).Pieces.empty());
    EXPECT_EQ(AxisOf(Input(1, 1, {{0, 0, 1, 1}})).Pieces.size(), 1U);
}

TEST(Axis, SeesThePointsOfATermAsTheyCome) {
    // Full from 1 to 2, and on a flank between 5 and 9.
    const auto classes = ClassesOf(AxisOf(Input(0, 10, {{5, 1, 2, 9}})), {true});
    ASSERT_EQ(classes.size(), 2U);
    EXPECT_EQ(classes[0].Active, Indices{});
    EXPECT_EQ(classes[0].Ranges, 3U);
    EXPECT_DOUBLE_EQ(classes[0].Share, 0.5);
    EXPECT_EQ(classes[1].Active, Indices{0});
    EXPECT_EQ(classes[1].Ranges, 2U);
    EXPECT_DOUBLE_EQ(classes[1].Share, 0.5);
}

TEST(ActiveClasses, AreThoseOfTheMarkedConditionsAndTheLeastFirst) {
    const Axis axis = AxisOf(Input(0, 10, {{0, 0, 4, 6}, {4, 6, 10, 10}, {3, 5, 5, 7}}));
    const auto classes = ClassesOf(axis, {true, true, false});
    ASSERT_EQ(classes.size(), 3U);
    EXPECT_EQ(classes[0].Active, Indices{0});
    EXPECT_EQ(classes[0].Widest, (Range{0, 4}));
    EXPECT_EQ(classes[1].Active, Indices{1});
    EXPECT_EQ(classes[1].Widest, (Range{6, 10}));
    EXPECT_EQ(classes[2].Active, (Indices{0, 1}));
    EXPECT_NEAR(classes[2].Share, 0.2, 1e-12);
}

TEST(Axis, MeasuresUniversesWiderThanTheLargestNumber) {
    const Axis axis = AxisOf(Input(-1.5e308, 1.5e308, {{-1e308, 0, 0, 1e308}}));
    EXPECT_DOUBLE_EQ(ShareOf(axis, {0, 1.5e308}), 0.5);
    EXPECT_EQ(MiddleOf({-1.5e308, 1.5e308}), 0);
    EXPECT_EQ(MiddleOf({5e-324, 5e-324}), 5e-324);
}

} // namespace
} // namespace Quorvane::Check
