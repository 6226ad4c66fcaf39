// SPDX-License-Identifier: MIT
// The engine and the plain evaluator side by side.
#pragma once

#include <concepts>

#include "tests/core/CoreTest.h"
#include "tests/core/EngineRunner.h"

namespace Quorvane {

/// Has both do the same over the one model of the process, and expects the same to come of it:
/// errors, messages, and every output to the bit.
class EnginePair {
  public:
    /// The error that both raise; none when they succeed.
    std::optional<RaisedError> PrepareRuleBase() {
        return Compare(Raised([this] { plain_->PrepareRuleBase(); }),
                       Raised([this] { engine_->PrepareRuleBase(); }));
    }

    std::optional<RaisedError> Infer() {
        const auto expected = Raised([this] { plain_->Infer(); });
        const auto actual = Raised([this] { engine_->Infer(); });
        if (expected && actual) {
            // A host never sees what a failed cycle has written: the control replaces it.
            plain_->ApplyDefaults();
            engine_->ApplyDefaults();
        }
        return Compare(expected, actual);
    }

    Value Output(TextView name) const { return engine_->Output(name); }

  private:
    std::optional<RaisedError> Compare(const std::optional<RaisedError>& expected,
                                       const std::optional<RaisedError>& actual) const {
        EXPECT_EQ(actual, expected);
        EXPECT_EQ(engine_->CurrentErrorId(), plain_->CurrentErrorId());
        const std::vector<Text> names = plain_->OutputNames();
        EXPECT_EQ(engine_->OutputNames(), names);
        for (const Text& name : names) {
            EXPECT_TRUE(SameValue(plain_->Output(name), engine_->Output(name))) << Narrow(name);
        }
        return expected;
    }

    std::unique_ptr<EngineRunner> engine_ = MakeEngine();
    std::unique_ptr<EngineRunner> plain_ = MakePlainEvaluator();
};

} // namespace Quorvane
