// SPDX-License-Identifier: MIT
// Tests of the rules, the sums and the outputs of a cycle.
#include "engine/Infer.h"

#include <cmath>
#include <limits>

#include "engine/PrepareRuleBase.h"
#include "tests/core/EngineTest.h"
#include "tests/core/TestValues.h"

namespace Quorvane {
namespace {

using Definition::State;

class InferTest : public EngineTest {};
QUORVANE_ON_BOTH_RUNNERS(InferTest);

TEST_P(InferTest, WeighsTheSingletonsByTheStrengthOfTheirRules) {
    Load(Ramp, Steps, u"X>A/Y<P:1|X>B/Y<R:0.5");
    struct Case {
        double X;
        double Y;
    };
    const Case cases[] = {
        {0, 0},
        {2, 0},
        // A = 3/4, B = 1/4: 16 * 1/8 over 3/4 + 1/8.
        {3, 2 / 0.875},
        // 1/2 and 1/2: 16 * 1/4 over 3/4.
        {4, 4 / 0.75},
        {6, 16},
        {8, 16},
    };
    for (const Case& test : cases) {
        EXPECT_TRUE(IsNumber(test.Y, InferY(test.X))) << test.X;
    }
}

TEST_P(InferTest, MultipliesTheDegreesOfAllAntecedents) {
    Load(u"X/8/0/A,0,0,2,6;B,2,6,8,8|U/4/0/C,0,0,0,4;D,0,4,4,4", Steps,
         u"X>A;U>C/Y<P:1|X>A;U>D/Y<Q:1|X>B;U>[NONE]/Y<R:1");
    Put(u"U", 1.0);
    // X = 3: A 3/4, B 1/4; U = 1: C 3/4, D 1/4. Strengths 9/16, 3/16, 1/4 = 4/16.
    EXPECT_TRUE(IsNumber((3 * 8 + 4 * 16) / 16.0, InferY(3.0)));
}

TEST_P(InferTest, AValueAtABoundIsInsideAndOneStepBeyondBelongsToNoTerm) {
    Load(Ramp, u"Y/16/0/P,0;R,16", u"X>A/Y<P:1|X>B/Y<R:1");
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    struct Case {
        double X;
        double Y;
    };
    const Case cases[] = {
        {0, 0},
        {-0.0, 0},
        {8, 16},
        // No rule fires, so the default of 8.
        {std::nextafter(0, -1), 8},
        {std::nextafter(8, 9), 8},
        {-1000, 8},
        {1000, 8},
        {Infinity, 8},
        {-Infinity, 8},
        {std::numeric_limits<double>::quiet_NaN(), 8},
    };
    for (const Case& test : cases) {
        EXPECT_TRUE(IsNumber(test.Y, InferY(test.X))) << test.X;
    }
}

TEST_P(InferTest, ARuleOfWeightZeroNeverContributes) {
    Load(Ramp, Steps, u"X>A/Y<R:0|X>A/Y<P:1|X>B/Y<R:0");
    EXPECT_TRUE(IsNumber(0, InferY(0.0)));
    EXPECT_TRUE(IsNumber(0, InferY(4.0)));
    EXPECT_TRUE(IsNumber(8, InferY(8.0)));
    Load(Ramp, Steps, u"X>A/Y<P:0|X>B/Y<R:0");
    for (const double x : {0.0, 4.0, 8.0}) {
        EXPECT_TRUE(IsNumber(8, InferY(x)));
    }
}

TEST_P(InferTest, AWeightMayBeNegative) {
    Load(Ramp, Steps, u"X>A/Y<P:1|X>B/Y<R:-0.5");
    // 1/2 and -1/4: 16 * -1/4 over 1/4.
    EXPECT_TRUE(IsNumber(-16, InferY(4.0)));
    Load(Ramp, Steps, u"X>A/Y<P:1|X>A/Y<R:-1");
    EXPECT_TRUE(IsNumber(8, InferY(0.0))) << "the sum of the strengths is 0";
}

TEST_P(InferTest, OneRuleBothResetsAndFinishes) {
    Load(Ramp, Steps, u"X>B/Y<R:1");
    EXPECT_TRUE(IsNumber(16, InferY(8.0)));
    EXPECT_TRUE(IsNumber(8, InferY(0.0)));
    EXPECT_TRUE(IsNumber(16, InferY(7.0)));
}

TEST_P(InferTest, ConsequentsOfNoneSayNothingOfTheirOutput) {
    Load(Ramp, u"Y/16/0/P,0;R,16|Z/3/1/S,3", u"X>A/Y<P;Z<[NONE]:1|X>B/Y<[NONE];Z<S:1");
    EXPECT_TRUE(IsNumber(0, InferY(0.0)));
    EXPECT_TRUE(IsNumber(2, Output(u"Z")));
    EXPECT_TRUE(IsNumber(8, InferY(8.0)));
    EXPECT_TRUE(IsNumber(3, Output(u"Z")));
    Load(Ramp, Steps, u"X>A/Y<[NONE]:1");
    EXPECT_TRUE(IsNumber(8, InferY(0.0)));
}

TEST_P(InferTest, AnOutputThatTheLastRuleOmitsKeepsItsFormerValue) {
    Load(Ramp, u"Y/16/0/P,0;R,16|Z/3/1/S,3", u"X>A/Y<P;Z<S:1|X>B/Y<R:1");
    Runner->Infer();
    EXPECT_TRUE(IsNumber(0, Output(u"Y")));
    EXPECT_TRUE(IsNumber(2, Output(u"Z")));
    EXPECT_TRUE(IsNumber(16, InferY(8.0)));
    EXPECT_TRUE(IsNumber(2, Output(u"Z")));
}

TEST_P(InferTest, ARuleThatNamesAnOutputOfItsOwnFailsTheCycle) {
    struct Case {
        const char16_t* Rules;
        /// What is left in Y: its default, or a value written before the failure.
        double Y;
    };
    const Case cases[] = {
        {u"X>A/Y<P:1|X>A/Z<S:1|X>A/Y<P:1.0", 8},
        // Though the rule does not fire.
        {u"X>A/Y<P:1|X>B/Z<S:1|X>A/Y<P:1.0", 8},
        // Saying nothing of it is noticed by the last rule alone, after it has set Y.
        {u"X>A/Y<P:1|X>A/Y<P;Z<[NONE]:1", 0},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(Narrow(test.Rules));
        Load(Ramp, u"Y/16/0/P,0|Z/3/1/S,3", test.Rules);
        EXPECT_EQ(RaisedByInfer(), InvalidInference);
        EXPECT_EQ(Runner->OutputNames(), std::vector<Text>{u"Y"});
        EXPECT_TRUE(IsNumber(test.Y, Output(u"Y")));
    }
    Load(Ramp, u"Y/16/0/P,0|Z/3/1/S,3", u"X>A/Y<P:1|X>A/Y<P;Z<[NONE]:1|X>A/Y<P:1.0");
    EXPECT_EQ(RaisedByInfer(), Nothing);
}

TEST_P(InferTest, NamesInRulesAreTakenInEitherCaseAndKeptApart) {
    Load(Ramp, Steps, u"x>a/Y<p:1|X>A/Y<r:1|X>b/Y<Q:1");
    EXPECT_TRUE(IsNumber(8, InferY(0.0)));
    EXPECT_TRUE(IsNumber(8, InferY(8.0)));
    Load(Ramp, Steps, u"X>A/Y<P:1|X>B/y<R:1");
    EXPECT_EQ(RaisedByInfer(), InvalidInference);
}

TEST_P(InferTest, AnOutputInOtherCaseHasNoDefault) {
    Load(Ramp, Steps, u"X>B/y<R:1");
    EXPECT_EQ(RaisedByInfer(), Nothing);
    EXPECT_TRUE(IsEmpty(Output(u"y")));
    InferY(8.0);
    EXPECT_TRUE(IsNumber(16, Output(u"y")));
}

TEST_P(InferTest, TakesADefaultAsItIs) {
    Parse(Ramp, Steps, u"X>B/Y<R:1");
    State().DefaultOutputValues->Put(u"Y", Text(u"none"));
    Runner->PrepareRuleBase();
    EXPECT_EQ(InferY(0.0), Value(Text(u"none")));
    EXPECT_TRUE(IsNumber(16, InferY(8.0)));
    EXPECT_EQ(InferY(0.0), Value(Text(u"none")));
    const auto host = std::make_shared<ForeignDictionary>(KeyComparison::Exact);
    State().DefaultOutputValues = host;
    EXPECT_TRUE(IsEmpty(InferY(1.0)));
    host->Put(u"Y", IntegerValue(3));
    EXPECT_EQ(FixedText(InferY(0.0)), u"3");
    EXPECT_EQ(host->Count(), 1U);
}

TEST_P(InferTest, AResultBeyondTheRangeFailsTheCycle) {
    struct Case {
        const char16_t* Outputs;
        const char16_t* Rules;
    };
    const Case cases[] = {
        // A product, a sum of products, a sum of strengths, and a quotient.
        {u"Y/1E308/0/P,1E308", u"X>A/Y<P:1E10"},
        {u"Y/1E308/0/P,1E308", u"X>A/Y<P:1|X>A/Y<P:0.9"},
        {u"Y/1/0/P,1E-10", u"X>A/Y<P:1E308|X>A/Y<P:9E307"},
        {u"Y/1E308/0/P,1E308;Q,1", u"X>A/Y<P:1|X>A/Y<Q:-0.9999999999999999"},
        // A sum that comes back into the range has left it all the same.
        {u"Y/1E308/-1E307/P,1E308;Q,-1E307",
         u"X>A/Y<P:1|X>A/Y<P:0.9|X>A/Y<Q:5|X>A/Y<Q:5.5|X>A/Y<Q:6"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(Narrow(test.Rules));
        Load(Ramp, test.Outputs, test.Rules);
        const Value before = Output(u"Y");
        EXPECT_EQ(RaisedByInfer(), InvalidInference);
        EXPECT_TRUE(SameValue(before, Output(u"Y")));
        // The message is that of the routine that last started.
        EXPECT_EQ(Runner->CurrentErrorId(), 80);
        EXPECT_EQ(RaisedByInfer(), InvalidInference);
        EXPECT_EQ(Runner->CurrentErrorId(), 79);
        // Outside, nothing fires and nothing fails.
        EXPECT_TRUE(SameValue(State().DefaultOutputValues->Get(u"Y"), InferY(9.0)));
    }
}

TEST_P(InferTest, SetsTheMessageOfTheRoutineThatLastStarted) {
    Load(Ramp, Steps, u"X>A/Y<P:1");
    Runner->Infer();
    EXPECT_EQ(Runner->CurrentErrorId(), 80);
    Runner->Infer();
    EXPECT_EQ(Runner->CurrentErrorId(), 79) << "nothing was fuzzified";
    Load(Ramp, Steps, u"X>[NONE]/Y<P:1");
    Runner->Infer();
    EXPECT_EQ(Runner->CurrentErrorId(), 80);
    Load(Ramp, Steps, u"/Y<P:1");
    Runner->Infer();
    EXPECT_EQ(Runner->CurrentErrorId(), 79);
    Load(Ramp, Steps, u"");
    Runner->Infer();
    EXPECT_EQ(Runner->CurrentErrorId(), 79);
}

TEST_P(InferTest, AnUnpreparedRuleBaseIsAnEmptyOne) {
    Runner->Infer();
    EXPECT_EQ(Runner->CurrentErrorId(), 79);
    Parse(Ramp, Steps, u"X>A/Y<P:1");
    Runner->Infer();
    EXPECT_TRUE(Runner->OutputNames().empty());
    EXPECT_EQ(Runner->CurrentErrorId(), 79);
}

TEST_P(InferTest, GivesTheSameAgainWhenNothingChanges) {
    Load(Ramp, u"Y/16/0/P,0;R,16|Z/3/1/S,3", u"X>A/Y<P;Z<[NONE]:1|X>B/Y<R;Z<[NONE]:0.5");
    const Value first = InferY(3.0);
    EXPECT_TRUE(SameValue(first, InferY()));
    State().DefaultOutputValues->Put(u"Z", 1.25);
    EXPECT_TRUE(SameValue(first, InferY()));
    EXPECT_TRUE(IsNumber(1.25, Output(u"Z"))) << "the default is read in every cycle";
}

TEST_P(InferTest, AddsStrengthsInRuleOrderAndMultipliesInTextOrder) {
    // 1 + 1E16 - 1E16 is 0 from the left and 1 from the right; the third rule fires first only if
    // the order is not kept.
    Load(Ramp, u"Y/1/0/P,1;Q,-1", u"X>A/Y<P:1|X>A/Y<P:1E16|X>A/Y<Q:1E16|X>A/Y<P:0.5");
    EXPECT_TRUE(IsNumber(0.5 / (1 + 1e16 + 1e16 + 0.5), InferY(0.0)));
    // A degree of 1/3 and one of 0.7 times 0.1 differ in the last bit by their order.
    Load(u"X/3/0/A,0,3,3,3|U/10/0/B,0,10,10,10", u"Y/1/0/P,1|Z/1/0/S,0.3",
         u"X>A;U>B/Y<P;Z<S:0.1|U>B;X>A/Y<P;Z<S:0.1");
    Put(u"U", 7.0);
    InferY(1.0);
    const double first = 0.1 * (1 / 3.0) * (7 / 10.0);
    const double second = 0.1 * (7 / 10.0) * (1 / 3.0);
    EXPECT_TRUE(IsNumber((first * 0.3 + second * 0.3) / (first + second), Output(u"Z")));
}

class OutputValuesTest : public CoreTest {
  protected:
    static void InferAt(double x) {
        State().InputValues->Put(u"X", x);
        RunTime::Infer();
    }
};

TEST_F(OutputValuesTest, AreTheOnesThatAHostHoldsUntilAPreparation) {
    Parse(Ramp, Steps, u"X>A/Y<P:1|X>B/Y<R:1");
    RunTime::PrepareRuleBase();
    const auto held = State().OutputValues;
    InferAt(8);
    EXPECT_TRUE(IsNumber(16, held->Get(u"Y")));
    RunTime::PrepareRuleBase();
    EXPECT_NE(State().OutputValues, held);
    InferAt(0);
    EXPECT_TRUE(IsNumber(16, held->Get(u"Y")));
    EXPECT_TRUE(IsNumber(0, State().OutputValues->Get(u"Y")));
}

TEST_F(OutputValuesTest, AreWrittenWhateverAHostDoesToThem) {
    Parse(Ramp, Steps, u"X>A/Y<P:1|X>B/Y<R:1");
    RunTime::PrepareRuleBase();
    auto& values = *State().OutputValues;
    InferAt(8);
    values.Put(u"Y", Text(u"mine"));
    values.Put(u"Other", 1.0);
    RunTime::Infer();
    EXPECT_TRUE(IsNumber(16, values.Get(u"Y")));
    EXPECT_TRUE(IsNumber(1, values.Get(u"Other")));
    values.Items.Rekey(u"Y", u"Z");
    InferAt(0);
    EXPECT_TRUE(IsNumber(0, values.Get(u"Y")));
    EXPECT_TRUE(IsNumber(16, values.Get(u"Z")));
    values.Items.RemoveAll();
    RunTime::Infer();
    EXPECT_TRUE(IsNumber(0, values.Get(u"Y")));
    EXPECT_EQ(KeysOf(values.Items), std::vector<Text>{u"Y"});
}

using ManyOutputsTest = CoreTest;

constexpr int ManyOutputs = 20000;

/// Prepares a system of so many outputs, where every other one is at its default after a cycle.
void PrepareManyOutputs() {
    const Text outputs =
        Listed(ManyOutputs, u'|', [](const Text& i) { return u"O" + i + u"/4/0/P,3"; });
    const Text consequents = Listed(ManyOutputs, u';', [](const Text& i) {
        return u"O" + i + ((i.back() - u'0') % 2 == 0 ? u"<P" : u"<[NONE]");
    });
    Parse(u"X/8/0/A,0,0,8,8", outputs, u"X>A/" + consequents + u":1");
    RunTime::PrepareRuleBase();
}

/// It would take minutes to look all names up again for each of them.
TEST_F(ManyOutputsTest, ComeBackWhenAHostHasRemovedThem) {
    PrepareManyOutputs();
    State().OutputValues->Items.RemoveAll();
    RunTime::Infer();
    ASSERT_EQ(State().OutputValues->Items.Count(), ManyOutputs);
    EXPECT_TRUE(IsNumber(3, State().OutputValues->Get(u"O0")));
    EXPECT_TRUE(IsNumber(2, State().OutputValues->Get(u"O19999")));
}

TEST_F(ManyOutputsTest, ComeBackWithTheDefaultsOfAHost) {
    PrepareManyOutputs();
    const auto defaults = std::make_shared<ForeignDictionary>(KeyComparison::Exact);
    for (const auto& [name, value] : State().OutputValues->Items) {
        defaults->Put(name, 1.5);
    }
    State().DefaultOutputValues = defaults;
    State().OutputValues->Items.RemoveAll();
    RunTime::Infer();
    ASSERT_EQ(State().OutputValues->Items.Count(), ManyOutputs);
    EXPECT_TRUE(IsNumber(3, State().OutputValues->Get(u"O0")));
    EXPECT_TRUE(IsNumber(1.5, State().OutputValues->Get(u"O19999")));
}

TEST_F(ManyOutputsTest, FollowAHostThatChangesThemAmongItsDefaults) {
    Parse(Ramp, u"Y/4/0/P,3|Z/4/0/P,3", u"X>B/Y<P;Z<P:1");
    RunTime::PrepareRuleBase();
    const auto defaults =
        std::make_shared<ForeignDictionary>(KeyComparison::Exact, [](TextView key) {
            auto& outputs = State().OutputValues->Items;
            if (key == u"Z" && !outputs.Exists(u"Former")) {
                outputs.Rekey(u"Y", u"Former");
                State().OutputValues->Put(u"Z", Text(u"mine"));
            }
        });
    defaults->Put(u"Y", 1.0);
    defaults->Put(u"Z", 2.0);
    State().DefaultOutputValues = defaults;
    State().OutputValues->Items.RemoveAll();
    State().InputValues->Put(u"X", 0.0);
    RunTime::Infer();
    EXPECT_EQ(KeysOf(State().OutputValues->Items), (std::vector<Text>{u"Former", u"Z"}));
    EXPECT_TRUE(IsNumber(2, State().OutputValues->Get(u"Z")));
    RunTime::Infer();
    EXPECT_TRUE(IsNumber(1, State().OutputValues->Get(u"Y")));
}

} // namespace
} // namespace Quorvane
