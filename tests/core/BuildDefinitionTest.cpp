// SPDX-License-Identifier: MIT
// Tests of writing the definition texts.
#include "model/BuildDefinition.h"

#include "model/BuiltInDefinition.h"
#include "model/ParseDefinition.h"
#include "model/TransformText.h"
#include "tests/core/CoreTest.h"
#include "tests/core/TestPlatform.h"
#include "tests/reference/RandomSystem.h"

namespace Quorvane {
namespace {

using Definition::State;

class BuildDefinitionTest : public CoreTest {};

Text Plain(TextView stored) {
    return Main::TransformText(stored, false);
}

TEST_F(BuildDefinitionTest, WritesWhatWasRead) {
    struct Case {
        const char16_t* Inputs;
        const char16_t* Outputs;
        const char16_t* Rules;
    };
    const Case cases[] = {
        {u"", u"", u""},
        {u"Temp/100/0/Cold,0,0,10,40;Hot,30,60,100,100|Rate/1/-1/Low,-1,-1,-0.5,0;High,0,0.5,1,1",
         u"Valve/10/0/Shut,0;Half,5;Open,10",
         u"Temp>Cold;Rate>[NONE]/Valve<Open:1|Temp>Hot;Rate>High/Valve<Shut:0.5"},
        {u"X/1E+20/-1E-05/A,0.1,0.2,0.3,0.333333333333333", u"", u""},
        {u"", u"", u"anything at all"},
        {u"/1/0/,1,2,3,4", u"", u"|x"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(Narrow(test.Inputs));
        Parse(test.Inputs, test.Outputs, test.Rules);
        State().InputsText.clear();
        State().OutputsText.clear();
        State().RulesText.clear();
        Main::BuildDefinition();
        EXPECT_EQ(Plain(State().InputsText), test.Inputs);
        EXPECT_EQ(Plain(State().OutputsText), test.Outputs);
        EXPECT_EQ(Plain(State().RulesText), test.Rules);
    }
}

TEST_F(BuildDefinitionTest, WritesNumbersInTheFixedForm) {
    const TestPlatform german({}, u",");
    const PlatformInUse inUse(german);
    Parse(u"X/ +1.50 /-0/A,1e5,1D-5,.5,123456789012345678", u"Y/100E-2/0/B,0.1000", u"");
    Main::BuildDefinition();
    EXPECT_EQ(Plain(State().InputsText), u"X/1.5/0/A,100000,1E-05,0.5,1.23456789012346E+17");
    EXPECT_EQ(Plain(State().OutputsText), u"Y/1/0/B,0.1");
}

TEST_F(BuildDefinitionTest, WritesAVariableWithoutTermsThatDoesNotReadBack) {
    Parse(u"X/1/0/", u"", u"");
    Main::BuildDefinition();
    EXPECT_EQ(Plain(State().InputsText), u"X/1/0");
    EXPECT_EQ(Raised(Main::ParseDefinition), PlatformError(RuntimeError::SubscriptOutOfRange));

    Parse(u"X/1/0/|Y/2/0/A,0,0,1,1|Z/3/0/", u"O/1/0/|P/2/0/B,1", u"");
    Main::BuildDefinition();
    EXPECT_EQ(Plain(State().InputsText), u"X/1/0|Y/2/0/A,0,0,1,1|Z/3/0");
    EXPECT_EQ(Plain(State().OutputsText), u"O/1/0|P/2/0/B,1");
}

TEST_F(BuildDefinitionTest, WritesTheModelAsEdited) {
    Parse(u"X/1/0/A,0,0,1,1|Y/1/0/B,0,0,1,1", u"Z/1/0/C,1", u"r1|r2|r3");
    LinguisticVariable& x = State().InputVariables->At(u"X");
    x.UBound = 2.5;
    x.MF.At(u"A").Points[3] = 2;
    x.MF.Add(u"N", {u"N", {1, 1, 1, 1}});
    // The name that is written is the record's, not the key.
    State().InputVariables->Rekey(u"Y", u"Y2");
    State().OutputVariables->At(u"Z").Name = u"W";
    State().RuleBase->Remove(u"r2");
    State().RuleBase->Rekey(u"r3", u"r4");
    Main::BuildDefinition();
    EXPECT_EQ(Plain(State().InputsText), u"X/2.5/0/A,0,0,1,2;N,1,1,1,1|Y/1/0/B,0,0,1,1");
    EXPECT_EQ(Plain(State().OutputsText), u"W/1/0/C,1");
    EXPECT_EQ(Plain(State().RulesText), u"r1|r4");
}

TEST_F(BuildDefinitionTest, LeavesOutMinAndMax) {
    Parse(u"X/1/0/A,0,0,1,1", u"", u"");
    State().InputVariables->At(u"X").Min = -7;
    State().InputVariables->At(u"X").Max = 7;
    Main::BuildDefinition();
    EXPECT_EQ(Plain(State().InputsText), u"X/1/0/A,0,0,1,1");
}

TEST_F(BuildDefinitionTest, RaisesWhereThereIsNoModel) {
    EXPECT_EQ(Raised(Main::BuildDefinition), PlatformError(RuntimeError::ObjectNotSet));
    Parse(u"X/1/0/A,0,0,1,1", u"", u"");
    State().OutputVariables.reset();
    EXPECT_EQ(Raised(Main::BuildDefinition), PlatformError(RuntimeError::ObjectNotSet));
}

TEST_F(BuildDefinitionTest, RandomSystemsAreStableOnceWritten) {
    Reference::Random random(6);
    for (int i = 0; i < 500; ++i) {
        const Reference::SystemTexts texts = Reference::MakeSystem(random);
        Parse(texts.Inputs, texts.Outputs, texts.Rules);
        Main::BuildDefinition();
        const Text inputs = State().InputsText;
        const Text outputs = State().OutputsText;
        EXPECT_EQ(Plain(State().RulesText), texts.Rules);
        Main::ParseDefinition();
        Main::BuildDefinition();
        ASSERT_EQ(State().InputsText, inputs);
        ASSERT_EQ(State().OutputsText, outputs);
    }
}

TEST_F(BuildDefinitionTest, TheBuiltInSystemReadsAndWritesBack) {
    State().InputsText = Main::BuiltInInputs();
    State().OutputsText = Main::BuiltInOutputs();
    State().RulesText = Main::BuiltInRules();
    Main::ParseDefinition();
    EXPECT_EQ(State().InputVariables->Count(), 2U);
    EXPECT_EQ(State().OutputVariables->Count(), 1U);
    EXPECT_EQ(State().RuleBase->Count(), 9U);
    Main::BuildDefinition();
    EXPECT_EQ(State().InputsText, Main::BuiltInInputs());
    EXPECT_EQ(State().OutputsText, Main::BuiltInOutputs());
    EXPECT_EQ(State().RulesText, Main::BuiltInRules());
}

} // namespace
} // namespace Quorvane
