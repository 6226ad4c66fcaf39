// SPDX-License-Identifier: MIT
// The engine and the plain evaluator behind one face, so that both pass the same tests.
#pragma once

#include <memory>
#include <ostream>

#include "shared/Definition.h"

namespace Quorvane {

/// Something that prepares the rule base and runs cycles over the model of the process.
class EngineRunner {
  public:
    EngineRunner() = default;
    EngineRunner(const EngineRunner&) = delete;
    EngineRunner& operator=(const EngineRunner&) = delete;
    virtual ~EngineRunner() = default;

    virtual void PrepareRuleBase() = 0;
    virtual void Infer() = 0;
    virtual std::int32_t CurrentErrorId() const = 0;

    /// The names of the outputs, in order.
    virtual std::vector<Text> OutputNames() const = 0;
    /// An output, Empty when there is none of that name.
    virtual Value Output(TextView name) const = 0;
    /// Replaces every output by its default, as the control does after a failed cycle.
    virtual void ApplyDefaults() = 0;
};

std::unique_ptr<EngineRunner> MakeEngine();
std::unique_ptr<EngineRunner> MakePlainEvaluator();

/// Which of the two a test runs on.
struct RunnerKind {
    const char* Name;
    std::unique_ptr<EngineRunner> (*Make)();

    friend void PrintTo(const RunnerKind& kind, std::ostream* stream) { *stream << kind.Name; }
};

inline constexpr RunnerKind BothRunners[] = {{"Engine", MakeEngine},
                                             {"PlainEvaluator", MakePlainEvaluator}};

} // namespace Quorvane
