// SPDX-License-Identifier: MIT
// What the names in the rule tables stand for in the model and the values of the moment.
#pragma once

#include <cstdint>
#include <vector>

#include "model/LinguisticVariable.h"
#include "shared/ValueDictionary.h"

namespace Quorvane::RunTime {

struct RuleTables;

/// A used term in the model.
struct BoundTerm {
    /// Takes no part in the rule: "[NONE]".
    bool IsNone;
    /// Null where the model has no such term.
    const LinguisticTerm* Shape;
};

/// A used input in the model and the values.
struct BoundInput {
    /// Null where the value has to be asked for by name: it is missing, or in a host's dictionary.
    const Value* Current = nullptr;
    /// Null where the model has no such variable.
    const LinguisticVariable* Variable = nullptr;
    std::vector<BoundTerm> Terms;
};

/// The addresses of what a cycle reads and writes by name. They hold until anything changes its
/// place, which two comparisons tell; values, bounds and points are read where they are, so edits
/// in place are seen at once.
class ModelBinding {
  public:
    /// Looks all names up again unless nothing has changed since.
    void Refresh(const RuleTables& tables) {
        if (!IsCurrent()) {
            Bind(tables);
        }
    }

    const BoundInput& Input(std::size_t index) const { return inputs_[index]; }

    /// The value of a used output, null where OutputValues has no such item.
    Value* Output(std::size_t index) const { return outputs_[index]; }

  private:
    bool IsCurrent() const;
    void Bind(const RuleTables& tables);

    std::uint64_t stamp_ = 0;
    const ValueDictionary* inputValues_ = nullptr;
    const OwnValueDictionary* outputValues_ = nullptr;
    std::vector<BoundInput> inputs_;
    std::vector<Value*> outputs_;
};

} // namespace Quorvane::RunTime
