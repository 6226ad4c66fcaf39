// SPDX-License-Identifier: MIT
// One inference cycle as a host runs it, and what a failed one leaves.
#include "control/DispatchIds.h"
#include "control/FISControl.h"
#include "engine/Infer.h"
#include "shared/DefaultArithmetic.h"
#include "shared/Definition.h"

namespace Quorvane {
namespace {

/// The keys of a dictionary that are texts.
std::vector<Text> TextKeys(const OwnValueDictionary& values) {
    std::vector<Text> keys;
    for (const auto& [key, item] : values.Items) {
        if (!item.HostKey) {
            keys.push_back(key);
        }
    }
    return keys;
}

/// Sets every output to its error value, or to its default where no error values are set. An
/// output that the source lacks becomes Empty. What fails ends it; nothing is raised.
void ApplyErrorOutputs() noexcept {
    try {
        const Definition::ProcessState& state = Definition::State();
        // Held, as reading a host's dictionary may run code that assigns others.
        const auto outputs = state.OutputValues;
        const auto source =
            state.ErrorOutputValues ? state.ErrorOutputValues : state.DefaultOutputValues;
        if (!outputs || !source) {
            return;
        }
        for (const Text& key : TextKeys(*outputs)) {
            Value value = source->Get(key);
            outputs->Put(key, std::move(value));
        }
    } catch (...) {
        // A host's dictionary that cannot be read leaves the rest of the outputs as they are.
    }
}

} // namespace

STDMETHODIMP FISControl::Fire() noexcept {
    const Com::KeepAlive alive(this);
    RunCycle();
    return Com::Guard<_FISControl>([&] { RaiseInferComplate(); });
}

void FISControl::RunCycle() noexcept {
    const DefaultArithmetic arithmetic;
    display_.HidePanel();
    try {
        RunTime::Infer();
    } catch (...) {
        // The panel gets picture and text but stays hidden: only its content tells of the failure.
        display_.ShowError();
        ApplyErrorOutputs();
    }
    if (dataShow_) {
        display_.ShowValues();
        TellIfWindowless();
    }
}

void FISControl::RaiseInferComplate() {
    Raise<__FISControl>(DispatchIds::InferComplate);
}

} // namespace Quorvane
