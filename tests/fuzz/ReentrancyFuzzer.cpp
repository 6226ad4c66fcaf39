// SPDX-License-Identifier: MIT
// The engine while a host's objects, which it reads, do to the system whatever the input spells:
// every cycle ends, by itself or with one of the engine's errors, and leaves a system that works.
#include <new>
#include <stdexcept>

#include "engine/ErrorOutputs.h"
#include "engine/Infer.h"
#include "engine/PrepareRuleBase.h"
#include "model/BuiltInDefinition.h"
#include "model/ParseDefinition.h"
#include "tests/fuzz/Check.h"
#include "tests/reference/RandomRun.h"

namespace Quorvane::Fuzz {
namespace {

using Definition::State;

bool IsEngineError(std::uint32_t number) {
    return number >= ObjectErrorBase + 79 && number <= ObjectErrorBase + 83;
}

/// Runs an action; only the errors of the engine may come of it, and what a host's code has thrown.
void Act(void (*action)()) {
    try {
        action();
    } catch (const FisError& error) {
        Check(IsEngineError(error.Number), "an error of the engine");
    } catch (const std::bad_alloc&) {
        return;
    }
    // Anything else ends the fuzzer.
}

class Host {
  public:
    explicit Host(std::span<const std::uint8_t> input)
        : choices_(input),
          run_(choices_, choices_, {}, {.Share = 40, .Code = [this] { AnswerCall(); }}) {}

    void Run() {
        run_.Load();
        Act(RunTime::PrepareRuleBase);
        constexpr int MostSteps = 20;
        for (int step = 0; step < MostSteps && !choices_.AtEnd(); ++step) {
            Step();
        }
        CheckThatAllWorks();
    }

  private:
    /// Whatever has happened: a system that is loaded now works.
    static void CheckThatAllWorks() {
        Definition::Reset();
        State().InputsText = Main::BuiltInInputs();
        State().OutputsText = Main::BuiltInOutputs();
        State().RulesText = Main::BuiltInRules();
        Main::ParseDefinition();
        RunTime::PrepareRuleBase();
        RunTime::Infer();
        Check(State().OutputValues->Get(u"Action") == Value(-1.0), "a cycle at both lower bounds");
    }

    void Step() {
        if (!State().InputVariables || !State().OutputVariables || !State().RuleBase) {
            run_.Load();
        }
        if (run_.Next() == Reference::Step::Prepare) {
            Act(RunTime::PrepareRuleBase);
        } else {
            Act(RunTime::Infer);
            RunTime::ApplyErrorOutputs();
        }
    }

    /// What one of the host's objects does when it is asked.
    void AnswerCall() {
        constexpr int Deepest = 3;
        if (depth_ == Deepest || choices_.AtEnd()) {
            return;
        }
        ++depth_;
        try {
            Misbehave();
        } catch (...) {
            --depth_;
            throw;
        }
        --depth_;
    }

    void Misbehave() {
        switch (choices_.Below(12)) {
        case 0:
            throw FisError(RuntimeError::InvalidCall);
        case 1:
            throw std::runtime_error("a failure of the host");
        case 2:
            throw std::bad_alloc();
        case 3:
            Definition::ReleaseModel();
            break;
        case 4:
            Definition::Reset();
            break;
        case 5:
            Raised(Main::ParseDefinition);
            break;
        case 6:
        case 7:
            Step();
            break;
        default:
            break;
        }
    }

    Reference::SpelledChoices choices_;
    Reference::RandomRun run_;
    int depth_ = 0;
};

} // namespace
} // namespace Quorvane::Fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Quorvane::Fuzz::Host({data, size}).Run();
    return 0;
}
