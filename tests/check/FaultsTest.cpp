// SPDX-License-Identifier: MIT
// Tests of faults in single rules, variables and terms.
#include "check/Describe.h"
#include "tests/check/CheckTest.h"
#include "tests/reference/RandomSystem.h"

namespace Quorvane::Check {
namespace {

constexpr TextView Inputs = u"X/10/0/A,0,0,4,6;B,4,6,10,10";
constexpr TextView Outputs = u"Y/10/0/Lo,0;Hi,10";
constexpr TextView Rules = u"X>A/Y<Lo:1|X>B/Y<Hi:1";

TEST(Check, FindsNoFaultInASoundSystem) {
    EXPECT_EQ(Faults(CheckSystem(Read(Inputs, Outputs, Rules))), std::vector<FindingKind>{});
}

TEST(Check, OfNoRulesSaysThatThereAreNone) {
    const CheckResult result = CheckSystem(Read(Inputs, Outputs, u""));
    EXPECT_EQ(Faults(result), (std::vector{FindingKind::NoRules}));
    EXPECT_EQ(result.Highest(), Severity::Error);
    EXPECT_EQ(Faults(CheckSystem({})), (std::vector{FindingKind::NoRules}));
}

/// A system with one fault, and where it has to be found.
struct PlantedFault {
    FindingKind Kind;
    TextView Inputs;
    TextView Outputs;
    TextView Rules;
    Severity Level;
    std::optional<std::uint32_t> Input;
    std::optional<std::uint32_t> Output;
    std::optional<std::uint32_t> Term;
    std::vector<std::uint32_t> Rule;
    double Figure = 0;
};

const PlantedFault PlantedFaults[] = {
    {FindingKind::FailingRule,
     Inputs,
     u"Y/10/0/Lo,0;Hi,10|Z/1/0/On,1",
     u"X>A/Y<Lo:1|X>B/Y<Hi;Z<On:1",
     Severity::Error,
     {},
     1,
     {},
     {1}},
    // Outputs are kept by the exact name that the first rule writes.
    {FindingKind::FailingRule,
     Inputs,
     Outputs,
     u"X>A/Y<Lo:1|X>B/y<Hi:1|X>B/Y<Hi:0.5",
     Severity::Error,
     {},
     0,
     {},
     {1}},
    {FindingKind::OutputNotSet,
     Inputs,
     u"Y/10/0/Lo,0;Hi,10|Z/1/0/On,1",
     u"X>A/Y<Lo;Z<On:1|X>B/Y<Hi:1",
     Severity::Error,
     {},
     1,
     {},
     {}},
    {FindingKind::BoundsNotAscending,
     u"X/0/10/A,0,0,4,6;B,4,6,10,10",
     Outputs,
     Rules,
     Severity::Error,
     0,
     {},
     {},
     {}},
    {FindingKind::BoundsNotAscending,
     u"X/3/3/A,0,0,4,6;B,0,0,10,10",
     Outputs,
     Rules,
     Severity::Error,
     0,
     {},
     {},
     {}},
    {FindingKind::BoundsNotAscending,
     Inputs,
     u"Y/0/10/Lo,0;Hi,10",
     Rules,
     Severity::Error,
     {},
     0,
     {},
     {}},
    {FindingKind::PointsNotAscending,
     u"X/10/0/A,0,0,4,6;B,4,6,10,9",
     Outputs,
     Rules,
     Severity::Error,
     0,
     {},
     1,
     {}},
    {FindingKind::FlankTooWide,
     u"X/1E308/-1E308/A,-1E308,-1E308,-9E307,1.5E308;B,-1E308,0,1E308,"
     u"1E308",
     Outputs,
     Rules,
     Severity::Error,
     0,
     {},
     0,
     {}},
    {FindingKind::WeightZero,
     Inputs,
     Outputs,
     u"X>A/Y<Lo:1|X>B/Y<Hi:1|X>B/Y<Lo:0",
     Severity::Warning,
     {},
     {},
     {},
     {2}},
    {FindingKind::WeightOutOfRange,
     Inputs,
     Outputs,
     u"X>A/Y<Lo:1|X>B/Y<Hi:1.5",
     Severity::Warning,
     {},
     {},
     {},
     {1},
     1.5},
    {FindingKind::WeightOutOfRange,
     Inputs,
     Outputs,
     u"X>A/Y<Lo:1|X>B/Y<Hi:-0.5",
     Severity::Warning,
     {},
     {},
     {},
     {1},
     -0.5},
    // A single value outside the bounds; a term on the bound that ends there.
    {FindingKind::ConditionNeverHolds,
     u"X/10/0/A,0,0,4,6;B,4,6,10,10;C,11,11,11,11",
     Outputs,
     u"X>A/Y<Lo:1|X>B/Y<Hi:1|X>C/Y<Hi:1",
     Severity::Warning,
     0,
     {},
     2,
     {2}},
    {FindingKind::ConditionNeverHolds,
     u"X/10/0/A,0,0,4,6;B,4,6,10,10;C,10,11,12,13",
     Outputs,
     u"X>A/Y<Lo:1|X>B/Y<Hi:1|X>C/Y<Hi:1",
     Severity::Warning,
     0,
     {},
     2,
     {2}},
    {FindingKind::NoConclusion,
     Inputs,
     Outputs,
     u"X>A/Y<Lo:1|X>B/Y<[NONE]:1|X>B/Y<Hi:1",
     Severity::Warning,
     {},
     {},
     {},
     {1}},
    {FindingKind::UnusedVariable,
     u"X/10/0/A,0,0,4,6;B,4,6,10,10|U/1/0/S,0,0,1,1",
     Outputs,
     u"X>A;U>[NONE]/Y<Lo:1|X>B/Y<Hi:1",
     Severity::Warning,
     1,
     {},
     {},
     {}},
    {FindingKind::UnusedVariable,
     Inputs,
     u"Y/10/0/Lo,0;Hi,10|Z/1/0/On,1",
     u"X>A/Y<Lo;Z<[NONE]:1|X>B/Y<Hi;Z<[NONE]:1",
     Severity::Warning,
     {},
     1,
     {},
     {}},
    {FindingKind::UnusedTerm,
     u"X/10/0/A,0,0,4,6;B,4,6,10,10;C,1,2,3,4",
     Outputs,
     Rules,
     Severity::Warning,
     0,
     {},
     2,
     {}},
    {FindingKind::UnusedTerm,
     Inputs,
     u"Y/10/0/Lo,0;Mid,5;Hi,10",
     Rules,
     Severity::Warning,
     {},
     0,
     1,
     {}},
    {FindingKind::TermOutsideUniverse,
     u"X/10/0/A,0,0,4,6;B,4,6,10,10;C,-3,-2,-1,0",
     Outputs,
     Rules,
     Severity::Warning,
     0,
     {},
     2,
     {}},
    {FindingKind::PositionOutsideUniverse,
     Inputs,
     u"Y/10/0/Lo,0;Hi,12",
     Rules,
     Severity::Warning,
     {},
     0,
     1,
     {},
     12},
};

TEST(PlantedFault, IsFound) {
    for (const PlantedFault& planted : PlantedFaults) {
        SCOPED_TRACE(&planted - PlantedFaults);
        const auto found = Find(planted.Kind, planted.Inputs, planted.Outputs, planted.Rules);
        ASSERT_EQ(found.size(), 1U);
        EXPECT_EQ(found[0].Level, planted.Level);
        EXPECT_EQ(found[0].Input, planted.Input);
        EXPECT_EQ(found[0].Output, planted.Output);
        EXPECT_EQ(found[0].Term, planted.Term);
        EXPECT_EQ(found[0].Rules, planted.Rule);
        EXPECT_EQ(found[0].Figure, planted.Figure);
    }
}

TEST(Check, PutsErrorsFirstAndNotesLast) {
    const CheckResult result =
        CheckSystem(Read(u"X/10/0/A,0,0,4,6;B,5,6,10,9", Outputs, u"X>A/Y<Lo:0|X>B/Y<Hi:1"));
    EXPECT_EQ(result.Highest(), Severity::Error);
    EXPECT_TRUE(std::ranges::is_sorted(result.Findings, std::ranges::greater(), &Finding::Level));
    EXPECT_EQ(result.Findings.front().Level, Severity::Error);
    EXPECT_EQ(result.Findings.back().Level, Severity::Note);
}

TEST(Check, EndsForWhateverSystemThereIs) {
    for (std::uint64_t seed = 1; seed <= 300; ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        Reference::Random random(seed);
        const auto texts =
            Reference::MakeSystem(random, {.OddNames = 40, .OddOutputs = 40, .BadRules = 0});
        const System::FuzzySystem system = Read(texts.Inputs, texts.Outputs, texts.Rules);
        for (const Finding& finding : CheckSystem(system, {.Samples = 50}).Findings) {
            EXPECT_FALSE(Describe(system, finding).empty());
            EXPECT_TRUE(finding.Share >= 0);
        }
    }
    // The flank is as wide as no number, and no rule of Hi is alone.
    EXPECT_FALSE(CheckSystem(Read(u"X/1E308/-1E308/A,-1E308,-1E308,-9E307,1.5E308", Outputs,
                                  u"X>A/Y<Lo:1|X>A/Y<Hi:0.5"))
                     .Findings.empty());
}

TEST(UncoveredUniverse, IsWhereNoTermHolds) {
    const auto found = Find(FindingKind::UncoveredUniverse,
                            u"X/100/0/A,0,0,20,40;B,60,80,90,90|U/10/0/S,0,5,5,10;T,0,10,10,10",
                            Outputs, u"X>A;U>S/Y<Lo:1|X>B;U>T/Y<Hi:1");
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].Input, 0U);
    EXPECT_EQ(found[0].Region, (std::vector<Range>{{40, 60}}));
    EXPECT_EQ(found[0].Example, (std::vector<double>{50}));
    EXPECT_EQ(found[0].Count, 2U);
    EXPECT_DOUBLE_EQ(found[0].Share, 0.3);
    // The foot on a bound leaves out the bound itself.
    EXPECT_EQ(found[1].Input, 1U);
    EXPECT_EQ(found[1].Region, (std::vector<Range>{{0, 0}}));
    EXPECT_EQ(found[1].Share, 0);
}

TEST(Check, TakesTermsThatReachBeyondTheUniverse) {
    EXPECT_EQ(Faults(CheckSystem(Read(u"X/10/0/A,-20,-10,4,6;B,4,6,15,20", Outputs, Rules))),
              std::vector<FindingKind>{});
}

TEST(Check, TakesRulesThatNameSomeVariablesOnly) {
    EXPECT_EQ(Faults(CheckSystem(Read(u"X/10/0/A,0,0,4,6;B,4,6,10,10|U/1/0/S,0,0,0.2,1;T,0,1,1,1",
                                      Outputs, u"U>S;X>A/Y<Lo:1|X>B/Y<Hi:1|X>A;U>T/Y<Hi:1"))),
              std::vector<FindingKind>{});
}

} // namespace
} // namespace Quorvane::Check
