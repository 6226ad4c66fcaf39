// SPDX-License-Identifier: MIT
// The plain evaluation beside the engine, on random systems: every output to the bit.
#include "engine/Infer.h"
#include "engine/PrepareRuleBase.h"
#include "explain/Evaluation.h"
#include "system/DefinitionTexts.h"
#include "tests/core/CoreTest.h"
#include "tests/reference/RandomSystem.h"

namespace Quorvane::Explain {
namespace {

using Definition::State;
using Reference::Random;
using Reference::SystemLimits;

class SameAsEngineTest : public CoreTest {
  protected:
    /// Runs so many readings of so many systems through both.
    void Follow(std::uint64_t seed, int systems, int readings, const SystemLimits& limits) {
        Random random(seed);
        for (int i = 0; i < systems && !HasFailure(); ++i) {
            SCOPED_TRACE(testing::Message() << "system " << i);
            Definition::Reset();
            const Reference::SystemTexts texts = Reference::MakeSystem(random, limits);
            Parse(texts.Inputs, texts.Outputs, texts.Rules);
            if (Raised(RunTime::PrepareRuleBase)) {
                continue;
            }
            const auto system = System::FromPlainTexts({texts.Inputs, texts.Outputs, texts.Rules});
            for (int j = 0; j < readings && !HasFailure(); ++j) {
                SCOPED_TRACE(testing::Message() << "reading " << j);
                Compare(system, SetInputs(random));
            }
        }
    }

    int Succeeded = 0;
    int Defaulted = 0;
    int Failed = 0;

  private:
    static Reading SetInputs(Random& random) {
        Reading reading;
        for (const auto& [name, variable] : *State().InputVariables) {
            const double number = Reference::MakeNumber(random, Reference::EdgesOf(variable));
            reading.push_back(random.Percent(2) ? std::nullopt : std::optional(number));
            State().InputValues->Put(name, reading.back() ? Value(*reading.back()) : Value());
        }
        return reading;
    }

    void Compare(const System::FuzzySystem& system, const Reading& reading) {
        // Prepared anew, so that no input counts as unchanged.
        RunTime::PrepareRuleBase();
        const bool failed = Raised(RunTime::Infer).has_value();
        const Evaluation evaluation = Evaluate(system, reading);
        ASSERT_EQ(evaluation.Fault.has_value(), failed);
        const auto& items = State().OutputValues->Items;
        ASSERT_EQ(evaluation.Outputs.size(), items.Count());
        if (failed) {
            EXPECT_EQ(evaluation.Fault->MessageId, State().CurrentErrorId);
            ++Failed;
        }
        for (const OutputState& output : evaluation.Outputs) {
            const Value expected = failed ? State().DefaultOutputValues->Get(output.Output.Name)
                                          : items.At(output.Output.Name).Content;
            EXPECT_TRUE(SameValue(expected, output.Value ? Value(*output.Value) : Value()));
            ++(output.Cause == Cause::RulesFire ? Succeeded : Defaulted);
            EXPECT_EQ(output.Cause == Cause::CycleFailed, failed);
        }
    }
};

TEST_F(SameAsEngineTest, OnSmallSystemsWithManyOddities) {
    Follow(81, 3000, 12,
           {.Inputs = 3, .Terms = 3, .Outputs = 3, .Rules = 8, .OddNames = 30, .OddOutputs = 30});
    EXPECT_GT(Succeeded, 10000);
    EXPECT_GT(Defaulted, 5000);
    EXPECT_GT(Failed, 2000);
}

TEST_F(SameAsEngineTest, OnMiddlingSystems) {
    Follow(82, 1000, 12, {});
    EXPECT_GT(Succeeded, 3000);
}

TEST_F(SameAsEngineTest, OnSystemsWithManyRules) {
    Follow(83, 40, 12, {.Inputs = 4, .Terms = 5, .Outputs = 2, .Rules = 400, .OddOutputs = 0});
    EXPECT_GT(Succeeded, 200);
}

} // namespace
} // namespace Quorvane::Explain
