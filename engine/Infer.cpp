// SPDX-License-Identifier: MIT
// One inference cycle.
#include "engine/Infer.h"

#include <cmath>

#include "engine/EngineRoutine.h"
#include "engine/FireRules.h"
#include "engine/Fuzzify.h"
#include "engine/RulesInUse.h"

namespace Quorvane::RunTime {
namespace {

/// Sets an output that is missing or whose value is no number. The dictionary does it, as replacing
/// a value of the host may run its code.
void PutOutput(RulesInUse& rules, std::uint32_t index, Value value) {
    rules.Keep();
    const std::shared_ptr<OwnValueDictionary> values = Definition::State().OutputValues;
    Definition::Require(values).Put(rules->UsedOutputs[index].Name, std::move(value));
    rules.Refresh();
}

/// Sets an output for which no rule has fired.
void PutDefault(RulesInUse& rules, std::uint32_t index) {
    rules.Keep();
    // Held, as reading a host's dictionary may run code that assigns another one.
    const std::shared_ptr<ValueDictionary> defaults = Definition::State().DefaultOutputValues;
    Value value = Definition::Require(defaults).Get(rules->UsedOutputs[index].Name);
    rules.Refresh();
    PutOutput(rules, index, std::move(value));
}

void SetOutput(RulesInUse& rules, std::uint32_t index) {
    const UsedOutput& output = rules->UsedOutputs[index];
    if (output.Denominator == 0) {
        PutDefault(rules, index);
        return;
    }
    const double result = output.Numerator / output.Denominator;
    if (!std::isfinite(result)) {
        throw FisError(RuntimeError::Overflow);
    }
    if (double* const number = output.Current ? std::get_if<double>(output.Current) : nullptr) {
        *number = result;
    } else {
        PutOutput(rules, index, result);
    }
}

void SetOutputs(RulesInUse& rules) {
    for (const std::uint32_t index : rules->LastRuleOutputs) {
        if (index == RuleTables::UnknownOutput) {
            throw FisError(RuntimeError::MissingKey);
        }
        SetOutput(rules, index);
    }
}

void RunCycle(RulesInUse& rules) {
    Fuzzify(rules);
    if (rules->AddsToUnknownOutput) {
        throw FisError(RuntimeError::MissingKey);
    }
    if (!rules->AreSumsCurrent) {
        FireRules(*rules);
    }
    SetOutputs(rules);
}

} // namespace

void Infer() {
    RunRoutine(Message::InvalidInference, [] {
        if (PreparedRules* const prepared = Definition::State().Tables.get()) {
            RulesInUse rules(*prepared);
            RunCycle(rules);
        } else {
            // A rule base that was never prepared is an empty one.
            NoteRoutine(Message::InvalidInputSignal);
        }
    });
}

} // namespace Quorvane::RunTime
