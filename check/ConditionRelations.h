// SPDX-License-Identifier: MIT
// How the conditions on one input stand to each other.
#pragma once

#include <cstdint>
#include <vector>

#include "check/Axis.h"

namespace Quorvane::Check {

/// Of an axis with n conditions, tables of n x n.
class ConditionRelations {
  public:
    ConditionRelations(const Axis& axis, const System::InputVariable& input);

    /// Whether both hold fully at the same place, or are the same. Ranges that merely touch, as
    /// those of neighbouring steps do, do not meet; a peak within a range does.
    bool Meet(std::uint32_t first, std::uint32_t second) const {
        return meet_[first * count_ + second];
    }

    /// Whether the wide one holds at least as much as the narrow one, wherever that is.
    bool Covers(std::uint32_t wide, std::uint32_t narrow) const {
        return covers_[wide * count_ + narrow];
    }

    /// Whether a condition holds fully in the whole universe.
    bool HoldsEverywhere(std::uint32_t condition) const { return holdsEverywhere_[condition]; }

  private:
    void FindMeeting(const Axis& axis);
    void FindCovering(const Axis& axis, const System::InputVariable& input);

    std::size_t count_;
    std::vector<bool> meet_;
    std::vector<bool> covers_;
    std::vector<bool> holdsEverywhere_;
};

} // namespace Quorvane::Check
