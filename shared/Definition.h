// SPDX-License-Identifier: MIT
// The process-wide state: one fuzzy system, shared by every control and editor of the process.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "shared/LinguisticVariable.h"
#include "shared/PooledNodes.h"
#include "shared/StringKeyedDictionary.h"
#include "shared/ValueDictionary.h"

namespace Quorvane {

namespace RunTime {
struct PreparedRules;
}

/// Variables by name, without regard to case.
using VariableDictionary = StringKeyedDictionary<LinguisticVariable>;

/// A rule is held as its text alone, the key; there is nothing else to tell of it.
struct RuleContent {};
/// The rules, of which there can be tens of thousands.
using RuleDictionary = StringKeyedDictionary<RuleContent, PooledNodes>;

namespace Definition {

/// All that the process knows of the fuzzy system. An absent member is an object that is not set:
/// before the first parse, and after a control has ended and released the model.
struct ProcessState {
    /// The definition texts in their stored form.
    Text InputsText;
    Text OutputsText;
    Text RulesText;

    std::optional<VariableDictionary> InputVariables;
    std::optional<VariableDictionary> OutputVariables;
    std::optional<RuleDictionary> RuleBase;

    std::shared_ptr<ValueDictionary> InputValues;
    std::shared_ptr<ValueDictionary> DefaultOutputValues;
    std::shared_ptr<OwnValueDictionary> OutputValues;
    /// The outputs to use after a failed cycle, where a host has given any.
    std::shared_ptr<ValueDictionary> ErrorOutputValues;

    /// What the engine made of the rule base; absent until a rule base is prepared.
    std::shared_ptr<RunTime::PreparedRules> Tables;

    /// The text id of the message of the engine routine that last started, 0 before any has.
    std::int32_t CurrentErrorId = 0;

    /// The locale that chooses the language: 2052 is Simplified Chinese, any other English.
    std::int32_t LanguageId = 0;

    /// The help file of the current language, where the help directory is known.
    Text HelpFile;
};

/// Holds the state without ever destroying it.
union StateStorage {
    constexpr StateStorage() : State() {}
    StateStorage(const StateStorage&) = delete;
    StateStorage& operator=(const StateStorage&) = delete;
    // NOLINTNEXTLINE(modernize-use-equals-default): a union with such a member has no default one
    ~StateStorage() {}

    ProcessState State;
};

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): the one such variable
extern StateStorage TheState;

/// The state of the process. It is there from the loading of the module on, and it is never
/// destroyed by itself: it can hold objects of the host, which must not be released while the
/// module is being unloaded.
inline ProcessState& State() noexcept {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-union-access): its only member
    return TheState.State;
}

/// Whether the process holds a fuzzy system or any object of a host.
bool IsHeld();

/// Releases the model, the values and the current outputs, as a control does that ends. The
/// defaults, the prepared tables and the texts stay.
void ReleaseModel();

/// Parts from the model, the values and the tables without releasing anything: they stay where they
/// are for good, as they can hold objects of a thread that has ended, which nobody may call. The
/// texts and the language stay in use. Throws std::bad_alloc, and then nothing has changed.
void GiveUp();

/// Returns the state to that of a new process.
void Reset();

/// The dictionary, or ObjectNotSet raised where it is absent.
template <class Holder>
auto& Require(Holder& holder) {
    if (!holder) {
        throw FisError(RuntimeError::ObjectNotSet);
    }
    return *holder;
}

} // namespace Definition
} // namespace Quorvane
