// SPDX-License-Identifier: MIT
// The one copy of the process-wide state.
#include "shared/Definition.h"

namespace Quorvane::Definition {

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): the one such variable
StateStorage TheState;

bool IsHeld() {
    const ProcessState& state = State();
    return state.InputVariables || state.OutputVariables || state.RuleBase || state.InputValues ||
           state.DefaultOutputValues || state.OutputValues || state.ErrorOutputValues ||
           state.Tables || state.LanguageId != 0 || !state.InputsText.empty() ||
           !state.OutputsText.empty() || !state.RulesText.empty();
}

void ReleaseModel() {
    // The host's objects are released last and outside the state, as they may call back.
    ProcessState& state = State();
    const auto inputValues = std::exchange(state.InputValues, nullptr);
    const auto outputValues = std::exchange(state.OutputValues, nullptr);
    state.InputVariables.reset();
    state.OutputVariables.reset();
    state.RuleBase.reset();
}

void Reset() {
    ProcessState fresh;
    // What was held is released when the old state leaves this scope, after the new one is in
    // place.
    std::swap(State(), fresh);
}

} // namespace Quorvane::Definition
