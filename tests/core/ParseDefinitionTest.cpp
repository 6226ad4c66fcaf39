// SPDX-License-Identifier: MIT
// Tests of reading the definition texts.
#include "model/ParseDefinition.h"

#include "tests/core/CoreTest.h"
#include "tests/core/TestPlatform.h"

namespace Quorvane {
namespace {

using Definition::State;

class ParseDefinitionTest : public CoreTest {};

constexpr TextView Inputs = u"Temp/100/0/Cold,0,0,10,40;Hot,30,60,100,100|"
                            u"Rate/1/-1/Low,-1,-1,-0.5,0;High,0,0.5,1,1";
constexpr TextView Outputs = u"Valve/10/0/Shut,0;Half,5;Open,10|Fan/3/-2/Off,-2";
constexpr TextView Rules = u"Temp>Cold;Rate>[NONE]/Valve<Open;Fan<Off:1|"
                           u"Temp>Hot;Rate>High/Valve<Shut;Fan<[NONE]:0.5";

TEST_F(ParseDefinitionTest, ReadsVariablesWithTheirTermsInOrder) {
    Parse(Inputs, Outputs, Rules);
    ASSERT_EQ(KeysOf(*State().InputVariables), (std::vector<Text>{u"Temp", u"Rate"}));
    const LinguisticVariable& temp = State().InputVariables->At(u"Temp");
    EXPECT_EQ(temp.Name, u"Temp");
    EXPECT_EQ(temp.UBound, 100);
    EXPECT_EQ(temp.LBound, 0);
    ASSERT_EQ(KeysOf(temp.MF), (std::vector<Text>{u"Cold", u"Hot"}));
    EXPECT_EQ(temp.MF.At(u"Hot").Name, u"Hot");
    EXPECT_EQ(temp.MF.At(u"Hot").Points, (TrapezoidPoints{30, 60, 100, 100}));
    EXPECT_EQ(State().InputVariables->At(u"Rate").MF.At(u"Low").Points,
              (TrapezoidPoints{-1, -1, -0.5, 0}));

    ASSERT_EQ(KeysOf(*State().OutputVariables), (std::vector<Text>{u"Valve", u"Fan"}));
    const LinguisticVariable& valve = State().OutputVariables->At(u"Valve");
    EXPECT_EQ(KeysOf(valve.MF), (std::vector<Text>{u"Shut", u"Half", u"Open"}));
    EXPECT_EQ(valve.MF.At(u"Half").Points, (TrapezoidPoints{5, 5, 5, 5}));
}

TEST_F(ParseDefinitionTest, StartsInputsAtTheirLowerBoundsAndOutputsAtTheirMidpoints) {
    Parse(Inputs, Outputs, Rules);
    EXPECT_TRUE(IsNumber(0, State().InputValues->Get(u"Temp")));
    EXPECT_TRUE(IsNumber(-1, State().InputValues->Get(u"Rate")));
    EXPECT_TRUE(IsNumber(5, State().DefaultOutputValues->Get(u"Valve")));
    EXPECT_TRUE(IsNumber(0.5, State().DefaultOutputValues->Get(u"Fan")));
}

TEST_F(ParseDefinitionTest, HoldsEveryRuleAsItsText) {
    Parse(Inputs, Outputs, Rules);
    const auto pieces = Split(Rules, u'|');
    EXPECT_EQ(KeysOf(*State().RuleBase), std::vector<Text>(pieces.begin(), pieces.end()));
}

TEST_F(ParseDefinitionTest, EmptyTextsGiveEmptyDictionaries) {
    Parse(u"", u"", u"");
    EXPECT_TRUE(State().InputVariables->Empty());
    EXPECT_TRUE(State().OutputVariables->Empty());
    EXPECT_TRUE(State().RuleBase->Empty());
    EXPECT_TRUE(IsEmpty(State().InputValues->Get(u"x")));
    EXPECT_TRUE(IsEmpty(State().DefaultOutputValues->Get(u"x")));
}

TEST_F(ParseDefinitionTest, MatchesNamesWithoutRegardToCaseButDefaultsExactly) {
    Parse(Inputs, Outputs, Rules);
    EXPECT_EQ(State().InputVariables->At(u"TEMP").Name, u"Temp");
    EXPECT_EQ(State().InputVariables->At(u"temp").MF.At(u"cOLD").Name, u"Cold");
    EXPECT_EQ(State().OutputVariables->At(u"vALVE").MF.At(u"OPEN").Name, u"Open");
    EXPECT_TRUE(State().RuleBase->Exists(u"TEMP>COLD;RATE>[none]/VALVE<OPEN;fan<off:1"));
    EXPECT_TRUE(IsNumber(0, State().InputValues->Get(u"tEMP")));
    EXPECT_TRUE(IsNumber(5, State().DefaultOutputValues->Get(u"Valve")));
    EXPECT_TRUE(IsEmpty(State().DefaultOutputValues->Get(u"valve")));
}

TEST_F(ParseDefinitionTest, TwoRulesCannotDifferInCaseAlone) {
    EXPECT_EQ(Raised([] { Parse(u"", u"", u"A>b/C<d:1|a>B/c<D:1"); }),
              PlatformError(RuntimeError::DuplicateKey));
    EXPECT_EQ(KeysOf(*State().RuleBase), std::vector<Text>{u"A>b/C<d:1"});
}

TEST_F(ParseDefinitionTest, WidensMinAndMaxToTheTerms) {
    struct Case {
        const char16_t* Variables;
        double Min;
        double Max;
    };
    const Case cases[] = {
        {u"X/8/0/A,1,2,3,4;B,3,4,5,6", 1, 6},
        {u"X/8/0/A,3,4,5,6;B,1,2,3,4", 1, 6},
        {u"X/8/0/A,0,2,3,8", 0, 8},
        {u"X/8/0/A,-5,2,3,12", -5, 12},
        // All terms start above the upper bound: Min stays there. All end below the lower: Max
        // does.
        {u"X/8/0/A,9,10,11,12", 8, 12},
        {u"X/8/0/A,-4,-3,-2,-1", -4, 0},
        // Without terms they stay crossed over.
        {u"X/8/0/", 8, 0},
        // Only the first and the last point count.
        {u"X/8/0/A,3,-9,99,4", 3, 4},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(Narrow(test.Variables));
        Parse(test.Variables, u"", u"");
        const LinguisticVariable& variable = State().InputVariables->At(u"X");
        EXPECT_TRUE(SameBits(test.Min, variable.Min));
        EXPECT_TRUE(SameBits(test.Max, variable.Max));
    }
    const Case outputs[] = {
        {u"X/8/0/A,3;B,2;C,12", 2, 12},
        {u"X/8/0/A,9;B,10", 8, 10},
        {u"X/8/0/A,-4;B,-3", -4, 0},
    };
    for (const Case& test : outputs) {
        SCOPED_TRACE(Narrow(test.Variables));
        Parse(u"", test.Variables, u"");
        const LinguisticVariable& variable = State().OutputVariables->At(u"X");
        EXPECT_TRUE(SameBits(test.Min, variable.Min));
        EXPECT_TRUE(SameBits(test.Max, variable.Max));
    }
}

TEST_F(ParseDefinitionTest, TakesBlanksAsPartsOfNamesAndNumbers) {
    Parse(u"A b / 1 /0 / t ,0,0, 1,1 ", u"", u" x>y / z:1 ");
    EXPECT_EQ(KeysOf(*State().InputVariables), std::vector<Text>{u"A b "});
    EXPECT_EQ(KeysOf(State().InputVariables->At(u"A b ").MF), std::vector<Text>{u" t "});
    EXPECT_TRUE(State().RuleBase->Exists(u" x>y / z:1 "));
    EXPECT_EQ(State().InputVariables->At(u"A b ").UBound, 1);
}

TEST_F(ParseDefinitionTest, IgnoresFieldsBeyondTheLast) {
    Parse(u"X/8/0/A,1,2,3,4,5,x/more/yet", u"Y/1/0/B,1,x/more", u"");
    EXPECT_EQ(State().InputVariables->At(u"X").MF.At(u"A").Points, (TrapezoidPoints{1, 2, 3, 4}));
    EXPECT_EQ(State().OutputVariables->At(u"Y").MF.At(u"B").Points, (TrapezoidPoints{1, 1, 1, 1}));
}

TEST_F(ParseDefinitionTest, ReadsAnEmptyTermListAsNoTerms) {
    Parse(u"X/8/0/", u"Y/1/0/", u"");
    EXPECT_TRUE(State().InputVariables->At(u"X").MF.Empty());
    EXPECT_TRUE(State().OutputVariables->At(u"Y").MF.Empty());
}

TEST_F(ParseDefinitionTest, ReadsNumbersWithAPointInEveryLocale) {
    const TestPlatform german({}, u",");
    const PlatformInUse inUse(german);
    Parse(u"X/1.5/0/A,0,0.25,1E-05,1D0", u"", u"");
    EXPECT_EQ(State().InputVariables->At(u"X").UBound, 1.5);
    EXPECT_EQ(State().InputVariables->At(u"X").MF.At(u"A").Points,
              (TrapezoidPoints{0, 0.25, 1e-5, 1}));
}

TEST_F(ParseDefinitionTest, RaisesThePlatformsErrorForABadText) {
    struct Case {
        const char16_t* Inputs;
        const char16_t* Outputs;
        const char16_t* Rules;
        RuntimeError Error;
    };
    const Case cases[] = {
        {u"X", u"", u"", RuntimeError::SubscriptOutOfRange},
        {u"X/1", u"", u"", RuntimeError::SubscriptOutOfRange},
        {u"X/1/0", u"", u"", RuntimeError::SubscriptOutOfRange},
        {u"X/1/0/A", u"", u"", RuntimeError::SubscriptOutOfRange},
        {u"X/1/0/A,0,0,1", u"", u"", RuntimeError::SubscriptOutOfRange},
        {u"X/1/0/A,0,0,1,1;", u"", u"", RuntimeError::SubscriptOutOfRange},
        {u"X/1/0/A,0,0,1,1|", u"", u"", RuntimeError::SubscriptOutOfRange},
        {u"X/a/0/A,0,0,1,1", u"", u"", RuntimeError::TypeMismatch},
        {u"X//0/A,0,0,1,1", u"", u"", RuntimeError::TypeMismatch},
        {u"X/1/b/A,0,0,1,1", u"", u"", RuntimeError::TypeMismatch},
        {u"X/1/0/A,0,0,1,c", u"", u"", RuntimeError::TypeMismatch},
        {u"X/1/0/A,0,,1,1", u"", u"", RuntimeError::TypeMismatch},
        {u"X/1,5/0/A,0,0,1,1", u"", u"", RuntimeError::TypeMismatch},
        {u"X/nan/0/A,0,0,1,1", u"", u"", RuntimeError::TypeMismatch},
        {u"X/1/inf/A,0,0,1,1", u"", u"", RuntimeError::TypeMismatch},
        {u"X/1E999/0/A,0,0,1,1", u"", u"", RuntimeError::Overflow},
        {u"X/1/0/A,0,0,1,-1E999", u"", u"", RuntimeError::Overflow},
        {u"X/1/0/|x/1/0/", u"", u"", RuntimeError::DuplicateKey},
        {u"X/1/0/A,0,0,1,1;a,0,0,1,1", u"", u"", RuntimeError::DuplicateKey},
        {u"", u"Y/1/0", u"", RuntimeError::SubscriptOutOfRange},
        {u"", u"Y/1/0/A", u"", RuntimeError::SubscriptOutOfRange},
        {u"", u"Y/1/0/A,x", u"", RuntimeError::TypeMismatch},
        {u"", u"Y/1/0/A,1;A,2", u"", RuntimeError::DuplicateKey},
        {u"", u"Y/1/0/|y/1/0/", u"", RuntimeError::DuplicateKey},
        // The sum of the bounds is beyond the range before it is halved.
        {u"", u"Y/1E308/1E308/", u"", RuntimeError::Overflow},
        {u"", u"", u"a|A", RuntimeError::DuplicateKey},
        {u"", u"", u"|", RuntimeError::DuplicateKey},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(Narrow(Text(test.Inputs) + u" # " + test.Outputs + u" # " + test.Rules));
        EXPECT_EQ(Raised([&] { Parse(test.Inputs, test.Outputs, test.Rules); }),
                  PlatformError(test.Error));
    }
}

TEST_F(ParseDefinitionTest, ReportsTheFirstOfTwoFaults) {
    // A bad number before a missing field, a missing field before a bad number, a number before a
    // name that repeats.
    EXPECT_EQ(Raised([] { Parse(u"X/a", u"", u""); }), PlatformError(RuntimeError::TypeMismatch));
    EXPECT_EQ(Raised([] { Parse(u"X/1/0/A,0|Y/a/0/", u"", u""); }),
              PlatformError(RuntimeError::SubscriptOutOfRange));
    EXPECT_EQ(Raised([] { Parse(u"X/1/0/|X/1/0/A,x", u"", u""); }),
              PlatformError(RuntimeError::TypeMismatch));
}

TEST_F(ParseDefinitionTest, LeavesWhatWasBuiltBeforeAFault) {
    Parse(u"Old/1/0/", u"Old/1/0/", u"old");
    EXPECT_TRUE(Raised([] { Parse(u"A/1/0/|B/2/x/|C/3/0/", u"New/1/0/", u"new"); }));
    EXPECT_EQ(KeysOf(*State().InputVariables), std::vector<Text>{u"A"});
    EXPECT_TRUE(IsNumber(0, State().InputValues->Get(u"A")));
    EXPECT_TRUE(IsEmpty(State().InputValues->Get(u"Old")));
    EXPECT_EQ(KeysOf(*State().OutputVariables), std::vector<Text>{u"Old"});
    EXPECT_TRUE(IsNumber(0.5, State().DefaultOutputValues->Get(u"Old")));
    EXPECT_EQ(KeysOf(*State().RuleBase), std::vector<Text>{u"old"});

    EXPECT_TRUE(Raised([] { Parse(u"A/1/0/", u"P/1/0/|Q/1/0/x", u"new"); }));
    EXPECT_EQ(KeysOf(*State().OutputVariables), std::vector<Text>{u"P"});
    EXPECT_EQ(KeysOf(*State().RuleBase), std::vector<Text>{u"old"});
}

TEST_F(ParseDefinitionTest, LeavesTheVariablesWhoseTextDoesNotDecode) {
    Parse(u"Old/1/0/", u"Old/1/0/", u"old");
    const auto inputValues = State().InputValues;
    State().InputsText = u"xx";
    EXPECT_EQ(Raised(Main::ParseDefinition), PlatformError(RuntimeError::TypeMismatch));
    EXPECT_EQ(KeysOf(*State().InputVariables), std::vector<Text>{u"Old"});
    EXPECT_EQ(State().InputValues, inputValues);

    StoreTexts(u"New/1/0/", u"", u"");
    State().OutputsText = u"xx";
    EXPECT_EQ(Raised(Main::ParseDefinition), PlatformError(RuntimeError::TypeMismatch));
    EXPECT_EQ(KeysOf(*State().InputVariables), std::vector<Text>{u"New"});
    EXPECT_EQ(KeysOf(*State().OutputVariables), std::vector<Text>{u"Old"});
    EXPECT_TRUE(IsNumber(0.5, State().DefaultOutputValues->Get(u"Old")));

    StoreTexts(u"", u"", u"");
    State().RulesText = u"xx";
    EXPECT_EQ(Raised(Main::ParseDefinition), PlatformError(RuntimeError::TypeMismatch));
    EXPECT_TRUE(State().OutputVariables->Empty());
    EXPECT_EQ(KeysOf(*State().RuleBase), std::vector<Text>{u"old"});
}

TEST_F(ParseDefinitionTest, ReplacesTheDictionariesThatAHostHolds) {
    Parse(Inputs, Outputs, Rules);
    const auto held = State().InputValues;
    held->Put(u"Temp", 50.0);
    Main::ParseDefinition();
    EXPECT_NE(State().InputValues, held);
    EXPECT_TRUE(IsNumber(0, State().InputValues->Get(u"Temp")));
    EXPECT_TRUE(IsNumber(50, held->Get(u"Temp")));
}

TEST_F(ParseDefinitionTest, DoesNotTouchTheTextsNorTheCurrentError) {
    StoreTexts(Inputs, Outputs, Rules);
    const Text stored = State().InputsText;
    State().CurrentErrorId = 83;
    Main::ParseDefinition();
    EXPECT_EQ(State().InputsText, stored);
    EXPECT_EQ(State().CurrentErrorId, 83);
}

} // namespace
} // namespace Quorvane
