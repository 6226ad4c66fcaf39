// SPDX-License-Identifier: MIT
// Tests of rules that contradict each other or say the same twice.
#include "tests/check/CheckTest.h"

namespace Quorvane::Check {
namespace {

using Rules = std::vector<std::uint32_t>;

constexpr TextView Inputs = u"X/10/0/A,0,0,4,6;B,4,6,10,10;Wide,0,0,5,7;Peak,2,3,3,4"
                            u"|U/10/0/S,0,0,4,6;T,4,6,10,10";
constexpr TextView Outputs = u"Y/10/0/Lo,0;Mid,5;Hi,10;Same,10|Z/1/0/Off,0;On,1";

CheckResult CheckRules(TextView rules, const CheckLimits& limits = {}) {
    return CheckSystem(Read(Inputs, Outputs, rules), limits);
}

std::vector<FindingKind> PairsIn(const CheckResult& result) {
    std::vector<FindingKind> kinds;
    for (const Finding& finding : result.Findings) {
        switch (finding.Kind) {
        case FindingKind::Conflict:
        case FindingKind::Overlap:
        case FindingKind::Fallback:
        case FindingKind::RuleCovered:
            kinds.push_back(finding.Kind);
            break;
        default:
            break;
        }
    }
    return kinds;
}

TEST(Conflict, IsBetweenRulesWithTheSameConditions) {
    const auto found =
        Of(FindingKind::Conflict, CheckRules(u"X>B;U>T/Y<Lo;Z<On:1|X>A;U>T/Y<Lo;Z<On:1"
                                             u"|U>T;X>A/Y<Lo;Z<Off:0.5"));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].Rules, (Rules{1, 2}));
    EXPECT_EQ(found[0].Output, 1U);
    EXPECT_EQ(found[0].Example, (std::vector<double>{2, 8}));
    EXPECT_EQ(found[0].Level, Severity::Warning);
}

TEST(Conflict, IsThereEvenWhereNoConditionHoldsFully) {
    // The top of the term is beyond the universe.
    const auto found = Find(FindingKind::Conflict, u"X/10/0/A,5,15,20,30;B,0,0,5,9", Outputs,
                            u"X>A/Y<Lo:1|X>A/Y<Hi:1|X>B/Y<Hi:1");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].Rules, (Rules{0, 1}));
    EXPECT_GT(found[0].Example[0], 5);
}

TEST(Pairs, AreNoneWhereTheyConcludeTheSameOrOfOtherOutputs) {
    // Same stands where Hi does.
    EXPECT_TRUE(PairsIn(CheckRules(u"X>A;U>S/Y<Hi;Z<[NONE]:1|X>A;U>T/Y<Lo:1"
                                   u"|X>B;U>S/Y<Lo;Z<On:1|X>B;U>T/Y<Lo;Z<Off:1"))
                    .empty());
    EXPECT_TRUE(
        PairsIn(CheckRules(u"X>A/Y<Hi;Z<[NONE]:1|X>A/Y<[NONE];Z<On:1|X>B/Y<Lo;Z<On:1")).empty());
    EXPECT_TRUE(Of(FindingKind::Conflict, CheckRules(u"X>A/Y<Hi:1|X>A/Y<Same:0.5")).empty());
}

TEST(Overlap, IsWhereOtherConditionsHoldFullyAtOnce) {
    const auto found =
        Of(FindingKind::Overlap, CheckRules(u"X>A;U>[NONE]/Y<Lo:1|X>[NONE];U>T/Y<Hi:1"));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].Rules, (Rules{0, 1}));
    EXPECT_EQ(found[0].Output, 0U);
    EXPECT_EQ(found[0].Example, (std::vector<double>{2, 8}));
}

TEST(Overlap, IsNoneBetweenNeighboursOfAPartition) {
    // Their flanks cross, and so they should.
    EXPECT_TRUE(PairsIn(CheckRules(u"X>A/Y<Lo:1|X>B/Y<Hi:1")).empty());
    // Steps of which one begins where the other ends.
    EXPECT_TRUE(Find(FindingKind::Overlap, u"X/10/0/A,0,0,5,5;B,5,5,10,10", Outputs,
                     u"X>A/Y<Lo:1|X>B/Y<Hi:1")
                    .empty());
    // Peaks with a plateau in common are no neighbours.
    EXPECT_EQ(Find(FindingKind::Overlap, u"X/10/0/A,0,0,5,5;B,5,5,5,10", Outputs,
                   u"X>A/Y<Lo:1|X>B/Y<Hi:1")
                  .size(),
              1U);
    EXPECT_EQ(Of(FindingKind::Overlap, CheckRules(u"X>A/Y<Lo:1|X>Peak/Y<Hi:1")).size(), 1U);
}

TEST(Overlap, IsNoneWhereAnyConditionKeepsThemApart) {
    EXPECT_TRUE(PairsIn(CheckRules(u"X>A;U>S/Y<Lo:1|X>A;U>T/Y<Hi:1|X>B/Y<Lo:1")).empty());
}

TEST(Fallback, IsAGeneralRuleOfLessWeight) {
    const auto result = CheckRules(u"X>[NONE];U>[NONE]/Y<Mid:0.1|X>A;U>S/Y<Lo:1|X>B;U>S/Y<Hi:1");
    const auto found = Of(FindingKind::Fallback, result);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].Rules, (Rules{0, 1}));
    EXPECT_EQ(found[1].Rules, (Rules{0, 2}));
    EXPECT_EQ(found[0].Level, Severity::Note);
    EXPECT_TRUE(Of(FindingKind::Overlap, result).empty());
    // Of as much weight, it waters the others down.
    EXPECT_EQ(PairsIn(CheckRules(u"X>A;U>S/Y<Lo:0.5|X>[NONE];U>S/Y<Mid:0.5")),
              (std::vector{FindingKind::Overlap}));
    EXPECT_EQ(PairsIn(CheckRules(u"X>A;U>S/Y<Lo:0.5|X>Wide;U>S/Y<Mid:0.4")),
              (std::vector{FindingKind::Fallback}));
}

TEST(RuleCovered, IsOneThatAMoreGeneralRuleMakesNeedless) {
    const TextView cases[] = {
        u"X>A;U>S/Y<Lo;Z<On:1|X>A;U>[NONE]/Y<Lo;Z<On:1",
        u"X>A/Y<Lo:0.5|X>Wide/Y<Lo:1",
        u"X>A;U>T/Y<Hi:1|X>A/Y<Same;Z<Off:0.2",
        u"X>A;U>T/Y<Hi:1|/Y<Hi:1",
    };
    for (const TextView rules : cases) {
        const auto found = Of(FindingKind::RuleCovered, CheckRules(rules));
        ASSERT_EQ(found.size(), 1U) << std::string(rules.begin(), rules.end());
        EXPECT_EQ(found[0].Rules, (Rules{0, 1}));
        EXPECT_EQ(found[0].Level, Severity::Warning);
    }
}

TEST(RuleCovered, IsTheLaterOneOfTwins) {
    const auto found =
        Of(FindingKind::RuleCovered, CheckRules(u"X>A/Y<Lo:1|X>A/Y<Lo:0.5|X>A/Y<Lo:0.25"));
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].Rules, (Rules{1, 0}));
    EXPECT_EQ(found[1].Rules, (Rules{2, 0}));
}

TEST(RuleCovered, IsNoneThatSaysMore) {
    const TextView cases[] = {
        // More conclusions, another one, a wider condition, another weight's sign.
        u"X>A;U>S/Y<Lo;Z<On:1|X>A/Y<Lo:1", u"X>Wide/Y<Lo:1|X>A;U>S/Y<Lo:1",
        u"X>A/Y<Lo:1|X>B/Y<Lo:1",          u"X>A;U>S/Y<Lo:1|X>A/Y<Lo:-1",
        u"X>A;U>S/Y<Lo:1|X>A/Y<Lo:0",      u"X>Peak/Y<Lo:1|X>B/Y<Lo:1",
    };
    for (const TextView rules : cases) {
        for (const Finding& found : Of(FindingKind::RuleCovered, CheckRules(rules))) {
            EXPECT_NE(found.Rules.front(), 0U) << std::string(rules.begin(), rules.end());
        }
    }
}

TEST(RuleCovered, ComparesTermsInTheUniverseAlone) {
    // Beyond 0 the first reaches further, but nothing is there.
    const auto found = Find(FindingKind::RuleCovered, u"X/10/0/A,-9,-8,4,6;B,0,0,4,6", Outputs,
                            u"X>A/Y<Lo:1|X>B/Y<Lo:1");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].Rules, (Rules{1, 0}));
}

TEST(Pairs, AreReportedUpToALimitAndCountedBeyond) {
    Text inputs = u"X/10/0/A,0,0,10,10;B,0,1,9,10";
    Text rules;
    for (int i = 0; i < 10; ++i) {
        rules += i == 0 ? u"" : u"|";
        rules += i % 2 == 0 ? u"X>A/Y<Lo:0." : u"X>A/Y<Hi:0.";
        rules += static_cast<char16_t>(u'0' + i / 2 + 1);
        rules += i % 2 == 0 ? u"" : u"5";
    }
    const CheckResult result = CheckSystem(Read(inputs, Outputs, rules), {.Pairs = 4});
    EXPECT_EQ(Of(FindingKind::Conflict, result).size(), 4U);
    EXPECT_EQ(result.Omitted.at(FindingKind::Conflict), 21U);
}

} // namespace
} // namespace Quorvane::Check
