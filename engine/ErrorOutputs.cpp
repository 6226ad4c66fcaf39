// SPDX-License-Identifier: MIT
// What a failed cycle leaves in the outputs.
#include "engine/ErrorOutputs.h"

#include <utility>
#include <vector>

#include "shared/Definition.h"

namespace Quorvane::RunTime {
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

} // namespace

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

} // namespace Quorvane::RunTime
