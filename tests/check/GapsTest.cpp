// SPDX-License-Identifier: MIT
// Tests of where no rule fires.
#include <cmath>
#include <limits>

#include "tests/check/CheckTest.h"

namespace Quorvane::Check {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr TextView Output = u"Y/10/0/Lo,0;Hi,10";

double After(double x) {
    return std::nextafter(x, Infinity);
}

double Before(double x) {
    return std::nextafter(x, -Infinity);
}

TEST(Gaps, LieBetweenTermsThatDoNotMeet) {
    const auto gaps = Find(FindingKind::Gap, u"X/100/0/A,0,0,20,40;B,60,80,100,100", Output,
                           u"X>A/Y<Lo:1|X>B/Y<Hi:1");
    ASSERT_EQ(gaps.size(), 1U);
    EXPECT_EQ(gaps[0].Level, Severity::Warning);
    EXPECT_EQ(gaps[0].Outputs, (std::vector<std::uint32_t>{0}));
    EXPECT_EQ(gaps[0].Region, (std::vector<Range>{{40, 60}}));
    EXPECT_EQ(gaps[0].Example, (std::vector<double>{50}));
    EXPECT_EQ(gaps[0].Count, 1U);
    EXPECT_DOUBLE_EQ(gaps[0].Share, 0.2);
    EXPECT_TRUE(gaps[0].IsExact);
}

TEST(Gaps, CanBeSingleValues) {
    struct Case {
        TextView Inputs;
        std::vector<Range> Gap;
    };
    const Case cases[] = {
        // The feet meet, and both have degree 0 there.
        {u"X/100/0/A,0,0,20,50;B,50,80,100,100", {{50, 50}}},
        // A bound belongs to the universe; a foot on it does not belong to the term.
        {u"X/100/0/A,0,10,20,60;B,50,80,100,100", {{0, 0}}},
        {u"X/100/0/A,0,0,20,60;B,50,80,90,100", {{100, 100}}},
        // Steep edges belong to their terms, on both sides.
        {u"X/100/0/A,0,0,50,50;B,50,50,100,100", {}},
        {u"X/100/0/A,0,0,50,50;B,50,60,100,100", {}},
        // Neighbouring numbers have nothing between them.
        {u"X/100/0/A,0,0,0.3,0.3;B,0.30000000000000004,0.30000000000000004,100,100", {}},
        {u"X/100/0/A,0,0,0.3,0.3;B,0.3000000000000001,0.3000000000000001,100,100",
         {{0.30000000000000004, 0.30000000000000004}}},
        // What lies beyond the universe does not matter.
        {u"X/100/0/A,-50,-10,20,60;B,50,80,300,400", {}},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(testing::Message() << std::string(each.Inputs.begin(), each.Inputs.end()));
        const auto gaps = Find(FindingKind::Gap, each.Inputs, Output, u"X>A/Y<Lo:1|X>B/Y<Hi:1");
        ASSERT_EQ(gaps.size(), each.Gap.empty() ? 0U : 1U);
        if (!gaps.empty()) {
            EXPECT_EQ(gaps[0].Region, each.Gap);
            EXPECT_EQ(gaps[0].Example, (std::vector<double>{each.Gap[0].First}));
            EXPECT_EQ(gaps[0].Share, 0);
        }
    }
}

TEST(Gaps, AreAllButTheSingletons) {
    const auto gaps = Find(FindingKind::Gap, u"X/2/0/A,0,0,0,0;B,1,1,1,1;C,2,2,2,2", Output,
                           u"X>A/Y<Lo:1|X>B/Y<Hi:1|X>C/Y<Lo:1");
    ASSERT_EQ(gaps.size(), 1U);
    EXPECT_EQ(gaps[0].Region, (std::vector<Range>{{After(0), Before(1)}}));
    EXPECT_DOUBLE_EQ(gaps[0].Share, 1);
}

constexpr TextView Grid = u"X/10/0/A,0,0,4,6;B,4,6,10,10|U/10/0/S,0,0,4,6;T,4,6,10,10";

TEST(Gaps, AreFoundWhereARuleOfTheGridIsMissing) {
    const auto gaps =
        Find(FindingKind::Gap, Grid, Output, u"X>A;U>S/Y<Lo:1|X>A;U>T/Y<Hi:1|X>B;U>S/Y<Lo:1");
    ASSERT_EQ(gaps.size(), 1U);
    EXPECT_EQ(gaps[0].Region, (std::vector<Range>{{6, 10}, {6, 10}}));
    EXPECT_EQ(gaps[0].Example, (std::vector<double>{8, 8}));
    EXPECT_DOUBLE_EQ(gaps[0].Share, 0.16);
}

TEST(Gaps, AreNoneUnderARuleWithoutConditions) {
    for (const TextView rules :
         {u"X>[NONE];U>[NONE]/Y<Lo:0.1", u"/Y<Lo:1", u"X>A/Y<Lo:1|X>B;U>[NONE]/Y<Hi:1"}) {
        EXPECT_TRUE(Find(FindingKind::Gap, Grid, Output, rules).empty());
    }
}

TEST(Gaps, AreWholeSlicesWhereAnInputIsNotAsked) {
    const auto gaps = Find(FindingKind::Gap, Grid, Output, u"U>S/Y<Lo:1|X>A;U>[NONE]/Y<Hi:1");
    ASSERT_EQ(gaps.size(), 1U);
    EXPECT_EQ(gaps[0].Region, (std::vector<Range>{{6, 10}, {6, 10}}));
    const auto whole = Find(FindingKind::Gap, Grid, Output, u"U>S/Y<Lo:1");
    ASSERT_EQ(whole.size(), 1U);
    EXPECT_EQ(whole[0].Region, (std::vector<Range>{{0, 10}, {6, 10}}));
    EXPECT_DOUBLE_EQ(whole[0].Share, 0.4);
}

TEST(Gaps, AreThoseOfEachOutput) {
    const auto gaps = Find(FindingKind::Gap, u"X/10/0/A,0,0,4,6;B,4,6,10,10",
                           u"Y/10/0/Lo,0;Hi,10|Z/1/0/On,1|W/1/0/On,1",
                           u"X>A/Y<Lo;Z<On;W<On:1|X>B/Y<Hi;Z<[NONE];W<[NONE]:1");
    ASSERT_EQ(gaps.size(), 1U);
    EXPECT_EQ(gaps[0].Outputs, (std::vector<std::uint32_t>{1, 2}));
    EXPECT_EQ(gaps[0].Region, (std::vector<Range>{{6, 10}}));
}

TEST(Gaps, AreLeftByRulesThatNeverFire) {
    // Of weight 0, and with a term beyond the universe.
    const auto gaps = Find(FindingKind::Gap, u"X/10/0/A,0,0,4,6;B,4,6,10,10;C,20,20,20,20", Output,
                           u"X>A/Y<Lo:1|X>B/Y<Hi:0|X>C/Y<Hi:1");
    ASSERT_EQ(gaps.size(), 1U);
    EXPECT_EQ(gaps[0].Region, (std::vector<Range>{{6, 10}}));
    // A negative weight is one, too.
    EXPECT_TRUE(
        Find(FindingKind::Gap, u"X/10/0/A,0,0,4,6;B,4,6,10,10", Output, u"X>A/Y<Lo:1|X>B/Y<Hi:-0.5")
            .empty());
}

TEST(Gaps, AreEverythingWhereAllBoundsAreTheWrongWayRound) {
    const auto gaps = Find(FindingKind::Gap, u"X/0/10/A,0,0,4,6", Output, u"X>A/Y<Lo:1");
    ASSERT_EQ(gaps.size(), 1U);
    EXPECT_DOUBLE_EQ(gaps[0].Share, 1);
}

TEST(Gaps, CountBothTermsWhereARuleAsksForTwoOfOneInput) {
    const auto gaps =
        Find(FindingKind::Gap, u"X/10/0/A,0,0,4,6;B,4,6,10,10", Output, u"X>A;x>B/Y<Lo:1");
    ASSERT_EQ(gaps.size(), 1U);
    EXPECT_EQ(gaps[0].Count, 1U);
    EXPECT_DOUBLE_EQ(gaps[0].Share, 0.8);
    EXPECT_EQ(gaps[0].Region[0], (Range{0, 4}));
}

TEST(Gaps, AreSoughtWithSamplesWhenTheStepsAreUsedUp) {
    const CheckLimits few{.Steps = 3};
    const auto gaps =
        Find(FindingKind::Gap, Grid, Output, u"X>A;U>S/Y<Lo:1|X>A;U>T/Y<Hi:1|X>B;U>S/Y<Lo:1", few);
    ASSERT_EQ(gaps.size(), 1U);
    EXPECT_FALSE(gaps[0].IsExact);
    EXPECT_EQ(gaps[0].Region, (std::vector<Range>{{6, 10}, {6, 10}}));
    EXPECT_NEAR(gaps[0].Share, 0.16, 0.02);
    // A gap of a single value is found as well.
    const auto thin = Find(FindingKind::Gap, u"X/100/0/A,0,0,20,50;B,50,80,100,100", Output,
                           u"X>A/Y<Lo:1|X>B/Y<Hi:1", {.Steps = 1});
    ASSERT_EQ(thin.size(), 1U);
    EXPECT_FALSE(thin[0].IsExact);
    EXPECT_EQ(thin[0].Region, (std::vector<Range>{{50, 50}}));
}

} // namespace
} // namespace Quorvane::Check
