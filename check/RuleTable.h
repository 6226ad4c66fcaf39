// SPDX-License-Identifier: MIT
// The rules of a system in the form in which they are searched.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

#include "check/Axis.h"
#include "system/CycleOutputs.h"
#include "system/FuzzySystem.h"

namespace Quorvane::Check {

/// The rules of a system as numbers in rows. Refers to the system.
class RuleTable {
  public:
    /// Stands for an input on which a rule has no condition.
    static constexpr std::uint32_t None = std::numeric_limits<std::uint32_t>::max();

    explicit RuleTable(const System::FuzzySystem& system);

    std::size_t Rules() const { return checked_->Rules.size(); }
    std::size_t Inputs() const { return Axes.size(); }

    /// The condition of a rule on an input, as an index into the conditions of its axis, or None.
    std::uint32_t ConditionOf(std::size_t rule, std::size_t input) const {
        return conditions_[rule * Inputs() + input];
    }

    /// On how many inputs a rule has a condition.
    std::uint32_t ConditionsOf(std::size_t rule) const { return conditionCounts_[rule]; }

    /// Where a rule puts an output (a place among Outputs); none where it concludes nothing.
    const std::optional<double>& PositionOf(std::size_t rule, std::size_t output) const {
        return positions_[rule * Outputs.size() + output];
    }

    /// Whether a rule fires anywhere: its weight is not 0, and each of its conditions holds
    /// somewhere.
    bool CanFire(std::size_t rule) const { return canFire_[rule]; }

    /// Whether a condition on an input holds for any of its values.
    bool HoldsSomewhere(std::size_t input, std::uint32_t condition) const {
        return holding_[input][condition];
    }

    double WeightOf(std::size_t rule) const { return checked_->Rules[rule].Weight; }

    const System::FuzzySystem& Checked() const { return *checked_; }

    std::vector<Axis> Axes;
    std::vector<System::CycleOutput> Outputs;

  private:
    void ReadRule(std::size_t rule, std::vector<std::vector<Condition>>& conditions);

    const System::FuzzySystem* checked_;
    std::vector<std::uint32_t> conditions_;
    std::vector<std::uint32_t> conditionCounts_;
    std::vector<std::optional<double>> positions_;
    /// For each input, which of its conditions hold somewhere.
    std::vector<std::vector<bool>> holding_;
    std::vector<bool> canFire_;
};

} // namespace Quorvane::Check
