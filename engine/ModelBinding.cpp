// SPDX-License-Identifier: MIT
// What the names in the rule tables stand for in the model and the values of the moment.
#include "engine/ModelBinding.h"

namespace Quorvane::RunTime {
namespace {

/// Where an item is; null where the dictionary is absent, lacks it or is a host's.
Value* FindItem(OwnValueDictionary* dictionary, TextView name) {
    auto* const item = dictionary ? dictionary->Items.Find(name) : nullptr;
    return item ? &item->Content : nullptr;
}

/// The addresses of the used terms of an input, the last one twice where their number is odd.
void BindTerms(UsedInput& input, const LinguisticTerm** terms) {
    input.HasAllTerms = true;
    for (const Text& name : input.Terms) {
        *terms = input.Variable ? input.Variable->MF.Find(name) : nullptr;
        input.HasAllTerms = input.HasAllTerms && *terms;
        ++terms;
    }
    if (input.TermCount % 2 != 0) {
        *terms = terms[-1];
    }
}

} // namespace

void ModelBinding::Bind(RuleTables& tables) {
    const Definition::ProcessState& state = Definition::State();
    stamp_ = DictionaryStamp::Current();
    inputValues_ = state.InputValues.get();
    outputValues_ = state.OutputValues.get();
    defaults_ = state.DefaultOutputValues.get();
    auto* const inputs = dynamic_cast<OwnValueDictionary*>(state.InputValues.get());
    for (UsedInput& input : tables.UsedInputs) {
        input.Current = FindItem(inputs, input.Name);
        input.Variable = state.InputVariables ? state.InputVariables->Find(input.Name) : nullptr;
        BindTerms(input, tables.BoundTerms.data() + input.FirstTerm);
    }
    auto* const defaults = dynamic_cast<OwnValueDictionary*>(state.DefaultOutputValues.get());
    for (UsedOutput& output : tables.UsedOutputs) {
        output.Current = FindItem(state.OutputValues.get(), output.Name);
        output.Default = FindItem(defaults, output.Name);
    }
}

} // namespace Quorvane::RunTime
