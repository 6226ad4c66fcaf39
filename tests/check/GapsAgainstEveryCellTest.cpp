// SPDX-License-Identifier: MIT
// Compares the gaps that are found with a look at every cell between the points of random systems.
#include <cmath>
#include <limits>

#include "check/FindGaps.h"
#include "check/RuleTable.h"
#include "tests/check/CheckTest.h"
#include "tests/reference/RandomSystem.h"

namespace Quorvane::Check {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();

/// The numbers of an input at which anything can be different from the number before: its bounds
/// and points, their neighbours, and one between each two.
std::vector<double> ValuesOf(const System::InputVariable& input) {
    std::vector<double> values{input.Lower, input.Upper};
    for (const System::InputTerm& term : input.Terms) {
        for (const double point : term.Points) {
            values.insert(values.end(), {point, std::nextafter(point, Infinity),
                                         std::nextafter(point, -Infinity)});
        }
    }
    std::ranges::sort(values);
    const std::size_t count = values.size();
    for (std::size_t i = 1; i < count; ++i) {
        values.push_back(values[i - 1] / 2 + values[i] / 2);
    }
    std::erase_if(values, [&](double x) { return x < input.Lower || x > input.Upper; });
    return values;
}

bool BelongsTo(const std::array<double, 4>& points, double x) {
    return (points[1] <= x && x <= points[2]) || (points[0] < x && x < points[3]);
}

bool Fires(const System::FuzzySystem& system, const System::Rule& rule,
           const std::vector<double>& point, std::uint32_t output) {
    const bool concludes = std::ranges::any_of(rule.Consequents, [&](const System::Clause& each) {
        return each.Variable == output && each.Term;
    });
    return rule.Weight != 0 && concludes &&
           std::ranges::all_of(rule.Antecedents, [&](const System::Clause& each) {
               const auto& input = system.Inputs[each.Variable];
               const double x = point[each.Variable];
               return !each.Term || (input.Lower <= x && x <= input.Upper &&
                                     BelongsTo(input.Terms[*each.Term].Points, x));
           });
}

/// Whether no rule fires for an output somewhere, by looking everywhere.
bool HasGap(const System::FuzzySystem& system, std::uint32_t output) {
    std::vector<std::vector<double>> values;
    for (const auto& input : system.Inputs) {
        values.push_back(ValuesOf(input));
        if (values.back().empty()) {
            values.back().push_back(input.Lower);
        }
    }
    std::vector<std::size_t> place(values.size());
    std::vector<double> point(values.size());
    for (bool isOver = false; !isOver;) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            point[i] = values[i][place[i]];
        }
        if (std::ranges::none_of(system.Rules, [&](const System::Rule& rule) {
                return Fires(system, rule, point, output);
            })) {
            return true;
        }
        std::size_t input = 0;
        while (input < values.size() && ++place[input] == values[input].size()) {
            place[input++] = 0;
        }
        isOver = input == values.size();
    }
    return false;
}

/// How often there was a gap and how often not; a test with one of them alone would prove little.
struct Tally {
    int Gaps = 0;
    int None = 0;
};

class GapsAgainstEveryCell : public testing::Test {
  protected:
    void Compare(const System::FuzzySystem& system) {
        const RuleTable rules(system);
        const auto gaps = FindGaps(rules, {});
        for (const System::CycleOutput& output : rules.Outputs) {
            const auto gap = std::ranges::find_if(gaps, [&](const Finding& each) {
                return std::ranges::count(each.Outputs, output.Variable) != 0;
            });
            const bool hasGap = HasGap(system, output.Variable);
            ++(hasGap ? Ends.Gaps : Ends.None);
            ASSERT_EQ(gap != gaps.end(), hasGap);
            if (hasGap) {
                EXPECT_TRUE(gap->IsExact);
                ExpectNoRuleFires(system, *gap, output.Variable);
            }
        }
    }

    static void ExpectNoRuleFires(const System::FuzzySystem& system, const Finding& gap,
                                  std::uint32_t output) {
        std::vector<double> first;
        std::vector<double> last;
        for (const Range& range : gap.Region) {
            first.push_back(range.First);
            last.push_back(range.Last);
        }
        for (const auto& point : {gap.Example, first, last}) {
            EXPECT_TRUE(std::ranges::none_of(system.Rules, [&](const System::Rule& rule) {
                return Fires(system, rule, point, output);
            }));
        }
    }

    Tally Ends;
};

TEST_F(GapsAgainstEveryCell, OfRandomSystems) {
    const Reference::SystemLimits limits{.Inputs = 3,
                                         .Terms = 3,
                                         .Outputs = 2,
                                         .Rules = 12,
                                         .OddNames = 0,
                                         .OddOutputs = 0,
                                         .BadRules = 0};
    for (std::uint64_t seed = 1; seed <= 400 && !HasFailure(); ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        Reference::Random random(seed);
        const auto texts = Reference::MakeSystem(random, limits);
        Compare(Read(texts.Inputs, texts.Outputs, texts.Rules));
    }
    EXPECT_GT(Ends.Gaps, 150);
    EXPECT_GT(Ends.None, 80);
}

/// Partitions whose every combination has a rule, but that some rules are left out.
TEST_F(GapsAgainstEveryCell, OfGridsThatMayLackRules) {
    Reference::Random random(7);
    for (int run = 0; run < 20 && !HasFailure(); ++run) {
        SCOPED_TRACE(testing::Message() << "run " << run);
        const std::uint32_t inputs = 1 + random.Below(3);
        System::FuzzySystem system;
        for (std::uint32_t i = 0; i < inputs; ++i) {
            const double plateau = random.Below(2);
            system.Inputs.push_back({u"X" + Text(1, static_cast<char16_t>(u'0' + i)),
                                     0,
                                     10,
                                     {{u"A", {0, 0, 2, 5 - plateau}},
                                      {u"B", {2, 5 - plateau, 5 + plateau, 8}},
                                      {u"C", {5 + plateau, 8, 10, 10}}}});
        }
        system.Outputs = {{u"Y", 0, 1, {{u"P", 0}}}};
        const auto combinations = static_cast<std::uint32_t>(std::pow(3, inputs));
        for (std::uint32_t i = 0; i < combinations; ++i) {
            System::Rule rule{{}, {{0, 0, u""}}, 1};
            for (std::uint32_t input = 0, rest = i; input < inputs; ++input, rest /= 3) {
                rule.Antecedents.push_back({input, rest % 3, u""});
            }
            if (!random.Percent(8)) {
                system.Rules.push_back(rule);
            }
        }
        if (!system.Rules.empty()) {
            Compare(system);
        }
    }
    EXPECT_GT(Ends.Gaps, 3);
    EXPECT_GT(Ends.None, 5);
}

} // namespace
} // namespace Quorvane::Check
