// SPDX-License-Identifier: MIT
// Tests of compiling the rule base.
#include "engine/PrepareRuleBase.h"

#include "engine/PreparedRules.h"
#include "tests/core/EngineTest.h"
#include "tests/core/TestValues.h"
#include "tests/reference/Evaluator.h"

namespace Quorvane {
namespace {

using Definition::State;

class PrepareRuleBaseTest : public EngineTest {};
QUORVANE_ON_BOTH_RUNNERS(PrepareRuleBaseTest);

TEST_P(PrepareRuleBaseTest, AnEmptyRuleBaseGivesNoOutputs) {
    Load(Ramp, Steps, u"");
    EXPECT_TRUE(Runner->OutputNames().empty());
    Runner->Infer();
    EXPECT_TRUE(Runner->OutputNames().empty());
}

TEST_P(PrepareRuleBaseTest, StartsOutputsAtTheirDefaultsInTheOrderOfRuleZero) {
    Load(Ramp, u"Y/16/0/P,0|Z/3/1/S,2|W/1/0/T,1", u"X>A/Z<S;Y<[NONE]:1|X>B/Y<P;W<T;Z<S:1");
    EXPECT_EQ(Runner->OutputNames(), (std::vector<Text>{u"Z", u"Y"}));
    EXPECT_TRUE(IsNumber(2, Output(u"Z")));
    EXPECT_TRUE(IsNumber(8, Output(u"Y")));
    EXPECT_TRUE(IsEmpty(Output(u"W")));
}

TEST_P(PrepareRuleBaseTest, TakesDefaultsAsTheyAre) {
    Parse(Ramp, u"Y/16/0/P,0|Z/3/1/S,2|W/1/0/T,1", u"X>A/Y<P;Z<S;W<T:1");
    State().DefaultOutputValues->Put(u"Y", Text(u"a text"));
    State().DefaultOutputValues->Put(u"Z", IntegerValue(7));
    State().DefaultOutputValues->Put(u"W", Value());
    Runner->PrepareRuleBase();
    EXPECT_EQ(Output(u"Y"), Value(Text(u"a text")));
    EXPECT_EQ(FixedText(Output(u"Z")), u"7");
    EXPECT_EQ(Runner->OutputNames(), (std::vector<Text>{u"Y", u"Z", u"W"}));
    EXPECT_TRUE(IsEmpty(Output(u"W")));
}

TEST_P(PrepareRuleBaseTest, ADefaultOfOtherCaseIsNone) {
    Load(Ramp, Steps, u"X>A/y<P:1");
    EXPECT_EQ(Runner->OutputNames(), std::vector<Text>{u"y"});
    EXPECT_TRUE(IsEmpty(Output(u"y")));
}

TEST_P(PrepareRuleBaseTest, ReadsAHostsDefaultsWithoutAddingToThem) {
    Parse(Ramp, Steps, u"X>A/Y<P:1");
    const auto defaults = std::make_shared<ForeignDictionary>(KeyComparison::Exact);
    State().DefaultOutputValues = defaults;
    Runner->PrepareRuleBase();
    EXPECT_TRUE(IsEmpty(Output(u"Y")));
    EXPECT_EQ(defaults->Count(), 0U);
}

TEST_P(PrepareRuleBaseTest, ResetsOutputsAndForgetsInputs) {
    Load(Ramp, Steps, u"X>A/Y<P:1|X>B/Y<R:1");
    EXPECT_TRUE(IsNumber(0, InferY(0.0)));
    // The point of a term changes, which only a preparation sees.
    State().OutputVariables->At(u"Y").MF.At(u"P").Points.fill(4);
    State().InputVariables->At(u"X").MF.At(u"A").Points = {0, 0, 0, 0};
    EXPECT_TRUE(IsNumber(0, InferY()));
    Runner->PrepareRuleBase();
    EXPECT_TRUE(IsNumber(8, Output(u"Y")));
    EXPECT_TRUE(IsNumber(4, InferY()));
}

struct BadRule {
    const char16_t* Rule;
    /// The message of the routine that last started.
    std::int32_t ErrorId;
};

TEST_P(PrepareRuleBaseTest, RaisesItsOwnErrorWhateverIsWrong) {
    const BadRule cases[] = {
        {u"X", 82},
        {u"X>A/Y<P", 82},
        {u":", 82},
        {u":1", 82},
        {u"X>A/Y<P:", 82},
        {u"X>A/Y<P:x", 82},
        {u"X>A/Y<P:1,5", 82},
        {u"X>A/Y<P:nan", 82},
        {u"X>A/Y<P:1E999", 82},
        {u"X>A:1", 82},
        {u"X/Y<P:1", 82},
        {u"X>A;/Y<P:1", 82},
        {u"X>A;;X>B/Y<P:1", 82},
        {u"X>A;X>B/Y<P:1", 82},
        {u"X>A/Y:1", 82},
        {u"X>A/Y>P:1", 82},
        {u"X>A/Y<P;Y<Q:1", 81},
        {u"X>A/Y<P;:1", 81},
        {u"X>A/Nowhere<P:1", 81},
        {u"X>A/Y<Nothing:1", 81},
        {u"X>A/Y<[none]:1", 81},
        {u"X>A/Y<:1", 81},
    };
    for (const BadRule& test : cases) {
        SCOPED_TRACE(Narrow(test.Rule));
        Parse(Ramp, Steps, test.Rule);
        EXPECT_EQ(RaisedByPrepare(), InvalidRule);
        EXPECT_EQ(Runner->CurrentErrorId(), test.ErrorId);
    }
}

TEST_P(PrepareRuleBaseTest, RaisesInTheLanguageOfTheUser) {
    Parse(Ramp, Steps, u"X");
    State().LanguageId = 2052;
    EXPECT_EQ(RaisedByPrepare(),
              (RaisedError{0x80040052, u"Quorvane 控制器", u"无效的语言规则。"}));
}

TEST_P(PrepareRuleBaseTest, RaisesWhereThereIsNoModelOrNoDefaults) {
    EXPECT_EQ(RaisedByPrepare(), InvalidRule);
    Parse(Ramp, Steps, u"X>A/Y<P:1");
    State().DefaultOutputValues = nullptr;
    EXPECT_EQ(RaisedByPrepare(), InvalidRule);
    Parse(Ramp, Steps, u"X>A/Y<P:1");
    State().OutputVariables.reset();
    EXPECT_EQ(RaisedByPrepare(), InvalidRule);
}

TEST_P(PrepareRuleBaseTest, KeepsTheFormerTablesWhenItFails) {
    Load(Ramp, Steps, u"X>A/Y<P:1|X>B/Y<R:1");
    EXPECT_TRUE(IsNumber(16, InferY(8.0)));
    State().RuleBase->Add(u"bad");
    EXPECT_EQ(RaisedByPrepare(), InvalidRule);
    EXPECT_TRUE(IsNumber(16, Output(u"Y")));
    EXPECT_TRUE(IsNumber(0, InferY(0.0)));
}

TEST_P(PrepareRuleBaseTest, SetsTheMessageOfTheRoutineThatLastStarted) {
    Load(Ramp, Steps, u"");
    EXPECT_EQ(Runner->CurrentErrorId(), 82);
    Load(Ramp, Steps, u"X>A/Y<P:1");
    EXPECT_EQ(Runner->CurrentErrorId(), 81);
    Load(Ramp, Steps, u"X>A/:1");
    EXPECT_EQ(Runner->CurrentErrorId(), 82);
}

TEST_P(PrepareRuleBaseTest, ReadsTheWeightUpToASecondColonAndTermsUpToASecondMark) {
    Load(Ramp, Steps, u"X>A>B/Y<P<R/more: 1 :x|X>B/Y<R:3");
    // A(4) = B(4) = 1/2: (0 * 1/2 + 16 * 3/2) / 2.
    EXPECT_TRUE(IsNumber(12, InferY(4.0)));
}

TEST_P(PrepareRuleBaseTest, ARuleMayHaveNoAntecedentsOrNoConsequents) {
    Load(Ramp, Steps, u"/Y<Q:1|X>A/:1|X>A/Y<R:1");
    // 8 * 1 + 16 * A(4), over 1 + A(4).
    EXPECT_TRUE(IsNumber(16 / 1.5, InferY(4.0)));
}

TEST(ConsequentPoint, IsThePositionOfTheSingleton) {
    Parse(u"", Steps, u"");
    struct Case {
        const char16_t* Output;
        const char16_t* Term;
        std::optional<double> Point;
    };
    const Case cases[] = {
        {u"Y", u"P", 0},
        {u"Y", u"R", 16},
        {u"y", u"q", 8},
        {u"Y", u"[NONE]", std::nullopt},
        {u"Nowhere", u"[NONE]", std::nullopt},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(RunTime::ConsequentPoint(test.Output, test.Term), test.Point);
        EXPECT_EQ(State().CurrentErrorId, 81);
    }
    Definition::Reset();
}

TEST(ConsequentPoint, RaisesForWhatTheModelLacks) {
    const auto raised = [](TextView output, TextView term) {
        return Raised([&] { RunTime::ConsequentPoint(output, term); });
    };
    Parse(u"", Steps, u"");
    EXPECT_EQ(raised(u"Nowhere", u"P"), InvalidOutputVariable);
    EXPECT_EQ(raised(u"Y", u"Nothing"), InvalidOutputVariable);
    EXPECT_EQ(raised(u"Y", u"[none]"), InvalidOutputVariable);
    EXPECT_EQ(raised(u"Y", u""), InvalidOutputVariable);
    Definition::Reset();
    EXPECT_EQ(raised(u"Y", u"P"), InvalidOutputVariable);
    EXPECT_EQ(RunTime::ConsequentPoint(u"Y", u"[NONE]"), std::nullopt);
    Definition::Reset();
}

/// What the tables of the plain evaluator hold.
class PlainTables : public CoreTest {
  protected:
    const Reference::Tables& Prepare(TextView rules) {
        Parse(u"X/8/0/A,0,0,2,6;B,2,6,8,8|U/1/0/T,0,0,1,1", u"Y/16/0/P,0;R,16|Z/3/1/S,2", rules);
        evaluator_.PrepareRuleBase();
        return evaluator_.Prepared;
    }

  private:
    Reference::Evaluator evaluator_;
};

TEST_F(PlainTables, OfAnEmptyRuleBaseAreEmpty) {
    const Reference::Tables& tables = Prepare(u"");
    EXPECT_EQ(tables.LastRule, -1);
    EXPECT_TRUE(tables.RuleWeights.empty());
    EXPECT_TRUE(tables.Antecedents.empty());
    EXPECT_TRUE(tables.Consequents.empty());
    EXPECT_TRUE(tables.UsedTerms.Empty());
    EXPECT_TRUE(tables.LastInputs.Empty());
    EXPECT_TRUE(tables.OutputValues.Empty());
}

TEST_F(PlainTables, HoldInputsOfAnyRuleAndOutputsOfRuleZero) {
    const Reference::Tables& tables =
        Prepare(u"X>A/Y<P:0.5|X>B;U>[NONE]/Y<[NONE];Z<S:2|x>A;U>T/Y<R:1");
    EXPECT_EQ(tables.LastRule, 2);
    EXPECT_EQ(tables.RuleWeights, (std::vector{0.5, 2.0, 1.0}));
    EXPECT_EQ(KeysOf(tables.UsedTerms), (std::vector<Text>{u"X", u"U", u"x"}));
    EXPECT_EQ(KeysOf(tables.UsedTerms.At(u"X")), (std::vector<Text>{u"A", u"B"}));
    EXPECT_EQ(KeysOf(tables.UsedTerms.At(u"U")), (std::vector<Text>{u"[NONE]", u"T"}));
    EXPECT_TRUE(SameBits(1, tables.UsedTerms.At(u"U").At(u"[NONE]")));
    EXPECT_TRUE(SameBits(1, tables.UsedTerms.At(u"X").At(u"A")));
    for (const auto& [input, last] : tables.LastInputs) {
        EXPECT_EQ(last, Value(Text(u"[EMPTY]")));
    }
    EXPECT_EQ(KeysOf(tables.OutputValues), std::vector<Text>{u"Y"});
    EXPECT_EQ(KeysOf(tables.Sums), std::vector<Text>{u"Y"});
    EXPECT_EQ(tables.Antecedents[1].At(u"U"), u"[NONE]");
    EXPECT_EQ(tables.Consequents[1].At(u"Y"), Value(Text(u"[NONE]")));
    EXPECT_EQ(tables.Consequents[1].At(u"Z"), Value(2.0));
}

/// What the engine's own tables hold of the same rule bases.
class EngineTables : public CoreTest {
  protected:
    const RunTime::RuleTables& Prepare(TextView rules) {
        Parse(u"X/8/0/A,0,0,2,6;B,2,6,8,8|U/1/0/T,0,0,1,1", u"Y/16/0/P,0;R,16|Z/3/1/S,2", rules);
        RunTime::PrepareRuleBase();
        return *State().Tables;
    }
};

TEST_F(EngineTables, OfAnEmptyRuleBaseAreEmpty) {
    const RunTime::RuleTables& tables = Prepare(u"");
    EXPECT_EQ(tables.RuleCount(), 0);
    EXPECT_TRUE(tables.UsedInputs.empty());
    EXPECT_TRUE(tables.UsedOutputs.empty());
    EXPECT_TRUE(tables.Antecedents.empty());
    EXPECT_TRUE(tables.Points.empty());
    EXPECT_TRUE(tables.LastRuleOutputs.empty());
    EXPECT_TRUE(State().OutputValues->Items.Empty());
}

TEST_F(EngineTables, HoldInputsOfAnyRuleAndOutputsOfRuleZero) {
    const RunTime::RuleTables& tables =
        Prepare(u"X>A/Y<P:0.5|X>B;U>[NONE]/Y<P;Z<S:2|x>A;U>T/Y<R:1");
    EXPECT_EQ(tables.Weights, (std::vector{0.5, 2.0, 1.0}));

    ASSERT_EQ(tables.UsedInputs.size(), 3);
    EXPECT_EQ(tables.UsedInputs[0].Name, u"X");
    EXPECT_EQ(tables.UsedInputs[0].Terms, (std::vector<Text>{u"A", u"B"}));
    EXPECT_EQ(tables.UsedInputs[1].Name, u"U");
    EXPECT_EQ(tables.UsedInputs[1].Terms, std::vector<Text>{u"T"}) << "[NONE] has no degree";
    EXPECT_EQ(tables.UsedInputs[2].Name, u"x");
    for (const RunTime::UsedInput& input : tables.UsedInputs) {
        EXPECT_EQ(input.LastInput, std::nullopt);
    }
    // Room for two terms of each input, and the one that is always 1.
    EXPECT_EQ(tables.Degrees, std::vector<double>(7, 1.0));

    ASSERT_EQ(tables.UsedOutputs.size(), 1);
    EXPECT_EQ(tables.UsedOutputs[0].Name, u"Y");
    EXPECT_EQ(KeysOf(State().OutputValues->Items), std::vector<Text>{u"Y"});
}

TEST_F(EngineTables, BringTheRulesOfEachOutputTogether) {
    const RunTime::RuleTables& tables = Prepare(u"X>A/Y<[NONE];Z<S:1|X>B/Y<R;Z<[NONE]:2|"
                                                u"U>T/Y<[NONE];Z<[NONE]:3|X>A/Z<S:4|X>B/Y<P:5");
    EXPECT_TRUE(tables.IsGroupedByOutput);
    EXPECT_EQ(tables.Weights, (std::vector{2.0, 5.0, 1.0, 4.0})) << "rule 2 says nothing";
    EXPECT_EQ(tables.Points, (std::vector{16.0, 0.0, 2.0, 2.0}));
    EXPECT_EQ(tables.Outputs, (std::vector<std::uint32_t>{0, 0, 1, 1}));
}

TEST_F(EngineTables, KeepTheOrderOfRulesThatSaySomethingOfSeveralOutputs) {
    const RunTime::RuleTables& tables = Prepare(u"X>A/Y<[NONE];Z<S:1|X>B/Y<R;Z<S:2|U>T/Y<P:3");
    EXPECT_FALSE(tables.IsGroupedByOutput);
    EXPECT_EQ(tables.Weights, (std::vector{1.0, 2.0, 3.0}));
}

TEST_F(EngineTables, AreNotEvenedOutForOneRuleOfVeryManyInputs) {
    // So many rules of so many inputs would be 2^32 antecedents, which 32 bits cannot tell from 0.
    constexpr int Count = 65536;
    Text rules = Listed(Count, u';', [](const Text& i) { return u"I" + i + u">A"; }) + u"/Y<P:1";
    for (int weight = 2; weight <= Count; ++weight) {
        rules += u"|I0>A/Y<P:" + Widen(std::to_string(weight));
    }
    const RunTime::RuleTables& tables = Prepare(rules);
    ASSERT_EQ(tables.RuleCount(), Count);
    EXPECT_EQ(tables.AntecedentsOf(0).size(), Count);
    EXPECT_EQ(tables.AntecedentsOf(Count - 1).size(), 1);
}

TEST_F(EngineTables, DoNotTakeOneRuleOfVeryManyOutputsForAll) {
    // Here 2^32 and the outputs of the first rule, which 32 bits cannot tell from these alone.
    constexpr int Count = 65536;
    const Text outputs = Listed(Count, u'|', [](const Text& i) { return u"O" + i + u"/1/0/P,0"; });
    Text rules =
        u"X>A/" + Listed(Count, u';', [](const Text& i) { return u"O" + i + u"<P"; }) + u":1";
    for (int weight = 2; weight <= Count + 1; ++weight) {
        rules += u"|X>A/O0<[NONE]:" + Widen(std::to_string(weight));
    }
    Parse(u"X/8/0/A,0,0,2,6", outputs, rules);
    RunTime::PrepareRuleBase();
    const RunTime::RuleTables& tables = *State().Tables;
    ASSERT_EQ(tables.RuleCount(), Count + 1);
    EXPECT_FALSE(tables.NamesEveryOutput);
}

} // namespace
} // namespace Quorvane
