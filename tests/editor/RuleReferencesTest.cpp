// SPDX-License-Identifier: MIT
// Tests of how renames and deletions reach the rules.
#include "editor/page/RuleReferences.h"

#include <chrono>

#include "tests/editor/EditorTest.h"

namespace Quorvane::Editor {
namespace {

using Definition::State;

class RuleReferencesTest : public EditorTest {
  protected:
    static void UseRules(const std::vector<Text>& rules) {
        State().RuleBase.emplace(KeyComparison::IgnoreCase);
        for (const Text& rule : rules) {
            State().RuleBase->Add(rule);
        }
    }
};

using RuleTextsList = std::vector<Text>;

TEST_F(RuleReferencesTest, ReplacesEveryOccurrenceInItsPlace) {
    struct Case {
        TextView Old;
        TextView New;
        RuleTextsList Before;
        RuleTextsList After;
    };
    const Case cases[] = {
        {u"A>", u"C>", {u"A>X/Z<Y:1", u"B>X/Z<Y:1"}, {u"C>X/Z<Y:1", u"B>X/Z<Y:1"}},
        // Where names begin does not matter.
        {u"A>", u"C>", {u"BA>X;A>X/Z<Y:1"}, {u"BC>X;C>X/Z<Y:1"}},
        {u"A>MF_1",
         u"A>LOW",
         {u"A>MF_1/Z<Y:1", u"A>MF_10/Z<Y:1"},
         {u"A>LOW/Z<Y:1", u"A>LOW0/Z<Y:1"}},
        {u"Z<Y", u"Z<W", {u"A>Y/Z<Y;ZZ<Y:1"}, {u"A>Y/Z<W;ZZ<W:1"}},
        // Letter case does.
        {u"a>", u"c>", {u"A>X/Z<Y:1"}, {u"A>X/Z<Y:1"}},
        {u"A>", u"a>", {u"A>X/Z<Y:1"}, {u"a>X/Z<Y:1"}},
        // What was put in is not searched again.
        {u"A>", u"AA>", {u"A>X/Z<Y:1"}, {u"AA>X/Z<Y:1"}},
        {u"AA", u"A", {u"AAA>X/Z<Y:1"}, {u"AA>X/Z<Y:1"}},
        {u"Q>", u"R>", {u"A>X/Z<Y:1"}, {u"A>X/Z<Y:1"}},
        {u"Q>", u"R>", {}, {}},
        // A rule may take the text that another one leaves.
        {u"A>X", u"A>XX", {u"A>X/Z<Y:1", u"A>XX/Z<Y:1"}, {u"A>XX/Z<Y:1", u"A>XXX/Z<Y:1"}},
    };
    for (const auto& [oldText, newText, before, after] : cases) {
        SCOPED_TRACE(Narrow(oldText));
        UseRules(before);
        EXPECT_TRUE(RenameInRules(oldText, newText));
        EXPECT_EQ(RuleTexts(), after);
    }
}

TEST_F(RuleReferencesTest, FindsLongNamesAsItFindsShortOnes) {
    // Names that repeat themselves: a beginning of what is looked for ends where it goes wrong.
    for (const std::size_t size : {1U, 2U, 30U, 31U, 32U, 33U, 100U}) {
        Text name;
        for (std::size_t i = 0; i < size; ++i) {
            name += u"ab";
        }
        const Text rule = u"aab" + name + u"a" + name + u">X;" + name + u">X/Z<Y:1";
        UseRules({rule, u"b>" + name});
        EXPECT_TRUE(RenameInRules(name + u'>', u"C>"));
        EXPECT_EQ(RuleTexts(), (RuleTextsList{u"aab" + name + u"aC>X;C>X/Z<Y:1", u"b>" + name}));
        UseRules({rule, u"b>" + name});
        RemoveRulesContaining(u'a' + name + u'>');
        EXPECT_EQ(RuleTexts(), RuleTextsList{u"b>" + name});
    }
}

TEST_F(RuleReferencesTest, TakesTimeThatGrowsWithTheTextsAlone) {
    // Place by place, looking for the one in the other would take many thousand million steps.
    const Text name(300000, u'A');
    const RuleTextsList rules = {Text(600000, u'A') + u"/Z<Y:1", Text(500000, u'A') + u"/Z<Y:1"};
    UseRules(rules);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(RenameInRules(name + u'>', u"B>"));
    RemoveRulesContaining(name + u'>');
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    EXPECT_EQ(RuleTexts(), rules);
}

TEST_F(RuleReferencesTest, RefusesToMakeTwoRulesEqualAndChangesNothing) {
    const std::pair<Text, RuleTextsList> cases[] = {
        {u"A>Q", {u"Q>W/Z<Y:1", u"A>P/Z<Y:1", u"A>Q/Z<Y:1"}},
        {u"A>q", {u"A>P/Z<Y:1", u"A>Q/Z<Y:1"}},
        {u"A>Q", {u"A>Q/Z<Y:1", u"A>P/Z<Y:1"}},
    };
    for (const auto& [newText, rules] : cases) {
        UseRules(rules);
        EXPECT_FALSE(RenameInRules(u"A>P", newText));
        EXPECT_EQ(RuleTexts(), rules);
    }
}

TEST_F(RuleReferencesTest, RulesThatDifferInWeightStayApart) {
    UseRules({u"A>P/Z<Y:1", u"A>P/Z<Y:0.5"});
    EXPECT_TRUE(RenameInRules(u"A>P", u"A>Q"));
    EXPECT_EQ(RuleTexts(), Texts({u"A>Q/Z<Y:1", u"A>Q/Z<Y:0.5"}));
}

TEST_F(RuleReferencesTest, RemovesTheRulesThatContainAText) {
    UseRules(
        {u"A>MF_1/Z<Y:1", u"A>MF_2/Z<Y:1", u"A>MF_10/Z<Y:1", u"BA>MF_1/Z<Y:1", u"a>MF_1/Z<Y:0.5"});
    RemoveRulesContaining(u"A>MF_1");
    EXPECT_EQ(RuleTexts(), Texts({u"A>MF_2/Z<Y:1", u"a>MF_1/Z<Y:0.5"}));
    RemoveRulesContaining(u"Q>");
    EXPECT_EQ(RuleTexts(), Texts({u"A>MF_2/Z<Y:1", u"a>MF_1/Z<Y:0.5"}));
}

TEST_F(RuleReferencesTest, RaiseWithoutAModel) {
    EXPECT_EQ(Raised([] { RenameInRules(u"A>", u"B>"); }),
              PlatformError(RuntimeError::ObjectNotSet));
    EXPECT_EQ(Raised([] { RemoveRulesContaining(u"A>"); }),
              PlatformError(RuntimeError::ObjectNotSet));
}

} // namespace
} // namespace Quorvane::Editor
