// SPDX-License-Identifier: MIT
// Tests of comparing systems.
#include "compare/Differences.h"

#include <gtest/gtest.h>

#include "system/DefinitionTexts.h"
#include "tests/reference/RandomSystem.h"

namespace Quorvane::Compare {
namespace {

System::FuzzySystem Make(TextView inputs, TextView outputs, TextView rules) {
    return System::FromPlainTexts({Text(inputs), Text(outputs), Text(rules)});
}

TEST(Differences, AreOfVariablesTermsAndRules) {
    const auto first = Make(u"X/8/0/A,0,0,2,6;B,2,6,8,8|U/1/0/T,0,0,1,1", u"Y/16/0/P,0;Q,8",
                            u"X>A/Y<P:1|X>B/Y<P:1|X>B;U>T/Y<Q:0.5");
    const auto second = Make(u"x/9/0/a,0,0,3,6;C,2,6,8,8|V/1/0/T,0,0,1,1", u"Y/16/0/P,0;Q,8.5",
                             u"x>a/Y<P:0.25|x>C/Y<P:1|X>A;V>[NONE]/Y<Q:1");
    EXPECT_EQ(Differences(first, second),
              (std::vector<Difference>{
                  {Change::Changed, u"input X", u"0 to 8", u"0 to 9"},
                  {Change::Changed, u"input X, term A", u"0, 0, 2, 6", u"0, 0, 3, 6"},
                  {Change::Removed, u"input X, term B", u"2, 6, 8, 8", u""},
                  {Change::Added, u"input X, term C", u"", u"2, 6, 8, 8"},
                  {Change::Removed, u"input U", u"0 to 1", u""},
                  {Change::Added, u"input V", u"", u"0 to 1"},
                  {Change::Changed, u"output Y, term Q", u"8", u"8.5"},
                  {Change::Changed, u"rule IF X IS A THEN Y IS P", u"1", u"0.25"},
                  {Change::Removed, u"rule IF X IS B THEN Y IS P", u"1", u""},
                  {Change::Removed, u"rule IF X IS B AND U IS T THEN Y IS Q", u"0.5", u""},
                  {Change::Added, u"rule IF x IS C THEN Y IS P", u"", u"1"},
                  {Change::Added, u"rule IF X IS a THEN Y IS Q", u"", u"1"},
              }));
}

TEST(Differences, PairRulesThatRepeatInTheirOrder) {
    const auto first = Make(u"X/8/0/A,0,0,2,6", u"Y/1/0/P,0", u"X>A/Y<P:1|X>A/Y<P:0.5");
    const auto second =
        Make(u"X/8/0/A,0,0,2,6", u"Y/1/0/P,0", u"X>A/Y<P:1|X>A/Y<P:0.25|X>A/Y<P:0.75");
    EXPECT_EQ(
        Differences(first, second),
        (std::vector<Difference>{{Change::Changed, u"rule IF X IS A THEN Y IS P", u"0.5", u"0.25"},
                                 {Change::Added, u"rule IF X IS A THEN Y IS P", u"", u"0.75"}}));
}

TEST(Differences, TellOfAnotherOrderOnlyWhereThatIsAll) {
    const auto first = Make(u"X/8/0/A,0,0,2,6", u"Y/1/0/P,0;Q,1", u"X>A/Y<P:1|X>A/Y<Q:1");
    const auto second = Make(u"X/8/0/A,0,0,2,6", u"Y/1/0/P,0;Q,1", u"X>A/Y<Q:1|X>A/Y<P:1");
    ASSERT_EQ(Differences(first, second).size(), 1U);
    EXPECT_EQ(Differences(first, second)[0].Subject,
              u"the order or the spelling of what the systems have");
}

TEST(Differences, AreNoneForEqualSystemsAlone) {
    Reference::Random random(95);
    auto former = Make(u"", u"", u"");
    for (int i = 0; i < 500; ++i) {
        const auto texts = Reference::MakeSystem(random, {.BadRules = 0});
        const auto system = Make(texts.Inputs, texts.Outputs, texts.Rules);
        ASSERT_TRUE(Differences(system, system).empty());
        ASSERT_EQ(Differences(former, system).empty(), former == system);
        former = system;
    }
}

} // namespace
} // namespace Quorvane::Compare
