// SPDX-License-Identifier: MIT
// Tests that large systems are checked whole, and without exponential time.
#include "tests/check/CheckTest.h"
#include "tests/reference/Random.h"

namespace Quorvane::Check {
namespace {

Text Number(std::size_t number) {
    return Widen(std::to_string(number));
}

/// Inputs from 0 to terms - 1 with triangles at each whole number.
System::FuzzySystem MakeVariables(std::size_t inputs, std::size_t terms) {
    System::FuzzySystem system;
    const auto last = static_cast<double>(terms - 1);
    for (std::size_t i = 0; i < inputs; ++i) {
        System::InputVariable input{u"X" + Number(i), 0, last, {}};
        for (std::size_t term = 0; term < terms; ++term) {
            const auto peak = static_cast<double>(term);
            input.Terms.push_back(
                {u"T" + Number(term),
                 {std::max(0.0, peak - 1), peak, peak, std::min(last, peak + 1)}});
        }
        system.Inputs.push_back(std::move(input));
    }
    system.Outputs = {{u"Y", 0, 10, {}}};
    for (std::size_t term = 0; term <= 10; ++term) {
        system.Outputs[0].Terms.push_back({u"P" + Number(term), static_cast<double>(term)});
    }
    return system;
}

/// A rule for each combination of terms but the last one.
System::FuzzySystem MakeGridButOne(std::size_t inputs, std::size_t terms) {
    System::FuzzySystem system = MakeVariables(inputs, terms);
    std::size_t combinations = 1;
    for (std::size_t i = 0; i < inputs; ++i) {
        combinations *= terms;
    }
    for (std::size_t i = 0; i + 1 < combinations; ++i) {
        System::Rule rule{{}, {{0, static_cast<std::uint32_t>(i % 11), u""}}, 1};
        for (std::size_t input = 0, rest = i; input < inputs; ++input, rest /= terms) {
            rule.Antecedents.push_back(
                {static_cast<std::uint32_t>(input), static_cast<std::uint32_t>(rest % terms), u""});
        }
        system.Rules.push_back(std::move(rule));
    }
    return system;
}

TEST(LargeSystem, OfManyRulesHasTheOneGapThatWasLeft) {
    const System::FuzzySystem system = MakeGridButOne(5, 8);
    ASSERT_EQ(system.Rules.size(), 32767U);
    const CheckResult result = CheckSystem(system);
    EXPECT_EQ(Faults(result), (std::vector{FindingKind::Gap}));
    const Finding& gap = result.Findings.front();
    EXPECT_EQ(gap.Example, std::vector<double>(5, 7));
    EXPECT_EQ(gap.Count, 1U);
    EXPECT_EQ(gap.Share, 0);
    EXPECT_TRUE(gap.IsExact);
}

TEST(LargeSystem, OfManyRulesWithAContradictionInTheEnd) {
    System::FuzzySystem system = MakeGridButOne(5, 8);
    System::Rule rule = system.Rules[12345];
    rule.Consequents[0].Term = (*rule.Consequents[0].Term + 1) % 11;
    system.Rules.push_back(rule);
    const CheckResult result = CheckSystem(system);
    EXPECT_EQ(Faults(result), (std::vector{FindingKind::Gap, FindingKind::Conflict}));
    EXPECT_EQ(Of(FindingKind::Conflict, result)[0].Rules,
              (std::vector<std::uint32_t>{12345, 32767}));
}

TEST(LargeSystem, OfManyInputsIsSampledWhereTheSearchWouldNotEnd) {
    Reference::Random random(3);
    System::FuzzySystem system = MakeVariables(32, 3);
    for (int i = 0; i < 3000; ++i) {
        System::Rule rule{{}, {{0, random.Below(11), u""}}, 1};
        const std::uint32_t first = random.Below(8);
        for (std::uint32_t input = first; input < 32; input += 1 + random.Below(8)) {
            rule.Antecedents.push_back({input, random.Below(3), u""});
        }
        system.Rules.push_back(std::move(rule));
    }
    const auto gaps = Of(FindingKind::Gap, CheckSystem(system));
    ASSERT_EQ(gaps.size(), 1U);
    EXPECT_FALSE(gaps[0].IsExact);
    EXPECT_EQ(gaps[0].Example.size(), 32U);
}

TEST(LargeSystem, OfManyInputsWithRulesOfFewIsCheckedExactly) {
    System::FuzzySystem system = MakeVariables(32, 3);
    for (std::uint32_t input = 0; input < 32; input += 2) {
        for (std::uint32_t i = 0; i < 9; ++i) {
            system.Rules.push_back(
                {{{input, i % 3, u""}, {input + 1, i / 3, u""}}, {{0, i, u""}}, 0.5});
        }
    }
    EXPECT_TRUE(Of(FindingKind::Gap, CheckSystem(system)).empty());
    // Each pair of inputs covers the whole by itself.
    std::erase_if(system.Rules,
                  [](const System::Rule& rule) { return *rule.Consequents[0].Term == 4; });
    const auto gaps = Of(FindingKind::Gap, CheckSystem(system));
    ASSERT_EQ(gaps.size(), 1U);
    EXPECT_TRUE(gaps[0].IsExact);
    EXPECT_EQ(gaps[0].Example, std::vector<double>(32, 1));
    EXPECT_EQ(gaps[0].Count, 1U);
}

} // namespace
} // namespace Quorvane::Check
