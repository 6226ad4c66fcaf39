// SPDX-License-Identifier: MIT
// What generated code computes beside the plain evaluation, which is the engine's to the bit.
#include <bit>
#include <cmath>

#include <gtest/gtest.h>

#include "code/LookupTable.h"
#include "explain/Evaluation.h"
#include "system/DefinitionTexts.h"
#include "tests/code/RandomSystems.h"
#include "tests/reference/RandomSystem.h"

namespace Quorvane::Code {
namespace {

constexpr int PointsOfSystem = 25;

std::vector<double> EdgesOf(const System::InputVariable& input) {
    std::vector<double> edges{input.Lower, input.Upper};
    for (const System::InputTerm& term : input.Terms) {
        edges.insert(edges.end(), term.Points.begin(), term.Points.end());
    }
    return edges;
}

std::vector<double> MakePoint(Reference::Random& random, const System::FuzzySystem& system) {
    std::vector<double> point;
    for (const System::InputVariable& input : system.Inputs) {
        point.push_back(Reference::MakeNumber(random, EdgesOf(input)));
    }
    return point;
}

/// How often what happened; a comparison that always ends one way would prove little.
struct Tally {
    int Values = 0;
    int Defaults = 0;
    int Failures = 0;
    int TableValues = 0;
};

class RandomSystemsTest : public testing::Test {
  protected:
    void Compare(const random_system& generated, Reference::Random& random) {
        const System::FuzzySystem system = System::FromPlainTexts(
            {Widen(generated.inputs), Widen(generated.outputs), Widen(generated.rules)});
        const CompiledSystem compiled = Compile(system);
        for (int i = 0; i < PointsOfSystem; ++i) {
            const std::vector<double> point = MakePoint(random, system);
            CompareCode(generated, system, compiled, point);
        }
        if (generated.look_up != nullptr) {
            const LookupTable table(compiled, RANDOM_TABLE_DIVISIONS);
            for (int i = 0; i < PointsOfSystem; ++i) {
                CompareTable(generated, table, compiled, MakePoint(random, system));
            }
        }
    }

    void CompareCode(const random_system& generated, const System::FuzzySystem& system,
                     const CompiledSystem& compiled, const std::vector<double>& point) {
        const Explain::Evaluation expected =
            Explain::Evaluate(system, Explain::Reading(point.begin(), point.end()));
        std::vector<double> outputs(compiled.Outputs.size());
        std::vector<double> run(compiled.Outputs.size());
        const int failed = generated.run(point.data(), outputs.data());
        EXPECT_EQ(failed, expected.Fault ? 1 : 0);
        EXPECT_EQ(Code::Run(compiled, point, run), !expected.Fault);
        Ends.Failures += failed;
        ASSERT_EQ(expected.Outputs.size(), outputs.size());
        for (std::size_t i = 0; i < outputs.size(); ++i) {
            const double value = expected.Outputs[i].Value.value();
            const bool isSet = expected.Outputs[i].Cause == Explain::Cause::RulesFire;
            ++(isSet ? Ends.Values : Ends.Defaults);
            ExpectSameBits(outputs[i], value);
            ExpectSameBits(run[i], value);
        }
    }

    void CompareTable(const random_system& generated, const LookupTable& table,
                      const CompiledSystem& compiled, const std::vector<double>& point) {
        std::vector<double> outputs(compiled.Outputs.size());
        std::vector<double> expected(compiled.Outputs.size());
        EXPECT_EQ(generated.look_up(point.data(), outputs.data()), 0);
        table.Interpolate(point, expected);
        for (std::size_t i = 0; i < outputs.size(); ++i) {
            ExpectSameBits(outputs[i], expected[i]);
            ++Ends.TableValues;
        }
    }

    static void ExpectSameBits(double actual, double expected) {
        EXPECT_EQ(std::bit_cast<std::uint64_t>(actual), std::bit_cast<std::uint64_t>(expected))
            << actual << " for " << expected;
    }

    Tally Ends;
};

TEST_F(RandomSystemsTest, ComputeTheSameToTheBit) {
    Reference::Random random(11);
    for (unsigned i = 0; i < random_system_count && !HasFailure(); ++i) {
        SCOPED_TRACE(testing::Message() << "system " << i);
        Compare(random_systems[i], random);
    }
    EXPECT_GT(random_system_count, 1900U);
    EXPECT_GT(Ends.Values, 20000);
    EXPECT_GT(Ends.Defaults, 10000);
    EXPECT_GT(Ends.Failures, 100);
    EXPECT_GT(Ends.TableValues, 5000);
    RecordProperty("systems", static_cast<int>(random_system_count));
    RecordProperty("values", Ends.Values);
}

} // namespace
} // namespace Quorvane::Code
