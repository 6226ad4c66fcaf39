// SPDX-License-Identifier: MIT
// What the tests of the engine have in common.
#pragma once

#include "tests/core/CoreTest.h"
#include "tests/core/EngineRunner.h"

namespace Quorvane {

/// A universe of 0 to 8 with two terms that cross at 4: A falls from 2 to 6, B rises there. So
/// A(3) = 3/4, B(3) = 1/4, and A(4) = B(4) = 1/2.
inline constexpr TextView Ramp = u"X/8/0/A,0,0,2,6;B,2,6,8,8";

/// An output from 0 to 16 whose default is 8.
inline constexpr TextView Steps = u"Y/16/0/P,0;Q,8;R,16";

/// A test that runs on the engine and on the plain evaluator.
class EngineTest : public CoreTest, public testing::WithParamInterface<RunnerKind> {
  protected:
    /// Parses plain texts and prepares their rules.
    void Load(TextView inputs, TextView outputs, TextView rules) {
        Parse(inputs, outputs, rules);
        Runner->PrepareRuleBase();
    }

    static void Put(TextView input, Value value) {
        Definition::State().InputValues->Put(input, std::move(value));
    }

    Value Output(TextView name) const { return Runner->Output(name); }

    /// Runs a cycle and gives the output Y.
    Value InferY() {
        Runner->Infer();
        return Output(u"Y");
    }

    /// The same with the input X set before.
    Value InferY(Value x) {
        Put(u"X", std::move(x));
        return InferY();
    }

    std::optional<RaisedError> RaisedByPrepare() {
        return Raised([this] { Runner->PrepareRuleBase(); });
    }
    std::optional<RaisedError> RaisedByInfer() {
        return Raised([this] { Runner->Infer(); });
    }

    std::unique_ptr<EngineRunner> Runner = GetParam().Make();
};

/// Makes a test suite run on both.
#define QUORVANE_ON_BOTH_RUNNERS(Suite)                                                            \
    INSTANTIATE_TEST_SUITE_P(, Suite, testing::ValuesIn(BothRunners),                              \
                             [](const auto& run) { return run.param.Name; })

} // namespace Quorvane
