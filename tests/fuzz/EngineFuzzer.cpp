// SPDX-License-Identifier: MIT
// Preparation and inference: the engine beside the plain evaluator, through whatever the input
// spells.
#include "engine/Infer.h"
#include "engine/PrepareRuleBase.h"
#include "tests/fuzz/Check.h"
#include "tests/reference/Evaluator.h"
#include "tests/reference/RandomRun.h"

namespace Quorvane::Fuzz {
namespace {

using Definition::State;

bool Same(const Value& left, const Value& right) {
    const double* const leftNumber = std::get_if<double>(&left);
    const double* const rightNumber = std::get_if<double>(&right);
    return leftNumber && rightNumber ? SameBits(*leftNumber, *rightNumber) : left == right;
}

class Pair {
  public:
    void Prepare() {
        const auto expected = Raised([this] { plain_.PrepareRuleBase(); });
        Compare(expected, Raised(RunTime::PrepareRuleBase));
    }

    void Infer() {
        const auto expected = Raised([this] { plain_.Infer(); });
        const auto actual = Raised(RunTime::Infer);
        if (expected && actual) {
            ApplyDefaults();
        }
        Compare(expected, actual);
    }

  private:
    /// What the control does after a failed cycle.
    void ApplyDefaults() {
        for (auto& [name, value] : plain_.Prepared.OutputValues) {
            value = State().DefaultOutputValues->Get(name);
            State().OutputValues->Put(name, value);
        }
    }

    void Compare(const std::optional<std::uint32_t>& expected,
                 const std::optional<std::uint32_t>& actual) const {
        Check(actual == expected, "the error");
        Check(State().CurrentErrorId == plain_.CurrentErrorId, "the message");
        const auto& outputs = plain_.Prepared.OutputValues;
        Check((State().OutputValues ? State().OutputValues->Items.Count() : 0) == outputs.Count(),
              "the number of outputs");
        for (const auto& [name, value] : outputs) {
            Check(Same(State().OutputValues->Get(name), value), "an output");
        }
    }

    Reference::Evaluator plain_;
};

void Run(std::span<const std::uint8_t> input) {
    Definition::Reset();
    Reference::SpelledChoices choices(input);
    Reference::RandomRun run(choices);
    run.Load();
    Pair pair;
    pair.Prepare();
    constexpr int MostSteps = 25;
    for (int step = 0; step < MostSteps && !choices.AtEnd(); ++step) {
        if (run.Next() == Reference::Step::Prepare) {
            pair.Prepare();
        } else {
            pair.Infer();
        }
    }
}

} // namespace
} // namespace Quorvane::Fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Quorvane::Fuzz::Run({data, size});
    return 0;
}
