// SPDX-License-Identifier: MIT
// The one copy of the process-wide state.
#include "shared/Definition.h"

#include <forward_list>
#include <utility>

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

void GiveUp() {
    // Never destroyed: that would release what is in it.
    // NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): what it is for
    static auto& givenUp = *new std::forward_list<ProcessState>;
    ProcessState& former = givenUp.emplace_front();
    ProcessState& state = State();
    std::swap(state, former);
    state.InputsText = std::move(former.InputsText);
    state.OutputsText = std::move(former.OutputsText);
    state.RulesText = std::move(former.RulesText);
    state.HelpFile = std::move(former.HelpFile);
    state.LanguageId = former.LanguageId;
}

void Reset() {
    ProcessState fresh;
    // What was held is released when the old state leaves this scope, after the new one is in
    // place.
    std::swap(State(), fresh);
}

} // namespace Quorvane::Definition
