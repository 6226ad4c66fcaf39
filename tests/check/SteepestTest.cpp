// SPDX-License-Identifier: MIT
// Tests of where outputs change fastest.
#include <cmath>

#include "tests/check/CheckTest.h"

namespace Quorvane::Check {
namespace {

constexpr TextView Output = u"Y/10/0/Lo,0;Hi,10";
constexpr TextView Rules = u"X>A/Y<Lo:1|X>B/Y<Hi:1";

TEST(Steepest, IsTheNarrowestFlank) {
    const TextView inputs = u"X/100/0/A,0,0,20,70;B,20,70,75,80;C,75,80,100,100";
    const TextView rules = u"X>A/Y<Lo:1|X>B/Y<Hi:1|X>C/Y<Lo:1";
    const auto found = Find(FindingKind::Steepest, inputs, Output, rules);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].Level, Severity::Note);
    EXPECT_EQ(found[0].Input, 0U);
    EXPECT_EQ(found[0].Output, 0U);
    // From 75 to 80 by 10, so 2 over a hundredth of the universe.
    EXPECT_NEAR(found[0].Figure, -2, 1e-9);
    EXPECT_NEAR(found[0].Share, 0.2, 1e-9);
    EXPECT_GE(found[0].Example[0], 75 - 1e-9);
    EXPECT_LE(found[0].Example[0], 79 + 1e-9);
    EXPECT_TRUE(Find(FindingKind::Jump, inputs, Output, rules).empty());
}

TEST(Steepest, IsNoneWhereTheOutputStays) {
    const TextView inputs = u"X/10/0/A,0,0,4,6;B,4,6,10,10";
    EXPECT_TRUE(Find(FindingKind::Steepest, inputs, Output, u"X>A/Y<Lo:1|X>B/Y<Lo:1").empty());
}

TEST(Jump, IsAtASteepEdge) {
    const auto found = Find(FindingKind::Jump, u"X/10/0/A,0,0,4,4;B,4,4,10,10", Output, Rules);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].Input, 0U);
    // At 4 both terms hold, so there are two jumps of 5.
    EXPECT_EQ(found[0].Figure, 5);
    EXPECT_EQ(found[0].Share, 0.5);
    EXPECT_NEAR(found[0].Example[0], 4, 1e-9);
}

TEST(Jump, IsAtTheEdgeOfAGap) {
    // Between 4 and 6 no rule fires, and the output is 5.
    const auto found = Find(FindingKind::Jump, u"X/10/0/A,0,0,2,4;B,6,8,10,10", Output, Rules);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(std::abs(found[0].Figure), 5);
}

TEST(Jump, NamesTheInputThatJumps) {
    const auto found =
        Find(FindingKind::Jump, u"X/10/0/A,0,0,4,6;B,4,6,10,10|U/1/0/S,0,0,0.5,0.5;T,0.5,0.5,1,1",
             u"Y/10/0/Lo,0;Mid,5;Hi,10", u"X>A/Y<Lo:1|X>B;U>S/Y<Mid:1|X>B;U>T/Y<Hi:1");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].Input, 1U);
    // With t the degree of B, from 5 t to 15 t / (1 + t): most where 1 + t is the root of 3.
    EXPECT_NEAR(found[0].Figure, 20 - 10 * std::sqrt(3), 1e-4);
}

} // namespace
} // namespace Quorvane::Check
