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

/// Raises Overflow for a result beyond the range of a Double.
double Finite(double result) {
    if (!std::isfinite(result)) {
        throw FisError(RuntimeError::Overflow);
    }
    return result;
}

/// Sets an output that is missing or whose value is no number. The dictionary does it, as replacing
/// a value of the host may run its code. Out of line, so that other cycles need not save the
/// registers for it.
[[gnu::noinline]] void PutOutput(RulesInUse& rules, std::uint32_t index, Value value) {
    rules.Keep();
    UsedOutput& output = rules->UsedOutputs[index];
    const bool isThere = output.Current != nullptr;
    const bool isCurrent = rules->Binding.IsCurrent();
    const std::shared_ptr<OwnValueDictionary> values = Definition::State().OutputValues;
    Definition::Require(values).Put(output.Name, std::move(value));
    if (isThere || !isCurrent) {
        rules.Refresh();
    } else {
        // One that is added runs no code and moves no other: thousands of them need no look each.
        rules->Binding.BindAdded(output);
    }
}

void SetOutput(RulesInUse& rules, std::uint32_t index, double value) {
    Value* const current = rules->UsedOutputs[index].Current;
    if (double* const number = current ? std::get_if<double>(current) : nullptr) {
        *number = value;
    } else {
        PutOutput(rules, index, value);
    }
}

/// Sets an output to a default that is no number or not in a dictionary of the system's own. It is
/// held, as reading a host's dictionary may run code that assigns another one.
[[gnu::noinline]] void SetToDefaultOfHost(RulesInUse& rules, std::uint32_t index) {
    rules.Keep();
    const std::shared_ptr<ValueDictionary> defaults = Definition::State().DefaultOutputValues;
    Value value = Definition::Require(defaults).Get(rules->UsedOutputs[index].Name);
    rules.Refresh();
    PutOutput(rules, index, std::move(value));
}

/// Sets an output for which no rule has fired.
void SetToDefault(RulesInUse& rules, std::uint32_t index) {
    const Value* const bound = rules->UsedOutputs[index].Default;
    if (const double* const number = bound ? std::get_if<double>(bound) : nullptr) {
        SetOutput(rules, index, *number);
    } else {
        SetToDefaultOfHost(rules, index);
    }
}

void SetOutputs(RulesInUse& rules) {
    for (const std::uint32_t index : rules->LastRuleOutputs) {
        if (index == RuleTables::UnknownOutput) {
            throw FisError(RuntimeError::MissingKey);
        }
        const DoublePair sum = rules->Sums[index];
        if (sum[1] == 0) {
            SetToDefault(rules, index);
        } else {
            SetOutput(rules, index, Finite(sum[0] / sum[1]));
        }
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
