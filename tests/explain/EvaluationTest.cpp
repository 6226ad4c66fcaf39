// SPDX-License-Identifier: MIT
// Tests of one cycle and of what is told of it.
#include "explain/Evaluation.h"

#include <gtest/gtest.h>

#include <limits>

#include "system/DefinitionTexts.h"

namespace Quorvane::Explain {
namespace {

constexpr TextView TankInputs = u"Level/100/0/Low,0,0,20,80;High,20,80,100,100|"
                                u"Inflow/10/0/Small,0,0,0,10;Large,0,10,10,10";
constexpr TextView TankOutputs = u"Pump/1000/0/Off,0;Half,500;Full,1000";
constexpr TextView TankRules = u"Level>Low;Inflow>Small/Pump<Off:1|Level>Low;Inflow>Large/"
                               u"Pump<Half:1|Level>High;Inflow>Large/Pump<Full:0.5";

System::FuzzySystem Tank() {
    return System::FromPlainTexts({Text(TankInputs), Text(TankOutputs), Text(TankRules)});
}

System::FuzzySystem OneInput(TextView rules, TextView outputs = u"Y/16/0/P,0;Q,8;R,16|Z/3/-1/S,1") {
    return System::FromPlainTexts(
        {u"X/8/0/A,0,0,2,6;B,2,6,8,8|U/1/0/T,0,0,1,1", Text(outputs), Text(rules)});
}

TEST(Evaluate, TellsDegreesStrengthsAndShares) {
    // Low 0.25, High 0.75, Large 1: (0.25 x 500 + 0.375 x 1000) / 0.625.
    const Evaluation tank = Evaluate(Tank(), {65, 10});
    EXPECT_EQ(tank.Fault.has_value(), false);
    EXPECT_EQ(tank.Inputs[0].Degrees, (std::vector<std::optional<double>>{0.25, 0.75}));
    EXPECT_EQ(tank.Inputs[1].Degrees, (std::vector<std::optional<double>>{0.0, 1.0}));
    EXPECT_EQ(tank.Strengths, (std::vector<double>{0, 0.25, 0.375}));
    const OutputState& pump = tank.Outputs.at(0);
    EXPECT_EQ(pump.Value, 800);
    EXPECT_EQ(pump.Cause, Cause::RulesFire);
    EXPECT_EQ(pump.Sum, (WeightedSum{500, 0.625}));
    ASSERT_EQ(pump.Contributions.size(), 2U);
    EXPECT_EQ(pump.Contributions[1].Rule, 2U);
    EXPECT_EQ(pump.Contributions[1].Term, 2U);
    EXPECT_EQ(pump.Contributions[1].Position, 1000);
    EXPECT_EQ(pump.Contributions[1].Strength, 0.375);
}

TEST(Evaluate, TellsWhyAnOutputIsItsDefault) {
    struct Case {
        const char16_t* Rules;
        double X;
        Explain::Cause Cause;
    };
    const Case cases[] = {
        {u"X>A/Y<P;Z<S:1", 9, Cause::NoRuleFires},
        {u"X>A/Y<P;Z<S:1", 7, Cause::NoRuleFires},
        {u"X>A/Y<P;Z<S:0", 1, Cause::NoRuleFires},
        {u"X>A/Y<[NONE];Z<S:1", 1, Cause::NoRuleChoosesTerm},
        {u"X>A/Y<P;Z<S:1|X>A/Y<Q;Z<S:-1", 1, Cause::StrengthsCancel},
        {u"X>A/Y<P;Z<S:1|X>A/Z<S:1", 1, Cause::NotInLastRule},
    };
    for (const Case& test : cases) {
        const Evaluation evaluation = Evaluate(OneInput(test.Rules), {test.X, 0});
        EXPECT_EQ(evaluation.Outputs[0].Value, 8);
        EXPECT_EQ(evaluation.Outputs[0].Cause, test.Cause);
        EXPECT_FALSE(evaluation.Fault);
    }
}

TEST(Evaluate, HasNoOutputsWithoutRules) {
    const Evaluation evaluation = Evaluate(OneInput(u""), {std::nullopt, std::nullopt});
    EXPECT_TRUE(evaluation.Outputs.empty());
    EXPECT_FALSE(evaluation.Fault);
    EXPECT_FALSE(evaluation.Inputs[0].IsUsed);
}

TEST(Evaluate, FailsForAUsedInputWithoutValue) {
    const System::FuzzySystem system = OneInput(u"X>A/Y<P;Z<S:1|X>B;U>[NONE]/Y<P;Z<S:1");
    const Evaluation noX = Evaluate(system, {std::nullopt, 0});
    ASSERT_TRUE(noX.Fault);
    EXPECT_EQ(noX.Fault->Kind, FailureKind::NoValue);
    EXPECT_EQ(noX.Fault->MessageId, 79);
    EXPECT_EQ(noX.Fault->Input, 0U);
    EXPECT_EQ(noX.Outputs[1].Value, 1);
    EXPECT_EQ(noX.Outputs[1].Cause, Cause::CycleFailed);
    // The control has come to the degrees of X by then, and shows their message.
    const Evaluation noU = Evaluate(system, {1, std::nullopt});
    ASSERT_TRUE(noU.Fault);
    EXPECT_EQ(noU.Fault->MessageId, 80);
    EXPECT_EQ(noU.Fault->Input, 1U);
    EXPECT_FALSE(Evaluate(OneInput(u"X>A/Y<P:1"), {1, std::nullopt}).Fault);
}

TEST(Evaluate, FailsOnAFlankWiderThanTheLargestDouble) {
    const auto system = System::FromPlainTexts(
        {u"X/1E308/-1E308/A,-1E308,1E308,1E308,1E308;B,0,0,1,1", u"Y/1/0/P,0", u"X>A/Y<P:1"});
    const Evaluation evaluation = Evaluate(system, {0});
    ASSERT_TRUE(evaluation.Fault);
    EXPECT_EQ(evaluation.Fault->Kind, FailureKind::FlankTooWide);
    EXPECT_EQ(evaluation.Fault->MessageId, 80);
    EXPECT_EQ(evaluation.Fault->Term, 0U);
    EXPECT_EQ(evaluation.Inputs[0].Degrees,
              (std::vector<std::optional<double>>{std::nullopt, 1.0}));
}

TEST(Evaluate, FailsBeyondTheRangeOfADouble) {
    const Evaluation evaluation =
        Evaluate(OneInput(u"X>A/Y<P:1|U>T/Y<P:1", u"Y/1E308/0/P,1E308"), {1, 1});
    ASSERT_TRUE(evaluation.Fault);
    EXPECT_EQ(evaluation.Fault->Kind, FailureKind::Overflow);
    EXPECT_EQ(evaluation.Fault->MessageId, 80);
    EXPECT_EQ(evaluation.Fault->Rule, 1U);
    EXPECT_EQ(evaluation.Outputs[0].Value, 5e307);
}

TEST(Evaluate, FailsForAnOutputThatTheFirstRuleDoesNotName) {
    const Evaluation evaluation = Evaluate(OneInput(u"X>A/Y<P:1|X>B/Z<S:1|X>B/Y<P:1"), {1, 0});
    ASSERT_TRUE(evaluation.Fault);
    EXPECT_EQ(evaluation.Fault->Kind, FailureKind::OutputNotInFirstRule);
    EXPECT_EQ(evaluation.Fault->Rule, 1U);
}

TEST(Evaluate, TakesNumbersThatAreNotFinite) {
    const System::FuzzySystem system = OneInput(u"X>A/Y<P:1");
    for (const double x :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        const Evaluation evaluation = Evaluate(system, {x, 0});
        EXPECT_EQ(evaluation.Outputs[0].Cause, Cause::NoRuleFires);
        EXPECT_EQ(evaluation.Outputs[0].Value, 8);
    }
}

} // namespace
} // namespace Quorvane::Explain
