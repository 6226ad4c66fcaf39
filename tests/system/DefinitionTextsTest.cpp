// SPDX-License-Identifier: MIT
// Tests of systems made from definition texts and turned back into them.
#include "system/DefinitionTexts.h"

#include "model/BuiltInDefinition.h"
#include "tests/core/CoreTest.h"

namespace Quorvane::System {
namespace {

constexpr TextView Inputs = u"X/8/0/A,0,0,2,6;B,2,6,8,8|U/1/-1/T,-1,-1,-0.5,0";
constexpr TextView Outputs = u"Y/16/0/P,0;Q,8|Z/3/-1/S,1";

DefinitionTexts Texts(TextView rules) {
    return {Text(Inputs), Text(Outputs), Text(rules)};
}

TEST(DefinitionTexts, AreReadPieceByPiece) {
    const FuzzySystem system = FromPlainTexts(Texts(u"U>T;X>B/Y<Q;Z<[NONE]:0.5"));
    EXPECT_EQ(system.Inputs, (std::vector<InputVariable>{
                                 {u"X", 0, 8, {{u"A", {0, 0, 2, 6}}, {u"B", {2, 6, 8, 8}}}},
                                 {u"U", -1, 1, {{u"T", {-1, -1, -0.5, 0}}}}}));
    EXPECT_EQ(system.Outputs, (std::vector<OutputVariable>{{u"Y", 0, 16, {{u"P", 0}, {u"Q", 8}}},
                                                           {u"Z", -1, 3, {{u"S", 1}}}}));
    EXPECT_EQ(system.Rules,
              (std::vector<Rule>{
                  {{{1, 0, u""}, {0, 1, u""}}, {{0, 1, u""}, {1, std::nullopt, u""}}, 0.5}}));
    EXPECT_EQ(DefaultOf(system.Outputs[1]), 1);
}

TEST(DefinitionTexts, KeepTheCaseOfVariablesAndNotThatOfTerms) {
    const FuzzySystem system = FromPlainTexts(Texts(u"x>a;X>B/y<p;Y<Q:1"));
    EXPECT_EQ(system.Rules.front(),
              (Rule{{{0, 0, u"x"}, {0, 1, u""}}, {{0, 0, u"y"}, {0, 1, u""}}, 1}));
    EXPECT_EQ(NameIn(system.Inputs, system.Rules[0].Antecedents[0]), u"x");
    EXPECT_EQ(NameIn(system.Inputs, system.Rules[0].Antecedents[1]), u"X");
    EXPECT_EQ(PlainTexts(system).Rules, u"x>A;X>B/y<P;Y<Q:1");
}

TEST(DefinitionTexts, AreWrittenAsTheyWereRead) {
    const DefinitionTexts cases[] = {
        {u"", u"", u""},
        Texts(u""),
        Texts(u"X>A;U>[NONE]/Y<P;Z<S:1|X>B;U>T/Y<Q;Z<[NONE]:0.5"),
        Texts(u"/Y<P:1|X>A/:0|/:-1"),
        {u"X/8/0/|U/1/0/", u"Y/1/0/", u"X>[NONE]/Y<[NONE]:1"},
        {u"/8/0/,1,2,3,4", u"/1/0/,1", u">/<:1"},
        {u"X/3/8/A,9,2,7,-0", u"Y/1E-05/-0/P,1.7976931348623157E+308;Q,0.30000000000000004",
         u"X>A/Y<P:1E+300|X>A/Y<Q:-4.94065645841247E-324"},
        {u"T\u00E4mp \u6E29/8/0/[NONE],0,0,2,6", u"", u"T\u00E4mp \u6E29>[NONE]/:1"},
    };
    for (const DefinitionTexts& texts : cases) {
        const FuzzySystem system = FromPlainTexts(texts);
        EXPECT_EQ(PlainTexts(system), texts);
    }
}

TEST(DefinitionTexts, LoseWhatMeansNothing) {
    const FuzzySystem system = FromPlainTexts(
        {u"X/ +8.0 /0/A,0,.0,2D0,6,99/more", u"Y/1/0/P,0,9", u"X>A>B/Y<P<Q/R:1.0:2"});
    EXPECT_EQ(PlainTexts(system),
              (DefinitionTexts{u"X/8/0/A,0,0,2,6", u"Y/1/0/P,0", u"X>A/Y<P:1"}));
}

TEST(DefinitionTexts, SpellRulesThatRepeatDifferently) {
    const FuzzySystem system =
        FromPlainTexts(Texts(u"X>A/Y<P:1|X>A/Y<P:1E0|x>A/Y<P:1.0|X>B/Y<P:0.50|X>B/Y<P:.5|"
                             u"X>B/Y<P:1E-20|X>B/Y<P:.1E-19"));
    EXPECT_EQ(PlainTexts(system).Rules,
              u"X>A/Y<P:1|X>A/Y<P:1.0|x>A/Y<P:1.00|X>B/Y<P:0.5|X>B/Y<P:0.50|"
              u"X>B/Y<P:1E-20|X>B/Y<P:1.0E-20");
    EXPECT_EQ(FromPlainTexts(PlainTexts(system)).Rules.size(), 7U);
}

TEST(DefinitionTexts, AreStoredInTheCodePageOfTheServices) {
    const DefinitionTexts stored{Text(Main::BuiltInInputs()), Text(Main::BuiltInOutputs()),
                                 Text(Main::BuiltInRules())};
    EXPECT_EQ(StoredTexts(FromStoredTexts(stored)), stored);
    EXPECT_EQ(StoredTexts(FromPlainTexts({u"\u00E4/1/0/", u"", u""})).Inputs, u"4EF213F203F2");
    EXPECT_EQ(FromStoredTexts({u"4ef213f203f2", u"", u""}).Inputs[0].Name, u"\u00E4");
}

TEST(DefinitionTexts, LeaveTheProcessAlone) {
    Parse(u"X/8/0/A,0,0,2,6", u"Y/1/0/P,0", u"X>A/Y<P:1");
    const Text inputs = Definition::State().InputsText;
    const FuzzySystem one = FromPlainTexts(Texts(u""));
    const FuzzySystem other = FromPlainTexts({u"V/8/0/A,0,0,2,6", u"", u""});
    EXPECT_EQ(one.Inputs[0].Name, u"X");
    EXPECT_EQ(other.Inputs[0].Name, u"V");
    EXPECT_EQ(Definition::State().InputsText, inputs);
    EXPECT_EQ(KeysOf(*Definition::State().InputVariables), std::vector<Text>{u"X"});
    Definition::Reset();
}

TEST(IsPlainName, HasNoSeparator) {
    EXPECT_TRUE(IsPlainName(u""));
    EXPECT_TRUE(IsPlainName(u"a name \u6E29"));
    for (const char16_t separator : TextView(u"|/;,:><")) {
        EXPECT_FALSE(IsPlainName(Text(u"a") + separator));
    }
}

} // namespace
} // namespace Quorvane::System
