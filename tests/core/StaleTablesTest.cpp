// SPDX-License-Identifier: MIT
// Tests of tables that are older than the model: after a parse or an edit without a preparation.
#include "model/ParseDefinition.h"
#include "tests/core/EngineTest.h"
#include "tests/core/TestValues.h"

namespace Quorvane {
namespace {

using Definition::State;

class StaleTablesTest : public EngineTest {};
QUORVANE_ON_BOTH_RUNNERS(StaleTablesTest);

TEST_P(StaleTablesTest, UseOldRulesAndPointsWithTheBoundsAndTermsOfANewModel) {
    Load(Ramp, Steps, u"X>A/Y<P:1|X>B/Y<R:1");
    InferY(3.0);
    // A second system: other rules, weights and singletons, and other terms of the same names.
    Parse(u"X/4/0/A,0,0,0,4;B,0,4,4,4", u"Y/100/0/P,50;R,90", u"X>A/Y<R:7");
    // X = 1: A 3/4, B 1/4 of the new terms; old points 0 and 16, old weights 1.
    EXPECT_TRUE(IsNumber(4, InferY(1.0)));
    // 5 is outside the new universe; the default is the new one.
    EXPECT_TRUE(IsNumber(50, InferY(5.0)));
    Runner->PrepareRuleBase();
    EXPECT_TRUE(IsNumber(90, InferY(1.0)));
}

TEST_P(StaleTablesTest, KeepDegreesOfAnInputWhoseTextIsTheSameInTheNewModel) {
    Load(Ramp, Steps, u"X>A/Y<P:1|X>B/Y<R:1");
    InferY(0.0);
    // The new X starts at 0 as well, so it is not fuzzified: A stays 1 though it lies elsewhere.
    Parse(u"X/4/0/A,4,4,4,4;B,0,0,4,4", u"Y/100/0/P,50;R,90", u"");
    EXPECT_TRUE(IsNumber(0, InferY()));
    EXPECT_TRUE(IsNumber(16, InferY(1.0)));
}

TEST_P(StaleTablesTest, FailTheCycleForANameThatTheModelNoLongerHas) {
    struct Case {
        const char16_t* Inputs;
        std::int32_t ErrorId;
    };
    const Case cases[] = {
        {u"", 79},
        {u"Z/8/0/A,0,0,2,6;B,2,6,8,8", 79},
        {u"X/8/0/", 80},
        {u"X/8/0/A,0,0,2,6", 80},
        {u"X/8/0/A,0,0,2,6;C,2,6,8,8", 80},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(Narrow(test.Inputs));
        Load(Ramp, Steps, u"X>A/Y<P:1|X>B/Y<R:1");
        InferY(3.0);
        Parse(test.Inputs, Steps, u"");
        Put(u"X", 99.0);
        EXPECT_EQ(RaisedByInfer(), InvalidInference) << "even for a value outside";
        EXPECT_EQ(Runner->CurrentErrorId(), test.ErrorId);
        // A model that has the names again works again.
        Parse(u"x/8/0/a,0,0,2,6;b,2,6,8,8", Steps, u"");
        EXPECT_TRUE(IsNumber(16, InferY(8.0)));
    }
}

TEST_P(StaleTablesTest, SeeEditsOfTheModelInPlace) {
    Load(Ramp, Steps, u"X>A/Y<P:1|X>B/Y<R:1");
    EXPECT_TRUE(IsNumber(8, InferY(4.0)));
    LinguisticVariable& x = State().InputVariables->At(u"X");
    x.MF.At(u"A").Points = {0, 0, 0, 8};
    // X = 6: A 1/4, B 1: 16 over 5/4.
    EXPECT_TRUE(IsNumber(16 / 1.25, InferY(6.0)));
    x.UBound = 5;
    EXPECT_TRUE(IsNumber(8, InferY(7.0)));
    x.LBound = 7;
    x.UBound = 9;
    EXPECT_TRUE(IsNumber(16, InferY(8.0)));
}

TEST_P(StaleTablesTest, NoticeTermsAndVariablesThatComeAndGo) {
    Load(Ramp, Steps, u"X>A/Y<P:1|X>B/Y<R:1");
    InferY(8.0);
    auto& terms = State().InputVariables->At(u"X").MF;
    const LinguisticTerm removed = terms.At(u"B");
    terms.Remove(u"B");
    Put(u"X", 7.0);
    EXPECT_EQ(RaisedByInfer(), InvalidInference);
    terms.Add(u"B", removed);
    EXPECT_TRUE(IsNumber(16, InferY(8.0)));
    terms.RemoveAll();
    Put(u"X", 7.0);
    EXPECT_EQ(RaisedByInfer(), InvalidInference);
    State().InputVariables->Remove(u"X");
    EXPECT_EQ(RaisedByInfer(), InvalidInference);
    EXPECT_EQ(Runner->CurrentErrorId(), 79);
}

TEST_P(StaleTablesTest, IgnoreEditsOfRulesAndOutputs) {
    Load(Ramp, Steps, u"X>A/Y<P:1|X>B/Y<R:1");
    State().RuleBase->RemoveAll();
    State().OutputVariables->At(u"Y").MF.RemoveAll();
    State().OutputVariables->RemoveAll();
    EXPECT_TRUE(IsNumber(16, InferY(8.0)));
}

TEST_P(StaleTablesTest, NoticeItemsAndDictionariesOfValuesThatComeAndGo) {
    Load(Ramp, Steps, u"X>A/Y<P:1|X>B/Y<R:1");
    EXPECT_TRUE(IsNumber(16, InferY(8.0)));
    auto& items = static_cast<OwnValueDictionary&>(*State().InputValues).Items;
    items.Remove(u"X");
    EXPECT_EQ(RaisedByInfer(), InvalidInference);
    EXPECT_TRUE(IsNumber(0, InferY(0.0)));
    items.Rekey(u"X", u"Z");
    EXPECT_EQ(RaisedByInfer(), InvalidInference);
    items.Rekey(u"Z", u"x");
    EXPECT_TRUE(IsNumber(16, InferY(7.0)));
    items.RemoveAll();
    EXPECT_EQ(RaisedByInfer(), InvalidInference);

    const auto host = std::make_shared<ForeignDictionary>(KeyComparison::IgnoreCase);
    State().InputValues = host;
    EXPECT_TRUE(IsNumber(0, InferY(1.0)));
    const auto own = std::make_shared<OwnValueDictionary>(KeyComparison::IgnoreCase);
    State().InputValues = own;
    EXPECT_EQ(RaisedByInfer(), InvalidInference);
    EXPECT_TRUE(IsNumber(16, InferY(8.0)));
    State().InputValues = host;
    EXPECT_TRUE(IsNumber(0, InferY()));
}

TEST_P(StaleTablesTest, OutliveTheControlThatEnds) {
    Load(Ramp, Steps, u"X>A/Y<P:1|X>B/Y<R:1");
    InferY(8.0);
    Definition::ReleaseModel();
    EXPECT_EQ(RaisedByInfer(), InvalidInference);
    EXPECT_EQ(Runner->CurrentErrorId(), 79);
    Main::ParseDefinition();
    if (GetParam().Make == MakeEngine) {
        // The outputs went with the model, and only a preparation makes new ones.
        Put(u"X", 0.0);
        EXPECT_EQ(RaisedByInfer(), InvalidInference);
        EXPECT_EQ(Runner->CurrentErrorId(), 80);
    }
    Runner->PrepareRuleBase();
    EXPECT_TRUE(IsNumber(16, InferY(8.0)));
}

TEST_P(StaleTablesTest, FailWithoutDefaultsOnlyWhereOneIsNeeded) {
    Load(Ramp, Steps, u"X>A/Y<P:1|X>B/Y<R:1");
    State().DefaultOutputValues = nullptr;
    EXPECT_TRUE(IsNumber(16, InferY(8.0)));
    Put(u"X", 9.0);
    EXPECT_EQ(RaisedByInfer(), InvalidInference);
}

} // namespace
} // namespace Quorvane
