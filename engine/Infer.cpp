// SPDX-License-Identifier: MIT
// One inference cycle.
#include "engine/Infer.h"

#include <cmath>

#include "engine/EngineRoutine.h"
#include "engine/Fuzzify.h"
#include "engine/RuleTables.h"

namespace Quorvane::RunTime {
namespace {

/// Raises Overflow for a result beyond the range of a Double.
double Finite(double result) {
    if (!std::isfinite(result)) {
        throw FisError(RuntimeError::Overflow);
    }
    return result;
}

void FireRule(RuleTables& tables, std::size_t rule) {
    double activation = tables.Rules[rule].Weight;
    for (const std::uint32_t degree : tables.AntecedentsOf(rule)) {
        activation *= tables.Degrees[degree];
    }
    for (const Consequent& consequent : tables.ConsequentsOf(rule)) {
        UsedOutput& output = tables.UsedOutputs[consequent.Output];
        output.Numerator += activation * consequent.Point;
        output.Denominator += activation;
    }
}

void FireRules(RuleTables& tables) {
    for (UsedOutput& output : tables.UsedOutputs) {
        output.Numerator = 0;
        output.Denominator = 0;
    }
    for (const std::uint32_t rule : tables.Selector.Select()) {
        FireRule(tables, rule);
    }
    tables.AreSumsCurrent = true;
}

/// Writes where the item is known to be. Where a value of the host is replaced, which may run its
/// code, or the item is missing, the dictionary does it.
void PutOutput(RuleTables& tables, std::uint32_t index, Value value) {
    tables.Binding.Refresh(tables);
    Value* const bound = tables.Binding.Output(index);
    if (bound && std::holds_alternative<double>(*bound) && std::holds_alternative<double>(value)) {
        *bound = std::get<double>(value);
        return;
    }
    const std::shared_ptr<OwnValueDictionary> values = Definition::State().OutputValues;
    Definition::Require(values).Put(tables.UsedOutputs[index].Name, std::move(value));
}

/// The value of an output for which no rule has fired.
Value DefaultOutput(const Text& name) {
    // Held, as reading a host's dictionary may run code that assigns another one.
    const std::shared_ptr<ValueDictionary> defaults = Definition::State().DefaultOutputValues;
    return Definition::Require(defaults).Get(name);
}

void SetOutputs(RuleTables& tables) {
    // Sums that have left the range of a Double never come back into it, so one look is enough.
    for (const UsedOutput& output : tables.UsedOutputs) {
        Finite(output.Numerator);
        Finite(output.Denominator);
    }
    for (const std::uint32_t index : tables.LastRuleOutputs) {
        if (index == RuleTables::UnknownOutput) {
            throw FisError(RuntimeError::MissingKey);
        }
        const UsedOutput& output = tables.UsedOutputs[index];
        PutOutput(tables, index,
                  output.Denominator != 0 ? Value(Finite(output.Numerator / output.Denominator))
                                          : DefaultOutput(output.Name));
    }
}

} // namespace

void Infer() {
    RunRoutine(Message::InvalidInference, [] {
        // Held, as reading a host's dictionary may run code that prepares the rule base anew. A
        // rule base that was never prepared is an empty one.
        const std::shared_ptr<RuleTables> prepared = Definition::State().Tables;
        const auto held = prepared ? prepared : std::make_shared<RuleTables>();
        RuleTables& tables = *held;
        Fuzzify(tables);
        if (tables.AddsToUnknownOutput) {
            throw FisError(RuntimeError::MissingKey);
        }
        if (!tables.AreSumsCurrent) {
            FireRules(tables);
        }
        SetOutputs(tables);
    });
}

} // namespace Quorvane::RunTime
