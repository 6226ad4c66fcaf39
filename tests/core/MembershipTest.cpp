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
    /// The degrees of three terms at a time, the first and the last being the same; absent where
    /// they have to be computed one by one.
    static std::optional<double> DegreeInPairs(const LinguisticTerm& term, double x, double upper,
                                               double lower) {
        // The other term of a pair makes no difference.
        const LinguisticTerm other{u"U", {-1, 3, 5, 7}};
        const LinguisticTerm* const terms[] = {&term, &other, &term, &term};
        double degrees[4] = {NotANumber, NotANumber, NotANumber, NotANumber};
        if (!RunTime::SetMemberships(terms, 3, x, upper, lower, degrees)) {
            return std::nullopt;
        }
        EXPECT_TRUE(SameBits(degrees[0], degrees[2]));
        return degrees[0];
    }

    /// The degree of a value, computed alone and, where possible, in pairs.
    static double Degree(const std::array<double, 4>& points, double x, double upper,
                         double lower) {
        const LinguisticTerm term{u"T", points};
        const double alone = x < lower || x > upper ? 0 : RunTime::Membership(term, x);
        const std::optional<double> inPairs = DegreeInPairs(term, x, upper, lower);
        EXPECT_TRUE(!inPairs || SameBits(*inPairs, alone));
        return alone;
    }

    static bool CanBePaired(const std::array<double, 4>& points, double x, double upper,
                            double lower) {
        return DegreeInPairs({u"T", points}, x, upper, lower).has_value();
    }
};

struct DegreeCase {
    std::array<double, 4> Points;
    double X;
    double Degree;
};

TEST_F(MembershipTest, FollowsTheShapeOverAUniverseFromZeroToSixteen) {
    constexpr std::array<double, 4> Trapezoid = {2, 4, 8, 16};
    constexpr std::array<double, 4> Triangle = {2, 4, 4, 8};
    constexpr std::array<double, 4> Singleton = {4, 4, 4, 4};
    constexpr std::array<double, 4> LeftShoulder = {0, 0, 4, 8};
    constexpr std::array<double, 4> RightShoulder = {8, 12, 16, 16};
    constexpr std::array<double, 4> Rectangle = {4, 4, 8, 8};
    constexpr std::array<double, 4> Beyond = {-8, -4, 20, 24};
    constexpr std::array<double, 4> BeyondFlanks = {-8, 8, 8, 24};
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
        EXPECT_TRUE(CanBePaired(test.Points, test.X, 16, 0));
    }
}

TEST_F(MembershipTest, NumbersThatAreNotFiniteBelongToNoTerm) {
    for (const std::array<double, 4>& points :
         {std::array<double, 4>{0, 0, 16, 16}, {2, 4, 8, 16}, {4, 4, 4, 4}}) {
        for (const double x : {Infinity, -Infinity, NotANumber, -NotANumber}) {
            EXPECT_TRUE(SameBits(0, Degree(points, x, 16, 0)));
            EXPECT_TRUE(CanBePaired(points, x, 16, 0));
        }
    }
}

TEST_F(MembershipTest, EveryValueIsOutsideBoundsTheWrongWayRound) {
    for (const double x : {-1.0, 0.0, 4.0, 8.0, 16.0, 17.0}) {
        EXPECT_TRUE(SameBits(0, Degree({0, 0, 16, 16}, x, 0, 16)));
        EXPECT_TRUE(CanBePaired({0, 0, 16, 16}, x, 0, 16));
    }
}

TEST_F(MembershipTest, ASinglePointCanBeTheUniverse) {
    EXPECT_TRUE(SameBits(1, Degree({0, 4, 4, 8}, 4, 4, 4)));
    EXPECT_TRUE(CanBePaired({0, 4, 4, 8}, 4, 4, 4));
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
        EXPECT_FALSE(CanBePaired(test.Points, test.X, 16, 0)) << test.X;
    }
}

TEST_F(MembershipTest, IsNotANumberOnAFlankWiderThanTheRange) {
    constexpr std::array<double, 4> Wide = {-1.5e308, 1.5e308, 1.5e308, 1.6e308};
    EXPECT_TRUE(std::isnan(Degree(Wide, 0, 1.6e308, -1.6e308)));
    EXPECT_FALSE(CanBePaired(Wide, 0, 1.6e308, -1.6e308));
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
                        const std::array points = {p1, p2, p3, p4};
                        const double degree = Degree(points, x, 2, -2);
                        ASSERT_TRUE(degree >= 0 && degree <= 1);
                        if (p1 < p2 && p2 < p3 && p3 < p4) {
                            ASSERT_TRUE(CanBePaired(points, x, 2, -2));
                        }
                    }
                }
            }
        }
    }
}

} // namespace
} // namespace Quorvane
