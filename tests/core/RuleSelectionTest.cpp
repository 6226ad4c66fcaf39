// SPDX-License-Identifier: MIT
// Tests of rule bases of particular shapes, in which the engine looks at few of the rules.
#include <algorithm>
#include <string>

#include "engine/PreparedRules.h"
#include "tests/core/EnginePair.h"
#include "tests/reference/RandomSystem.h"

namespace Quorvane {
namespace {

using Definition::State;
using Reference::Random;

Text Number(std::uint32_t number) {
    return Widen(std::to_string(number));
}

/// Neighbouring triangles over 0 to the number of terms minus 1, each 1 at its own number.
Text Triangles(TextView name, std::uint32_t count) {
    Text text = Text(name) + u'/' + Number(count - 1) + u"/0/";
    for (std::uint32_t i = 0; i < count; ++i) {
        const Text left = Number(i == 0 ? 0 : i - 1);
        text += (i == 0 ? u"t" : u";t") + Number(i) + u',' + left + u',' + Number(i) + u',' +
                Number(i) + u',' + Number(std::min(i + 1, count - 1));
    }
    return text;
}

/// All combinations of the terms of so many inputs, each with a weight and a term of its own.
std::vector<Text> FullGrid(std::uint32_t inputs, std::uint32_t terms, std::uint32_t outputTerms) {
    std::vector<Text> rules = {u""};
    for (std::uint32_t input = 0; input < inputs; ++input) {
        std::vector<Text> longer;
        for (const Text& rule : rules) {
            for (std::uint32_t term = 0; term < terms; ++term) {
                longer.push_back(rule + (input == 0 ? u"i" : u";i") + Number(input) + u">t" +
                                 Number(term));
            }
        }
        rules = std::move(longer);
    }
    for (std::uint32_t i = 0; i < rules.size(); ++i) {
        rules[i] += u"/Y<t" + Number(i * 7 % outputTerms) + u":0." + Number(i % 9 + 1);
    }
    return rules;
}

Text Joined(const std::vector<Text>& pieces) {
    Text text;
    for (const Text& piece : pieces) {
        text += (text.empty() ? u"" : u"|") + piece;
    }
    return text;
}

constexpr std::uint32_t OutputTerms = 12;

Text OutputWithTerms(TextView name) {
    Text output = Text(name) + u"/100/-3/t0,-3";
    for (std::uint32_t i = 1; i < OutputTerms; ++i) {
        output += u";t" + Number(i) + u',' + Number(i * i) + u".3";
    }
    return output;
}

/// A rule that names so many of the inputs, and one output, or none, of several.
Text SparseRule(Random& random, std::uint32_t inputs, std::uint32_t terms, std::uint32_t named,
                std::uint32_t outputs) {
    Text rule;
    for (std::uint32_t input = 0; input < inputs; ++input) {
        rule += (input == 0 ? u"i" : u";i") + Number(input) + u'>';
        // Each of those left is as likely to be named as the others.
        const bool isNamed = random.Below(inputs - input) < named;
        named -= isNamed ? 1 : 0;
        rule += isNamed ? u"t" + Number(random.Below(terms)) : Text(u"[NONE]");
    }
    const std::uint32_t chosen = random.Below(10 * outputs + 1);
    for (std::uint32_t output = 0; output < outputs; ++output) {
        rule += (output == 0 ? u"/Y" : u";Y") + Number(output) + u'<';
        rule += chosen % outputs == output && chosen < 10 * outputs
                    ? u"t" + Number(random.Below(OutputTerms))
                    : Text(u"[NONE]");
    }
    return rule + u":0." + Number(1 + random.Below(99));
}

class RuleSelectionTest : public CoreTest {
  protected:
    void LoadInputs(std::uint32_t inputs, std::uint32_t terms, const std::vector<Text>& rules) {
        Load(inputs, terms, OutputWithTerms(u"Y"), rules);
    }

    void Load(std::uint32_t inputs, std::uint32_t terms, TextView outputs,
              const std::vector<Text>& rules) {
        std::vector<Text> variables;
        for (std::uint32_t i = 0; i < inputs; ++i) {
            variables.push_back(Triangles(u"i" + Number(i), terms));
        }
        Parse(Joined(variables), outputs, Joined(rules));
        EXPECT_EQ(Pair.PrepareRuleBase(), Nothing);
    }

    /// Runs cycles with random inputs; now and then only some of them change.
    void RunCycles(Random& random, int cycles) {
        for (int i = 0; i < cycles; ++i) {
            const std::uint32_t share = 1 + random.Below(100);
            for (const auto& [name, variable] : *State().InputVariables) {
                if (random.Percent(share)) {
                    State().InputValues->Put(
                        name, Reference::MakeNumber(random, Reference::EdgesOf(variable)));
                }
            }
            ASSERT_EQ(Pair.Infer(), Nothing);
        }
    }

    EnginePair Pair;
};

TEST_F(RuleSelectionTest, FullGridsInAnyOrder) {
    Random random(7);
    struct Case {
        std::uint32_t Inputs;
        std::uint32_t Terms;
    };
    for (const Case& shape :
         {Case{1, 1}, {1, 7}, {2, 3}, {2, 8}, {2, 11}, {3, 5}, {4, 4}, {5, 3}, {6, 3}, {7, 2}}) {
        SCOPED_TRACE(testing::Message() << shape.Inputs << " x " << shape.Terms);
        std::vector<Text> rules = FullGrid(shape.Inputs, shape.Terms, 12);
        LoadInputs(shape.Inputs, shape.Terms, rules);
        RunCycles(random, 60);
        for (std::size_t i = rules.size(); i > 1; --i) {
            std::swap(rules[i - 1], rules[random.Below(static_cast<std::uint32_t>(i))]);
        }
        LoadInputs(shape.Inputs, shape.Terms, rules);
        RunCycles(random, 60);
    }
}

TEST_F(RuleSelectionTest, GridsOfTwoOutputsOfWhichRulesNameOneOrBoth) {
    Random random(12);
    for (const std::uint32_t omitted : {0U, 40U}) {
        SCOPED_TRACE(omitted);
        std::vector<Text> rules = FullGrid(3, 6, OutputTerms);
        for (Text& rule : rules) {
            const Text term = random.Percent(omitted) ? Text(u"[NONE]")
                                                      : u"t" + Number(random.Below(OutputTerms));
            rule.insert(rule.find(u':'), u";Z<" + term);
        }
        Load(3, 6, Joined({OutputWithTerms(u"Y"), OutputWithTerms(u"Z")}), rules);
        EXPECT_EQ(State().Tables->NamesEveryOutput, omitted == 0);
        RunCycles(random, 200);
    }
}

TEST_F(RuleSelectionTest, GridsWithGapsFreeInputsAndSeveralRulesOfOneCombination) {
    Random random(8);
    for (int system = 0; system < 40; ++system) {
        std::vector<Text> rules = FullGrid(3, 6, 12);
        std::erase_if(rules, [&](const Text&) { return random.Percent(20); });
        for (Text& rule : rules) {
            if (random.Percent(15)) {
                const auto term = rule.find(u'>') + 1;
                rule.replace(term, rule.find_first_of(u";/") - term, u"[NONE]");
            }
        }
        std::ranges::sort(rules);
        rules.erase(std::unique(rules.begin(), rules.end()), rules.end());
        for (std::size_t i = 0; i < rules.size(); i += 5) {
            Text again = rules[i] + u"5";
            rules.insert(rules.begin() + static_cast<std::ptrdiff_t>(i), again);
        }
        LoadInputs(3, 6, rules);
        RunCycles(random, 20);
    }
}

TEST_F(RuleSelectionTest, SparseRuleBasesOfEverySizeAroundAWordAndABlock) {
    Random random(9);
    for (const std::size_t count : {1U, 2U, 31U, 32U, 33U, 63U, 64U, 65U, 127U, 128U, 129U, 200U,
                                    255U, 256U, 257U, 511U, 512U, 513U}) {
        SCOPED_TRACE(count);
        // Twelve inputs of five terms have far more combinations than there are rules.
        StringKeyedDictionary<bool> rules(KeyComparison::Exact);
        while (rules.Count() < count) {
            Text rule;
            for (std::uint32_t input = 0; input < 12; ++input) {
                rule += (input == 0 ? u"i" : u";i") + Number(input) + u'>';
                rule += random.Percent(75) ? Text(u"[NONE]") : u"t" + Number(random.Below(5));
            }
            rule += u"/Y<t" + Number(random.Below(12));
            rules.Put(rule + u":0." + Number(1 + random.Below(99)), true);
        }
        LoadInputs(12, 5, KeysOf(rules));
        RunCycles(random, 40);
    }
}

TEST_F(RuleSelectionTest, RulesOfOneOutputEachWithSoManyInputs) {
    Random random(11);
    for (const std::size_t count : {10U, 90U, 700U}) {
        for (std::uint32_t named = 1; named <= 6; ++named) {
            SCOPED_TRACE(testing::Message() << count << " rules of " << named << " inputs");
            StringKeyedDictionary<bool> rules(KeyComparison::Exact);
            while (rules.Count() < count) {
                rules.Put(SparseRule(random, 9, 1 + named, named, 4), true);
            }
            Load(9, 1 + named,
                 Joined({OutputWithTerms(u"Y0"), OutputWithTerms(u"Y1"), OutputWithTerms(u"Y2"),
                         OutputWithTerms(u"Y3")}),
                 KeysOf(rules));
            EXPECT_TRUE(State().Tables->IsGroupedByOutput);
            EXPECT_EQ(State().Tables->AntecedentCount, named);
            RunCycles(random, 60);
        }
    }
}

TEST_F(RuleSelectionTest, ManyRulesForEachOfAFewCombinations) {
    Random random(13);
    StringKeyedDictionary<bool> shuffled(KeyComparison::Exact);
    while (shuffled.Count() < 400) {
        shuffled.Put(SparseRule(random, 3, 3, 3, 1), true);
    }
    std::vector<Text> rules = KeysOf(shuffled);
    for (int order = 0; order < 2; ++order) {
        Load(3, 3, OutputWithTerms(u"Y0"), rules);
        RunCycles(random, 200);
        std::ranges::sort(rules);
    }
}

TEST_F(RuleSelectionTest, TheLargestRuleBaseOfTheEditors) {
    Random random(10);
    std::vector<Text> rules = FullGrid(5, 8, 12);
    rules.pop_back();
    ASSERT_EQ(rules.size(), 32767U);
    LoadInputs(5, 8, rules);
    RunCycles(random, 3);
}

TEST_F(RuleSelectionTest, MoreTermsThanAGridHasRoomFor) {
    // The product of the terms of both inputs is 2^32.
    constexpr std::uint32_t Terms = 65536;
    Text points = u"X/65535/0/";
    std::vector<Text> rules;
    for (std::uint32_t i = 0; i < Terms; ++i) {
        const Text number = Number(i);
        points += (i == 0 ? u"t" : u";t") + number;
        for (int point = 0; point < 4; ++point) {
            points += u',' + number;
        }
        rules.push_back(u"X>t" + number + u";U>t" + number + u"/Y<P:1");
    }
    Parse(points + u"|U" + points.substr(1), u"Y/65535/1/P,7", Joined(rules));
    auto engine = MakeEngine();
    engine->PrepareRuleBase();
    for (const double x : {0.0, 65535.0, 12345.0}) {
        State().InputValues->Put(u"X", x);
        State().InputValues->Put(u"U", x);
        engine->Infer();
        EXPECT_TRUE(IsNumber(7, engine->Output(u"Y")));
    }
    State().InputValues->Put(u"U", 1.0);
    engine->Infer();
    EXPECT_TRUE(IsNumber(32768, engine->Output(u"Y")));
}

} // namespace
} // namespace Quorvane
