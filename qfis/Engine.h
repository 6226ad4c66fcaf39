// SPDX-License-Identifier: MIT
// The product's engine over a system as a value.
#pragma once

#include <optional>
#include <vector>

#include "shared/Value.h"
#include "system/FuzzySystem.h"

namespace Quorvane::Qfis {

/// Runs cycles of a system as the control's Fire does. It takes the fuzzy system of the process for
/// itself: there can be one at a time.
class Engine {
  public:
    explicit Engine(const System::FuzzySystem& system);
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;
    ~Engine();

    /// Sets an input, by its index, for the cycles that follow; it starts at its lower bound.
    void SetInput(std::size_t index, const std::optional<double>& value) {
        double* const number = value ? std::get_if<double>(inputs_[index]) : nullptr;
        if (number) {
            *number = *value;
        } else {
            ReplaceInput(index, value);
        }
    }

    /// One cycle. False where it failed: then every output has its default.
    bool Fire();

    /// An output variable's value after the cycle, by its index. None where the first rule does not
    /// name it.
    std::optional<double> Output(std::size_t index) const {
        const double* const number =
            outputs_[index] ? std::get_if<double>(outputs_[index]) : nullptr;
        return number ? std::optional(*number) : std::nullopt;
    }

  private:
    void ReplaceInput(std::size_t index, const std::optional<double>& value);

    std::vector<Value*> inputs_;
    /// Null for those that the first rule does not name.
    std::vector<const Value*> outputs_;
};

} // namespace Quorvane::Qfis
