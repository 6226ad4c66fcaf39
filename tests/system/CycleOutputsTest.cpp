// SPDX-License-Identifier: MIT
// Tests of the outputs that a cycle has.
#include "system/CycleOutputs.h"

#include <gtest/gtest.h>

#include "system/DefinitionTexts.h"

namespace Quorvane::System {
namespace {

constexpr TextView Inputs = u"X/8/0/A,0,0,2,6;B,2,6,8,8";
constexpr TextView Outputs = u"Y/16/0/P,0;Q,8|Z/3/-1/S,1|W/2/0/T,1";

FuzzySystem Make(TextView rules) {
    return FromPlainTexts({Text(Inputs), Text(Outputs), Text(rules)});
}

TEST(CycleOutputs, AreThoseOfTheFirstRuleInItsOrder) {
    const FuzzySystem system = Make(u"X>A/Z<S;Y<[NONE]:1|X>B/Y<P;Z<[NONE]:1");
    EXPECT_EQ(CycleOutputs(system),
              (std::vector<CycleOutput>{{1, u"Z", 1.0, true}, {0, u"Y", 8.0, true}}));
    EXPECT_EQ(FirstFailingClause(system), std::nullopt);
}

TEST(CycleOutputs, AreNoneWithoutRules) {
    EXPECT_TRUE(CycleOutputs(Make(u"")).empty());
    EXPECT_EQ(FirstFailingClause(Make(u"")), std::nullopt);
}

TEST(CycleOutputs, KeepTheirDefaultWhereTheLastRuleOmitsThem) {
    EXPECT_EQ(CycleOutputs(Make(u"X>A/Y<P;Z<S:1|X>B/Y<Q:1")),
              (std::vector<CycleOutput>{{0, u"Y", 8.0, true}, {1, u"Z", 1.0, false}}));
}

TEST(CycleOutputs, HaveNoDefaultUnderANameOfOtherCase) {
    const FuzzySystem system = Make(u"X>A/y<P;Y<Q:1|X>B/Y<P:1");
    EXPECT_EQ(CycleOutputs(system),
              (std::vector<CycleOutput>{{0, u"y", std::nullopt, false}, {0, u"Y", 8.0, true}}));
}

TEST(FirstFailingClause, ChoosesATermForAnOutputThatTheFirstRuleDoesNotName) {
    EXPECT_EQ(FirstFailingClause(Make(u"X>A/Y<P:1|X>B/Y<P;Z<S:1|X>B/Y<Q:1")),
              (FailingClause{1, 1}));
    EXPECT_EQ(FirstFailingClause(Make(u"X>A/Y<P:1|X>B/y<P:1|X>B/Y<Q:1")), (FailingClause{1, 0}));
    EXPECT_EQ(FirstFailingClause(Make(u"X>A/Y<P:1|X>B/Y<P;Z<[NONE]:1|X>B/Y<Q:1")), std::nullopt);
}

TEST(FirstFailingClause, NamesSuchAnOutputInTheLastRule) {
    EXPECT_EQ(FirstFailingClause(Make(u"X>A/Y<P:1|X>B/Y<P;Z<[NONE]:1")), (FailingClause{1, 1}));
}

} // namespace
} // namespace Quorvane::System
