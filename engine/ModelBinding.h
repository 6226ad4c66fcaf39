// SPDX-License-Identifier: MIT
// What the names in the rule tables stand for in the model and the values of the moment.
#pragma once

#include <cstdint>

#include "engine/RuleTables.h"
#include "shared/Definition.h"

namespace Quorvane::RunTime {

/// Keeps the addresses of what a cycle reads and writes by name, and copies of the points of terms.
/// They hold until anything changes its place or a point is set, which a few comparisons tell;
/// values and bounds are read where they are, so edits in place are seen at once.
class ModelBinding {
  public:
    /// Looks all names of the tables up again unless nothing has changed since. The tables are the
    /// same every time.
    void Refresh(RuleTables& tables) {
        if (!IsCurrent()) {
            Bind(tables);
        }
    }

    /// Whether nothing has changed since the names were looked up.
    bool IsCurrent() const noexcept {
        // A dictionary that ends changes the stamp, so an address that is the same is the same one.
        const Definition::ProcessState& state = Definition::State();
        return stamp_ == ChangeStamp::Current() && inputValues_ == state.InputValues.get() &&
               outputValues_ == state.OutputValues.get() &&
               defaults_ == state.DefaultOutputValues.get();
    }

    /// Looks up the one output that has been added to a system to which the binding was current.
    void BindAdded(UsedOutput& output);

  private:
    void Bind(RuleTables& tables);

    std::uint64_t stamp_ = 0;
    const ValueDictionary* inputValues_ = nullptr;
    const ValueDictionary* outputValues_ = nullptr;
    const ValueDictionary* defaults_ = nullptr;
};

} // namespace Quorvane::RunTime
