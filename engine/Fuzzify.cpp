// SPDX-License-Identifier: MIT
// From crisp inputs to degrees of membership.
#include "engine/Fuzzify.h"

#include "engine/EngineRoutine.h"
#include "engine/Membership.h"
#include "engine/RuleTables.h"

namespace Quorvane::RunTime {
namespace {

void FuzzifyValue(RuleTables& tables, UsedInput& input, const Value& value) {
    if (SameTextForm(input.LastInput, value)) {
        return;
    }
    const auto& variables = Definition::Require(Definition::State().InputVariables);
    const LinguisticVariable& variable = variables.At(input.Name);
    const double upper = variable.UBound;
    const double lower = variable.LBound;
    input.LastInput.reset();
    if (IsEmpty(value)) {
        throw EngineError(Message::InvalidInputSignal);
    }
    const double x = ToNumber(value);
    input.LastInput = x;
    for (std::size_t i = 0; i < input.Terms.size(); ++i) {
        tables.Degrees[input.DegreeIndices[i]] =
            Membership(input.Name, input.Terms[i], x, upper, lower);
    }
}

void FuzzifyInput(RuleTables& tables, UsedInput& input, ValueDictionary& values) {
    const Value& value = values.Get(input.Name);
    if (std::holds_alternative<std::shared_ptr<const HostValue>>(value)) {
        // Converting it may run code of the host, which may change the dictionary.
        FuzzifyValue(tables, input, Value(value));
    } else {
        FuzzifyValue(tables, input, value);
    }
}

} // namespace

void Fuzzify(RuleTables& tables) {
    RunRoutine(Message::InvalidInputSignal, [&tables] {
        // Held, as reading a host's dictionary may run code that assigns another one.
        const std::shared_ptr<ValueDictionary> values = Definition::State().InputValues;
        for (UsedInput& input : tables.UsedInputs) {
            FuzzifyInput(tables, input, Definition::Require(values));
        }
    });
}

} // namespace Quorvane::RunTime
