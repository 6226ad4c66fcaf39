// SPDX-License-Identifier: MIT
// What can happen to a loaded system, made up at random.
#pragma once

#include "tests/reference/RandomSystem.h"

namespace Quorvane::Reference {

/// What the code of a run is to do next; everything else about the step has been done already.
enum class Step {
    /// Prepare the rule base; more often than not it has changed.
    Prepare,
    /// Run a cycle; inputs may have been set or left, and the model edited.
    Infer,
};

/// Loads made-up systems into the process and then changes, at random, what a host or an editor can
/// change: inputs, bounds, points, terms, names, rules, dictionaries, the language, the texts. Any
/// number of engines can follow the run; each does every step.
class RandomRun {
  public:
    explicit RandomRun(Choices& choices, const SystemLimits& limits = {})
        : choices_(choices), limits_(limits) {}

    /// Stores a new system's texts and parses them.
    void Load();

    /// Changes the model and values, and tells what is to be done then.
    Step Next();

  private:
    void SetInputs();
    void Edit();
    void EditInput();
    void EditTerm(LinguisticVariable& variable);
    void EditOutputs();
    void EditRules();
    void EditValues();
    void ReplaceInputValues();

    Choices& choices_;
    SystemLimits limits_;
};

} // namespace Quorvane::Reference
