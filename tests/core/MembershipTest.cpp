// SPDX-License-Identifier: MIT
// Tests of the trapezoid.
#include "engine/Membership.h"

#include <cmath>
#include <limits>
#include <optional>

#include "tests/core/CoreTest.h"

namespace Quorvane {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

double Below(double x) {
    return std::nextafter(x, -Infinity);
}

double Above(double x) {
    return std::nextafter(x, Infinity);
}

class MembershipTest : public CoreTest {
  protected:
    /// The degree as one of a pair, first and second; absent where it has to be computed alone.
    static std::optional<double> DegreeInPair(const TrapezoidPoints& points, double x, double upper,
                                              double lower) {
        if (!RunTime::CanBePaired(points)) {
            return std::nullopt;
        }
        // The other of the pair makes no difference.
        const TrapezoidPoints other = {-1, 3, 5, 7};
        const double inside = RunTime::InUniverse(x, upper, lower);
        const RunTime::DoublePair both = {inside, inside};
        const double first = RunTime::TrapezoidPair(points, other).MembershipsOf(both)[0];
        EXPECT_TRUE(SameBits(first, RunTime::TrapezoidPair(other, points).MembershipsOf(both)[1]));
        return first;
    }

    /// The degree of a value, computed alone and, where possible, in a pair.
    static double Degree(const TrapezoidPoints& points, double x, double upper, double lower) {
        const double alone = x < lower || x > upper ? 0 : RunTime::Membership(points, x);
        const std::optional<double> inPair = DegreeInPair(points, x, upper, lower);
        EXPECT_TRUE(!inPair || SameBits(*inPair, alone));
        return alone;
    }
};

struct DegreeCase {
    TrapezoidPoints Points;
    double X;
    double Degree;
};

TEST_F(MembershipTest, FollowsTheShapeOverAUniverseFromZeroToSixteen) {
    constexpr TrapezoidPoints Trapezoid = {2, 4, 8, 16};
    constexpr TrapezoidPoints Triangle = {2, 4, 4, 8};
    constexpr TrapezoidPoints Singleton = {4, 4, 4, 4};
    constexpr TrapezoidPoints LeftShoulder = {0, 0, 4, 8};
    constexpr TrapezoidPoints RightShoulder = {8, 12, 16, 16};
    constexpr TrapezoidPoints Rectangle = {4, 4, 8, 8};
    constexpr TrapezoidPoints Beyond = {-8, -4, 20, 24};
    constexpr TrapezoidPoints BeyondFlanks = {-8, 8, 8, 24};
    const DegreeCase cases[] = {
        {Trapezoid, 0, 0},
        {Trapezoid, 2, 0},
        {Trapezoid, 3, 0.5},
        {Trapezoid, 3.5, 0.75},
        {Trapezoid, 4, 1},
        {Trapezoid, 6, 1},
        {Trapezoid, 8, 1},
        {Trapezoid, 10, 0.75},
        {Trapezoid, 14, 0.25},
        {Trapezoid, 16, 0},
        // One step from each corner.
        {Trapezoid, Below(2), 0},
        {Trapezoid, Above(2), (Above(2) - 2) / 2},
        {Trapezoid, Below(4), (Below(4) - 2) / 2},
        {Trapezoid, Above(4), 1},
        {Trapezoid, Below(8), 1},
        {Trapezoid, Above(8), (16 - Above(8)) / 8},
        {Trapezoid, Below(16), (16 - Below(16)) / 8},
        {Trapezoid, Above(16), 0},
        {Triangle, 4, 1},
        {Triangle, Below(4), (Below(4) - 2) / 2},
        {Triangle, Above(4), (8 - Above(4)) / 4},
        {Triangle, 3, 0.5},
        {Triangle, 7, 0.25},
        {Triangle, 2, 0},
        {Triangle, 8, 0},
        {Singleton, 4, 1},
        {Singleton, Below(4), 0},
        {Singleton, Above(4), 0},
        // At its bound a shoulder has degree 1, and one step beyond the bound none.
        {LeftShoulder, 0, 1},
        {LeftShoulder, -0.0, 1},
        {LeftShoulder, Below(0), 0},
        {LeftShoulder, 4, 1},
        {LeftShoulder, 6, 0.5},
        {LeftShoulder, 8, 0},
        {RightShoulder, 16, 1},
        {RightShoulder, Above(16), 0},
        {RightShoulder, 12, 1},
        {RightShoulder, 10, 0.5},
        {RightShoulder, 8, 0},
        {Rectangle, 4, 1},
        {Rectangle, 8, 1},
        {Rectangle, Below(4), 0},
        {Rectangle, Above(8), 0},
        // Terms that reach beyond the universe end at its bounds.
        {Beyond, 0, 1},
        {Beyond, 16, 1},
        {Beyond, Below(0), 0},
        {Beyond, Above(16), 0},
        {BeyondFlanks, 0, 0.5},
        {BeyondFlanks, 16, 0.5},
        {BeyondFlanks, -4, 0},
        {BeyondFlanks, 20, 0},
    };
    for (const DegreeCase& test : cases) {
        SCOPED_TRACE(testing::Message()
                     << test.Points[0] << ' ' << test.Points[1] << ' ' << test.Points[2] << ' '
                     << test.Points[3] << " at " << test.X);
        EXPECT_TRUE(SameBits(test.Degree, Degree(test.Points, test.X, 16, 0)));
        EXPECT_TRUE(RunTime::CanBePaired(test.Points));
    }
}

TEST_F(MembershipTest, NumbersThatAreNotFiniteBelongToNoTerm) {
    for (const TrapezoidPoints& points :
         {TrapezoidPoints{0, 0, 16, 16}, TrapezoidPoints{2, 4, 8, 16},
          TrapezoidPoints{4, 4, 4, 4}}) {
        for (const double x : {Infinity, -Infinity, NotANumber, -NotANumber}) {
            EXPECT_TRUE(SameBits(0, Degree(points, x, 16, 0)));
        }
    }
}

TEST_F(MembershipTest, EveryValueIsOutsideBoundsTheWrongWayRound) {
    for (const double x : {-1.0, 0.0, 4.0, 8.0, 16.0, 17.0}) {
        EXPECT_TRUE(SameBits(0, Degree({0, 0, 16, 16}, x, 0, 16)));
    }
}

TEST_F(MembershipTest, ABoundThatIsNotANumberBoundsNothing) {
    constexpr TrapezoidPoints Trapezoid = {2, 4, 8, 16};
    // No value is below or above it, so the other bound alone counts.
    EXPECT_TRUE(SameBits(0.5, Degree(Trapezoid, 3, NotANumber, 0)));
    EXPECT_TRUE(SameBits(0.5, Degree(Trapezoid, 3, -NotANumber, 3)));
    EXPECT_TRUE(SameBits(0, Degree(Trapezoid, 3, NotANumber, Above(3))));
    EXPECT_TRUE(SameBits(0.5, Degree(Trapezoid, 3, 16, NotANumber)));
    EXPECT_TRUE(SameBits(0, Degree(Trapezoid, 3, Below(3), NotANumber)));
    EXPECT_TRUE(SameBits(1, Degree(Trapezoid, 5, NotANumber, NotANumber)));
    for (const double x : {Infinity, -Infinity, NotANumber}) {
        EXPECT_TRUE(SameBits(0, Degree(Trapezoid, x, NotANumber, NotANumber)));
    }
}

TEST_F(MembershipTest, ASinglePointCanBeTheUniverse) {
    EXPECT_TRUE(SameBits(1, Degree({0, 4, 4, 8}, 4, 4, 4)));
    EXPECT_TRUE(SameBits(0, Degree({0, 4, 4, 8}, Above(4), 4, 4)));
}

TEST_F(MembershipTest, TakesPointsOutOfOrderStepByStep) {
    const DegreeCase cases[] = {
        // P2 <= x <= P3 comes first, though P1 lies above.
        {{6, 2, 4, 0}, 3, 1},
        {{6, 2, 4, 0}, 5, 0},
        // P2 above P3: below P2 the left flank, (5 - 2) / (10 - 2); from there on the right one.
        {{2, 10, 4, 12}, 5, 0.375},
        {{2, 10, 4, 12}, 11, 0.125},
        {{2, 10, 4, 12}, 10, 0.25},
    };
    for (const DegreeCase& test : cases) {
        EXPECT_TRUE(SameBits(test.Degree, Degree(test.Points, test.X, 16, 0))) << test.X;
        EXPECT_FALSE(RunTime::CanBePaired(test.Points)) << test.X;
    }
}

TEST_F(MembershipTest, IsNotANumberOnAFlankWiderThanTheRange) {
    constexpr TrapezoidPoints Wide = {-1.5e308, 1.5e308, 1.5e308, 1.6e308};
    EXPECT_TRUE(std::isnan(Degree(Wide, 0, 1.6e308, -1.6e308)));
    EXPECT_FALSE(RunTime::CanBePaired(Wide));
    EXPECT_TRUE(std::isnan(Degree({-1.6e308, -1.5e308, -1.5e308, 1.5e308}, 0, 1e308, -1e308)));
    // The flank is not looked at where x is on the other side or on the shoulder.
    EXPECT_TRUE(SameBits(1, Degree(Wide, 1.5e308, 1.6e308, -1.6e308)));
    EXPECT_TRUE(SameBits(0, Degree(Wide, 1.6e308, 1.6e308, -1.6e308)));
}

TEST_F(MembershipTest, NeverDividesByZeroNorLeavesTheRangeOfDegrees) {
    constexpr double Tiny = std::numeric_limits<double>::denorm_min();
    const double numbers[] = {-1, -0.0, 0, Tiny, 2 * Tiny, 3 * Tiny, 1, Above(1)};
    for (const double p1 : numbers) {
        for (const double p2 : numbers) {
            for (const double p3 : numbers) {
                for (const double p4 : numbers) {
                    for (const double x : numbers) {
                        const TrapezoidPoints points = {p1, p2, p3, p4};
                        const double degree = Degree(points, x, 2, -2);
                        ASSERT_TRUE(degree >= 0 && degree <= 1);
                        ASSERT_EQ(RunTime::CanBePaired(points), p1 <= p2 && p2 <= p3 && p3 <= p4);
                    }
                }
            }
        }
    }
}

} // namespace
} // namespace Quorvane
