// SPDX-License-Identifier: MIT
// What the names in the rule tables stand for in the model and the values of the moment.
#include "engine/ModelBinding.h"

#include "engine/RuleTables.h"
#include "shared/Definition.h"
#include "shared/Markers.h"

namespace Quorvane::RunTime {
namespace {

BoundInput BindInput(const UsedInput& used, const Definition::ProcessState& state,
                     const OwnValueDictionary* values) {
    BoundInput bound;
    if (const auto* const item = values ? values->Items.Find(used.Name) : nullptr) {
        bound.Current = &item->Content;
    }
    bound.Variable = state.InputVariables ? state.InputVariables->Find(used.Name) : nullptr;
    bound.Terms.reserve(used.Terms.size());
    for (const Text& term : used.Terms) {
        bound.Terms.push_back(
            {term == NoneMarker, bound.Variable ? bound.Variable->MF.Find(term) : nullptr});
    }
    return bound;
}

} // namespace

bool ModelBinding::IsCurrent() const {
    // A dictionary that ends changes the stamp, so an address that is the same is the same one.
    const Definition::ProcessState& state = Definition::State();
    return stamp_ == DictionaryStamp::Current() && inputValues_ == state.InputValues.get() &&
           outputValues_ == state.OutputValues.get();
}

void ModelBinding::Bind(const RuleTables& tables) {
    const Definition::ProcessState& state = Definition::State();
    stamp_ = DictionaryStamp::Current();
    inputValues_ = state.InputValues.get();
    outputValues_ = state.OutputValues.get();
    const auto* const ownInputs = dynamic_cast<const OwnValueDictionary*>(inputValues_);
    inputs_.clear();
    for (const UsedInput& used : tables.UsedInputs) {
        inputs_.push_back(BindInput(used, state, ownInputs));
    }
    outputs_.clear();
    for (const UsedOutput& used : tables.UsedOutputs) {
        auto* const item = state.OutputValues ? state.OutputValues->Items.Find(used.Name) : nullptr;
        outputs_.push_back(item ? &item->Content : nullptr);
    }
}

} // namespace Quorvane::RunTime
