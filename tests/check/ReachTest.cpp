// SPDX-License-Identifier: MIT
// Tests of which part of their universes outputs reach.
#include "check/FindReach.h"
#include "check/RuleTable.h"
#include "tests/check/CheckTest.h"
#include "tests/reference/RandomSystem.h"

namespace Quorvane::Check {
namespace {

constexpr TextView Inputs = u"X/10/0/A,0,0,4,6;B,4,6,10,10";

TEST(Reach, EndsWhereThePositionsDo) {
    const auto found =
        Find(FindingKind::RangeNotReached, Inputs, u"Y/10/-10/Lo,0;Hi,7", u"X>A/Y<Lo:1|X>B/Y<Hi:1");
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].Output, 0U);
    EXPECT_EQ(found[0].Figure, 10);
    EXPECT_EQ(found[0].Region, (std::vector<Range>{{0, 7}}));
    EXPECT_GE(found[0].Example[0], 6);
    EXPECT_TRUE(found[0].IsExact);
    EXPECT_EQ(found[1].Figure, -10);
    EXPECT_LE(found[1].Example[0], 4);
}

TEST(Reach, EndsWhereRulesAlwaysFireTogether) {
    // The rule of Hi fires with 1 at most, that of Lo always with 0.25: (10 + 0) / 1.25.
    const auto found = Find(FindingKind::RangeNotReached, Inputs, u"Y/10/0/Lo,0;Hi,10",
                            u"X>[NONE]/Y<Lo:0.25|X>B/Y<Hi:1");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].Figure, 10);
    EXPECT_EQ(found[0].Region, (std::vector<Range>{{0, 8}}));
    EXPECT_TRUE(found[0].IsExact);
    EXPECT_GE(found[0].Example[0], 6);
}

TEST(Reach, IsWholeWhereARuleFiresAloneAnywhere) {
    // Below 4.5 the flank of the first is alone, with next to no strength.
    EXPECT_TRUE(Find(FindingKind::RangeNotReached, u"X/10/0/A,4,6,10,10;B,4.5,4.5,10,10",
                     u"Y/10/0/Lo,0;Hi,10", u"X>A/Y<Hi:1|X>B/Y<Lo:1")
                    .size() == 1U);
    EXPECT_TRUE(Find(FindingKind::RangeNotReached, u"X/10/0/A,0,10,10,10;B,0,0,0,10",
                     u"Y/10/0/Lo,0;Hi,10", u"X>A/Y<Hi:0.3|X>B/Y<Lo:0.7")
                    .empty());
}

TEST(Reach, IsSampledWhereWeightsAreNegative) {
    const auto found = Find(FindingKind::RangeNotReached, Inputs, u"Y/10/-10/Lo,0;Hi,7",
                            u"X>A/Y<Lo:1|X>B/Y<Hi:-1");
    ASSERT_EQ(found.size(), 2U);
    EXPECT_FALSE(found[0].IsExact);
}

TEST(Reach, IsSampledWhenTheStepsAreUsedUp) {
    const auto found = Find(FindingKind::RangeNotReached, Inputs, u"Y/10/0/Lo,0;Hi,10",
                            u"X>[NONE]/Y<Lo:0.25|X>B/Y<Hi:1", {.Steps = 2});
    ASSERT_EQ(found.size(), 1U);
    EXPECT_FALSE(found[0].IsExact);
    EXPECT_EQ(found[0].Region, (std::vector<Range>{{0, 8}}));
}

/// No value that random points give lies beyond what is said to be reached.
TEST(Reach, HoldsAllValuesOfRandomPoints) {
    const Reference::SystemLimits limits{.Inputs = 3,
                                         .Terms = 3,
                                         .Outputs = 1,
                                         .Rules = 8,
                                         .OddNames = 0,
                                         .OddOutputs = 0,
                                         .BadRules = 0};
    int compared = 0;
    int found = 0;
    for (std::uint64_t seed = 1; seed <= 800 && !HasFailure(); ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        Reference::Random random(seed);
        const auto texts = Reference::MakeSystem(random, limits);
        const System::FuzzySystem system = Read(texts.Inputs, texts.Outputs, texts.Rules);
        // Strengths so small that they lose digits give averages beyond the positions.
        if (system.Rules.empty() ||
            std::ranges::any_of(system.Rules,
                                [](const auto& each) { return each.Weight == 1e-300; }) ||
            std::ranges::any_of(system.Inputs,
                                [](const auto& each) { return each.Lower > each.Upper; })) {
            continue;
        }
        const RuleTable rules(system);
        Response response(rules);
        const auto ranges = FindReach(rules, response, {});
        std::vector<double> point(system.Inputs.size());
        for (const Finding& each : ranges) {
            found += each.IsExact ? 1 : 0;
        }
        for (int sample = 0; sample < 200 && !HasFailure(); ++sample) {
            for (std::size_t i = 0; i < point.size(); ++i) {
                const auto& input = system.Inputs[i];
                point[i] =
                    input.Lower + (input.Upper - input.Lower) * (random.Below(4096) / 4096.0);
            }
            const auto value = response.At(point)[0];
            for (const Finding& each : ranges) {
                const auto& output = system.Outputs[0];
                // Where no rule fires the default stands, wherever that is.
                if (value && each.IsExact && *value != DefaultOf(output)) {
                    const double slack = 2e-9 * (output.Upper - output.Lower);
                    const double inside = std::clamp(*value, output.Lower, output.Upper);
                    EXPECT_LE(inside, each.Region[0].Last + slack);
                    EXPECT_GE(inside, each.Region[0].First - slack);
                    ++compared;
                }
            }
        }
    }
    EXPECT_GT(found, 150);
    EXPECT_GT(compared, 10000);
}

} // namespace
} // namespace Quorvane::Check
