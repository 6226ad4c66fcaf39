// SPDX-License-Identifier: MIT
// Preparation and inference: the engine beside the plain evaluator, through whatever the input
// spells.
#include "engine/ErrorOutputs.h"
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
            Raised([this] { ApplyErrorOutputs(); });
            RunTime::ApplyErrorOutputs();
        }
        Compare(expected, actual);
    }

    /// A host removes an output, or puts something else there.
    void EditOutput(Reference::Choices& choices) {
        auto& outputs = plain_.Prepared.OutputValues;
        if (outputs.Empty()) {
            return;
        }
        auto entry = outputs.begin();
        std::advance(entry, choices.Below(static_cast<std::uint32_t>(outputs.Count())));
        const Text name = entry->Key;
        if (choices.Percent(50)) {
            outputs.Remove(name);
            State().OutputValues->Items.Remove(name);
        } else {
            entry->Item = name;
            State().OutputValues->Put(name, name);
        }
    }

  private:
    /// What the control does after a failed cycle.
    void ApplyErrorOutputs() {
        const auto& source =
            State().ErrorOutputValues ? State().ErrorOutputValues : State().DefaultOutputValues;
        for (auto& [name, value] : plain_.Prepared.OutputValues) {
            value = source->Get(name);
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

/// The sizes of systems: a few rules, which are all fired; so many that sets of bits pay; and grids
/// of all numbers of axes.
constexpr Reference::SystemLimits Sizes[] = {
    {},
    {.Inputs = 6, .Terms = 6, .Outputs = 4, .Rules = 120},
    {.Inputs = 7, .Terms = 4, .Outputs = 3, .Rules = 260, .OddOutputs = 3, .Grids = 90},
};

void Follow(Reference::SpelledChoices& choices, Reference::RandomRun& run) {
    run.Load();
    Pair pair;
    pair.Prepare();
    constexpr int MostSteps = 25;
    for (int step = 0; step < MostSteps && !choices.AtEnd(); ++step) {
        if (choices.Percent(4)) {
            pair.EditOutput(choices);
        }
        if (run.Next() == Reference::Step::Prepare) {
            pair.Prepare();
        } else {
            pair.Infer();
        }
    }
}

/// A small system is spelled by the input as well; larger ones it could not spell in full.
void Run(std::span<const std::uint8_t> input) {
    Definition::Reset();
    Reference::SpelledChoices choices(input);
    const std::uint32_t share = choices.Below(10);
    const std::uint32_t size = share < 7 ? 0 : share < 8 ? 1 : 2;
    const Reference::HostObjects host{.Share = choices.Below(30), .Code = {}};
    if (size == 0) {
        Reference::RandomRun run(choices, choices, Sizes[size], host);
        Follow(choices, run);
    } else {
        Reference::Random systems(choices.Bits());
        Reference::RandomRun run(choices, systems, Sizes[size], host);
        Follow(choices, run);
    }
}

} // namespace
} // namespace Quorvane::Fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Quorvane::Fuzz::Run({data, size});
    return 0;
}
