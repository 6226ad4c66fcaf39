// SPDX-License-Identifier: MIT
// Tests of the words and formulas.
#include "explain/Sentences.h"

#include <gtest/gtest.h>

#include "system/DefinitionTexts.h"

namespace Quorvane::Explain {
namespace {

using System::FromPlainTexts;

const System::FuzzySystem Tank = FromPlainTexts(
    {u"Level/100/0/Low,0,0,20,80;High,20,80,100,100|Inflow/10/0/Small,0,0,0,10;Large,0,10,10,10",
     u"Pump/1000/0/Off,0;Half,500;Full,1000",
     u"Level>Low;Inflow>Small/Pump<Off:1|Level>Low;Inflow>Large/Pump<Half:1|"
     u"Level>High;Inflow>Large/Pump<Full:0.5"});

TEST(RuleSentence, LeavesOutWhatTakesNoPart) {
    const System::FuzzySystem system =
        FromPlainTexts({u"X/1/0/A,0,0,1,1|U/1/0/B,0,0,1,1", u"Y/1/0/P,0|Z/1/0/Q,1",
                        u"X>A;U>[NONE]/Y<P;Z<Q:1|X>[NONE]/z<Q:-0.5|u>B/Y<[NONE]:0|/:1"});
    EXPECT_EQ(RuleSentence(system, system.Rules[0]), u"IF X IS A THEN Y IS P AND Z IS Q");
    EXPECT_EQ(RuleSentence(system, system.Rules[1]), u"ALWAYS z IS Q WITH -0.5");
    EXPECT_EQ(RuleSentence(system, system.Rules[2]), u"IF u IS B THEN nothing WITH 0");
    EXPECT_EQ(RuleSentence(system, system.Rules[3]), u"ALWAYS nothing");
}

TEST(Formulas, AreThoseOfTheGuide) {
    const Evaluation evaluation = Evaluate(Tank, {65, 10});
    EXPECT_EQ(StrengthFormula(Tank, evaluation, 2), u"0.5 x 0.75 x 1 = 0.375");
    EXPECT_EQ(OutputFormula(evaluation.Outputs[0]),
              u"(0.25 x 500 + 0.375 x 1000) / (0.25 + 0.375) = 500 / 0.625 = 800");
}

TEST(Formulas, AreCutShort) {
    OutputState output;
    output.Contributions.assign(14, {0, 0, -2, 1});
    output.Sum = {-28, 14};
    output.Value = -2;
    const Text formula = OutputFormula(output);
    EXPECT_TRUE(formula.starts_with(u"(1 x (-2) + 1 x (-2) + "));
    EXPECT_NE(formula.find(u" + ... 2 more) / (1 + "), Text::npos);
    EXPECT_TRUE(formula.ends_with(u" = -28 / 14 = -2"));
}

Text FirstBlocker(const System::FuzzySystem& system, const Reading& reading) {
    const Evaluation evaluation = Evaluate(system, reading);
    const auto blockers = BlockersOf(system, evaluation, evaluation.Outputs.at(0));
    return blockers.empty() ? Text(u"none") : BlockerSentence(system, evaluation, blockers.front());
}

TEST(Blockers, AreTheFirstThatMakeAStrengthZero) {
    EXPECT_EQ(FirstBlocker(Tank, {120, 10}), u"Level = 120 is outside 0 to 100");
    EXPECT_EQ(FirstBlocker(Tank, {50, -1}), u"Inflow = -1 is outside 0 to 10");
    EXPECT_EQ(FirstBlocker(Tank, {90, 5}), u"Level = 90 is not Low");
    EXPECT_EQ(FirstBlocker(Tank, {50, 5}), u"none");
    EXPECT_EQ(Evaluate(Tank, {120, 10}).Outputs[0].Value, 500);
    const auto zero = FromPlainTexts({u"X/1/0/A,0,0,1,1", u"Y/1/0/P,0", u"X>A/Y<P:0"});
    EXPECT_EQ(FirstBlocker(zero, {1}), u"its weight is 0");
    const auto tiny = FromPlainTexts({u"X/1/0/A,0,1,1,1", u"Y/1/0/P,0", u"X>A/Y<P:1E-300"});
    EXPECT_EQ(FirstBlocker(tiny, {1e-300}), u"its strength is too small for a number");
}

TEST(FailureSentence, NamesTheInputOrTheRule) {
    EXPECT_EQ(FailureSentence(Tank, *Evaluate(Tank, {65, std::nullopt}).Fault),
              u"the input Inflow has no value");
    const auto wide =
        FromPlainTexts({u"X/1E308/-1E308/A,-1E308,1E308,1E308,1E308", u"Y/1/0/P,0", u"X>A/Y<P:1"});
    EXPECT_EQ(FailureSentence(wide, *Evaluate(wide, {0}).Fault),
              u"a flank of the term A of the input X is wider than the largest number");
    const auto odd =
        FromPlainTexts({u"X/1/0/A,0,0,1,1", u"Y/1/0/P,0|Z/1/0/Q,1", u"X>A/Y<P:1|X>A/Y<P;Z<Q:1"});
    EXPECT_EQ(FailureSentence(odd, *Evaluate(odd, {0}).Fault),
              u"rule 2 names an output that the first rule does not name");
    const auto large =
        FromPlainTexts({u"X/1/0/A,0,0,1,1", u"Y/1/0/P,1E308", u"X>A/Y<P:1|X>A/Y<P:1.0"});
    EXPECT_EQ(FailureSentence(large, *Evaluate(large, {0}).Fault),
              u"a sum is beyond the range of numbers at rule 2");
}

TEST(CauseSentence, IsThereForEveryCause) {
    EXPECT_EQ(CauseSentence(Cause::NoRuleFires), u"no rule fires");
    EXPECT_EQ(CauseSentence(Cause::NoRuleChoosesTerm), u"no rule chooses a term of the output");
    EXPECT_EQ(CauseSentence(Cause::StrengthsCancel), u"the strengths of the rules sum to 0");
    EXPECT_EQ(CauseSentence(Cause::CycleFailed), u"the cycle failed");
    EXPECT_EQ(CauseSentence(Cause::NotInLastRule),
              u"the last rule does not name the output, so no cycle sets it");
}

} // namespace
} // namespace Quorvane::Explain
