// SPDX-License-Identifier: MIT
// Tests of findings in words.
#include "check/Describe.h"

#include <set>

#include "tests/check/CheckTest.h"

namespace Quorvane::Check {
namespace {

/// The sentences of all findings of a system but notes.
std::vector<Text> Sentences(TextView inputs, TextView outputs, TextView rules) {
    const System::FuzzySystem system = Read(inputs, outputs, rules);
    std::vector<Text> sentences;
    for (const Finding& finding : CheckSystem(system).Findings) {
        if (finding.Level != Severity::Note) {
            sentences.push_back(Describe(system, finding));
        }
    }
    return sentences;
}

constexpr TextView Inputs = u"X/10/0/A,0,0,4,6;B,4,6,10,10";
constexpr TextView Outputs = u"Y/10/0/Lo,0;Hi,10";

TEST(Describe, TellsEachFindingInASentence) {
    struct Case {
        TextView Inputs;
        TextView Outputs;
        TextView Rules;
        std::vector<Text> Sentences;
    };
    const Case cases[] = {
        {Inputs, Outputs, u"", {u"There are no rules, and so there is no output"}},
        {u"X/100/0/A,0,0,20,40;B,60,80,100,100",
         Outputs,
         u"X>A/Y<Lo:1|X>B/Y<Hi:1",
         {u"No rule fires for Y in 20 % of the input space: X 40 to 60",
          u"X: no term holds in 20 % of its range: X 40 to 60"}},
        {u"X/100/0/A,0,0,20,50;B,50,80,100,100",
         Outputs,
         u"X>A/Y<Lo:1|X>B/Y<Hi:1",
         {u"No rule fires for Y at single points: X 50",
          u"X: no term holds at single values: X 50"}},
        {Inputs,
         Outputs,
         u"X>A/Y<Lo:1|X>B/Y<Hi:1|X>B/Y<Lo:0.5",
         {u"Rules 2 and 3 have the same conditions and conclude differently about Y",
          u"Y never comes near its bound 10: the highest value is 6.67"}},
        {Inputs,
         Outputs,
         u"X>A/Y<Lo:1|X>B/Y<Hi:1|X>B/Y<Hi:0",
         {u"Rule 3 never fires: its weight is 0"}},
        {Inputs,
         Outputs,
         u"X>A/Y<Lo:1|X>B/Y<Hi:1|X>B/Y<Hi:0.5",
         {u"Rule 3 only adds weight: rule 2 concludes the same and fires wherever it does"}},
        {Inputs,
         u"Y/12/0/Lo,0;Hi,10",
         u"X>A/Y<Lo:1|X>B/Y<Hi:1",
         {u"Y never comes near its bound 12: the highest value is 10"}},
        {Inputs, u"Y/10/0/Lo,0;Mid,5;Hi,10", u"X>A/Y<Lo:1|X>B/Y<Hi:1", {u"No rule uses Y Mid"}},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(Sentences(each.Inputs, each.Outputs, each.Rules), each.Sentences);
    }
}

TEST(Describe, GivesTheExample) {
    const System::FuzzySystem system = Read(u"U/4/2/S,2,2,4,4|X/100/0/A,0,0,20,40;B,60,80,100,100",
                                            Outputs, u"X>A;U>S/Y<Lo:1|X>B/Y<Hi:1");
    const CheckResult result = CheckSystem(system);
    EXPECT_EQ(DescribeExample(system, Of(FindingKind::Gap, result)[0]), u"U = 3, X = 50");
    EXPECT_EQ(DescribeExample(system, Of(FindingKind::UncoveredUniverse, result)[0]), u"X = 50");
}

TEST(FindingNames, AreAllThereAndDifferent) {
    std::set<std::string_view> names;
    const auto last = static_cast<int>(FindingKind::Steepest);
    for (int kind = 0; kind <= last; ++kind) {
        EXPECT_FALSE(NameOf(static_cast<FindingKind>(kind)).empty()) << kind;
        names.insert(NameOf(static_cast<FindingKind>(kind)));
    }
    EXPECT_EQ(names.size(), static_cast<std::size_t>(last) + 1);
}

} // namespace
} // namespace Quorvane::Check
