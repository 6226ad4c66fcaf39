// SPDX-License-Identifier: MIT
// What the names in the rule tables stand for in the model and the values of the moment.
#include "engine/ModelBinding.h"

#include <algorithm>

namespace Quorvane::RunTime {
namespace {

/// Where an item is; null where the dictionary is absent, lacks it or is a host's.
Value* FindItem(OwnValueDictionary* dictionary, TextView name) {
    auto* const item = dictionary ? dictionary->Items.Find(name) : nullptr;
    return item ? &item->Content : nullptr;
}

/// Finds the used terms of an input, the last one twice where their number is odd.
void BindTerms(RuleTables& tables, UsedInput& input) {
    const LinguisticTerm** const terms = tables.BoundTerms.data() + input.FirstTerm;
    input.CanBePaired = true;
    for (std::size_t i = 0; i < input.TermCount; ++i) {
        terms[i] = input.Variable ? input.Variable->MF.Find(input.Terms[i]) : nullptr;
        input.CanBePaired = input.CanBePaired && terms[i] && CanBePaired(terms[i]->Points);
    }
    if (!input.CanBePaired) {
        return;
    }
    for (std::size_t i = 0; i < input.TermCount; i += 2) {
        const std::size_t next = std::min<std::size_t>(i + 1, input.TermCount - 1);
        tables.Trapezoids[(input.FirstTerm + i) / 2] =
            TrapezoidPair(terms[i]->Points, terms[next]->Points);
    }
}

} // namespace

void ModelBinding::Bind(RuleTables& tables) {
    const Definition::ProcessState& state = Definition::State();
    stamp_ = ChangeStamp::Current();
    inputValues_ = state.InputValues.get();
    outputValues_ = state.OutputValues.get();
    defaults_ = state.DefaultOutputValues.get();
    auto* const inputs = dynamic_cast<OwnValueDictionary*>(state.InputValues.get());
    for (UsedInput& input : tables.UsedInputs) {
        input.Current = FindItem(inputs, input.Name);
        input.Variable = state.InputVariables ? state.InputVariables->Find(input.Name) : nullptr;
        BindTerms(tables, input);
    }
    auto* const defaults = dynamic_cast<OwnValueDictionary*>(state.DefaultOutputValues.get());
    for (UsedOutput& output : tables.UsedOutputs) {
        output.Current = FindItem(state.OutputValues.get(), output.Name);
        output.Default = FindItem(defaults, output.Name);
    }
}

void ModelBinding::BindAdded(UsedOutput& output) {
    output.Current = FindItem(Definition::State().OutputValues.get(), output.Name);
    stamp_ = ChangeStamp::Current();
}

} // namespace Quorvane::RunTime
