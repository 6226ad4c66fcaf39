// SPDX-License-Identifier: MIT
// What can happen to a loaded system, made up at random.
#pragma once

#include "shared/Definition.h"
#include "tests/reference/RandomHost.h"
#include "tests/reference/RandomSystem.h"

namespace Quorvane::Reference {

/// What the code of a run is to do next; everything else about the step has been done already.
enum class Step {
    /// Prepare the rule base; more often than not it has changed.
    Prepare,
    /// Run a cycle; inputs may have been set or left, and the model edited.
    Infer,
};

/// What a host brings into a run beside numbers and texts.
struct HostObjects {
    /// The share of values, and of edits, in percent, that are a host's.
    std::uint32_t Share = 0;
    /// What its objects do before they answer.
    HostCode Code;
};

/// Loads made-up systems into the process and then changes, at random, what a host or an editor can
/// change: inputs, bounds, points, terms, names, rules, dictionaries, the language, the texts. Any
/// number of engines can follow the run; each does every step.
class RandomRun {
  public:
    explicit RandomRun(Choices& choices, const SystemLimits& limits = {})
        : RandomRun(choices, choices, limits, {}) {}

    /// A run whose systems are made up by choices of their own, and which has a host's objects.
    RandomRun(Choices& choices, Choices& systems, const SystemLimits& limits, HostObjects host)
        : choices_(choices), systems_(systems), limits_(limits), host_(std::move(host)) {}

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
    void EditAsHost();
    void ReplaceOutputs();
    void EditOddly(LinguisticVariable& variable);
    Value MakeInput(const std::vector<double>& edges);
    std::shared_ptr<ValueDictionary> MakeDictionary(const VariableDictionary& variables);

    Choices& choices_;
    Choices& systems_;
    SystemLimits limits_;
    HostObjects host_;
};

} // namespace Quorvane::Reference
