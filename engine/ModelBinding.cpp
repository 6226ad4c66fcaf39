// SPDX-License-Identifier: MIT
// What the names in the rule tables stand for in the model and the values of the moment.
#include "engine/ModelBinding.h"

namespace Quorvane::RunTime {
namespace {

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
    const auto* const ownInputs = dynamic_cast<const OwnValueDictionary*>(inputValues_);
    for (UsedInput& input : tables.UsedInputs) {
        const auto* const item = ownInputs ? ownInputs->Items.Find(input.Name) : nullptr;
        input.Current = item ? &item->Content : nullptr;
        input.Variable = state.InputVariables ? state.InputVariables->Find(input.Name) : nullptr;
        BindTerms(input, tables.BoundTerms.data() + input.FirstTerm);
    }
    for (UsedOutput& output : tables.UsedOutputs) {
        auto* const item =
            state.OutputValues ? state.OutputValues->Items.Find(output.Name) : nullptr;
        output.Current = item ? &item->Content : nullptr;
    }
}

} // namespace Quorvane::RunTime
