// SPDX-License-Identifier: MIT
// Tests of the engine over a system as a value: whatever its names are, it does what the plain
// evaluation does.
#include "qfis/Engine.h"

#include <gtest/gtest.h>

#include <bit>

#include "explain/Evaluation.h"
#include "system/DefinitionTexts.h"
#include "tests/reference/RandomSystem.h"

namespace Quorvane::Qfis {
namespace {

/// Gives names that no stored text holds, and of which some differ in case alone.
void Rename(System::FuzzySystem& system) {
    const auto rename = [](Text& name) {
        if (!name.empty()) {
            name = u"\u6E29 " + name;
        }
    };
    for (auto& input : system.Inputs) {
        rename(input.Name);
    }
    for (auto& output : system.Outputs) {
        rename(output.Name);
    }
    for (System::Rule& rule : system.Rules) {
        for (auto* const clauses : {&rule.Antecedents, &rule.Consequents}) {
            for (System::Clause& clause : *clauses) {
                rename(clause.Spelling);
            }
        }
    }
}

Explain::Reading MakeReading(Reference::Random& random, const System::FuzzySystem& system) {
    Explain::Reading reading;
    for (const System::InputVariable& input : system.Inputs) {
        std::vector<double> edges{input.Lower, input.Upper};
        for (const System::InputTerm& term : input.Terms) {
            edges.insert(edges.end(), term.Points.begin(), term.Points.end());
        }
        const double number = Reference::MakeNumber(random, edges);
        reading.push_back(random.Percent(2) ? std::nullopt : std::optional(number));
    }
    return reading;
}

/// The value of an output variable in an evaluation, as the engine tells it.
std::optional<double> OutputOf(const Explain::Evaluation& evaluation,
                               const System::FuzzySystem& system, std::size_t output) {
    for (const Explain::OutputState& state : evaluation.Outputs) {
        if (state.Output.Variable == output && state.Output.Name == system.Outputs[output].Name) {
            return state.Value;
        }
    }
    return std::nullopt;
}

TEST(Engine, DoesWhatThePlainEvaluationDoes) {
    Reference::Random random(101);
    int succeeded = 0;
    int failed = 0;
    for (int i = 0; i < 1500; ++i) {
        SCOPED_TRACE(i);
        const auto texts = Reference::MakeSystem(
            random, {.Inputs = 3, .Terms = 4, .Rules = 10, .OddNames = 40, .BadRules = 0});
        auto system = System::FromPlainTexts({texts.Inputs, texts.Outputs, texts.Rules});
        Rename(system);
        const Explain::Reading reading = MakeReading(random, system);
        Engine engine(system);
        for (std::size_t j = 0; j < reading.size(); ++j) {
            engine.SetInput(j, reading[j]);
        }
        const bool ran = engine.Fire();
        ++(ran ? succeeded : failed);
        const Explain::Evaluation evaluation = Explain::Evaluate(system, reading);
        ASSERT_EQ(ran, !evaluation.Fault);
        for (std::size_t j = 0; j < system.Outputs.size(); ++j) {
            const auto expected = OutputOf(evaluation, system, j);
            const auto actual = engine.Output(j);
            ASSERT_EQ(actual.has_value(), expected.has_value());
            if (expected) {
                ASSERT_EQ(std::bit_cast<std::uint64_t>(*actual),
                          std::bit_cast<std::uint64_t>(*expected));
            }
        }
    }
    EXPECT_GT(succeeded, 900);
    EXPECT_GT(failed, 50);
}

TEST(Engine, StartsAtLowerBoundsAndRecoversFromAMissingValue) {
    const auto system = System::FromPlainTexts(
        {u"X/8/0/A,0,0,2,6;B,2,6,8,8", u"Y/16/0/P,2;R,16", u"X>A/Y<P:1|X>B/Y<R:1"});
    Engine engine(system);
    EXPECT_TRUE(engine.Fire());
    EXPECT_EQ(engine.Output(0), 2);
    engine.SetInput(0, std::nullopt);
    EXPECT_FALSE(engine.Fire());
    EXPECT_EQ(engine.Output(0), 8);
    engine.SetInput(0, 8);
    EXPECT_TRUE(engine.Fire());
    EXPECT_EQ(engine.Output(0), 16);
}

} // namespace
} // namespace Quorvane::Qfis
