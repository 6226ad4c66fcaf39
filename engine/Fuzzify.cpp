// SPDX-License-Identifier: MIT
// From crisp inputs to degrees of membership.
#include "engine/Fuzzify.h"

#include "engine/EngineRoutine.h"
#include "engine/Membership.h"
#include "engine/RuleTables.h"

namespace Quorvane::RunTime {
namespace {

/// Makes what depends on the degrees of an input follow them when it ends: also where only some of
/// the degrees were set before a term failed.
class DegreeChange {
  public:
    DegreeChange(RuleTables& tables, std::size_t input) : tables_(tables), input_(input) {}
    DegreeChange(const DegreeChange&) = delete;
    DegreeChange& operator=(const DegreeChange&) = delete;
    ~DegreeChange() {
        tables_.Selector.Update(input_, tables_.DegreesOf(tables_.UsedInputs[input_]));
        tables_.AreSumsCurrent = false;
    }

  private:
    RuleTables& tables_;
    std::size_t input_;
};

void SetDegrees(RuleTables& tables, std::size_t index, double x, double upper, double lower) {
    const DegreeChange change(tables, index);
    const std::vector<BoundTerm>& terms = tables.Binding.Input(index).Terms;
    double* const degrees = &tables.Degrees[tables.UsedInputs[index].FirstDegree];
    for (std::size_t i = 0; i < terms.size(); ++i) {
        degrees[i] = Membership(terms[i], x, upper, lower);
    }
}

void FuzzifyValue(RuleTables& tables, std::size_t index, const Value& value) {
    UsedInput& input = tables.UsedInputs[index];
    if (SameTextForm(input.LastInput, value)) {
        return;
    }
    tables.Binding.Refresh(tables);
    const LinguisticVariable* const variable = tables.Binding.Input(index).Variable;
    if (!variable) {
        throw FisError(RuntimeError::MissingKey);
    }
    const double upper = variable->UBound;
    const double lower = variable->LBound;
    // Empty until all degrees are set, so that an input that fails is fuzzified again.
    input.LastInput.reset();
    if (IsEmpty(value)) {
        throw FisError(RuntimeError::TypeMismatch);
    }
    const double x = ToNumber(value);
    tables.Binding.Refresh(tables);
    SetDegrees(tables, index, x, upper, lower);
    input.LastInput = x;
}

void FuzzifyInput(RuleTables& tables, std::size_t index) {
    tables.Binding.Refresh(tables);
    if (const Value* const bound = tables.Binding.Input(index).Current;
        bound && !std::holds_alternative<std::shared_ptr<const HostValue>>(*bound)) {
        FuzzifyValue(tables, index, *bound);
        return;
    }
    // Reading a host's dictionary, and converting a value of the host, may run code of the host
    // that changes or replaces the dictionary: it is held, and the value is a copy.
    const std::shared_ptr<ValueDictionary> values = Definition::State().InputValues;
    const Value value = Definition::Require(values).Get(tables.UsedInputs[index].Name);
    FuzzifyValue(tables, index, value);
}

} // namespace

void Fuzzify(RuleTables& tables) {
    RunRoutine(Message::InvalidInputSignal, [&tables] {
        for (std::size_t index = 0; index < tables.UsedInputs.size(); ++index) {
            FuzzifyInput(tables, index);
        }
    });
}

} // namespace Quorvane::RunTime
