// SPDX-License-Identifier: MIT
// How the conditions on one input stand to each other.
#include "check/ConditionRelations.h"

#include <algorithm>

#include "check/Degree.h"

namespace Quorvane::Check {

ConditionRelations::ConditionRelations(const Axis& axis, const System::InputVariable& input)
    : count_(axis.Conditions.size()), meet_(count_ * count_), covers_(count_ * count_, true),
      holdsEverywhere_(count_, true) {
    FindMeeting(axis);
    FindCovering(axis, input);
}

void ConditionRelations::FindMeeting(const Axis& axis) {
    std::vector<bool> isPeak(count_, true);
    for (const Piece& piece : axis.Pieces) {
        std::vector<bool> full(count_);
        for (const std::uint32_t condition : piece.Full) {
            full[condition] = true;
            isPeak[condition] = isPeak[condition] && piece.Values.First == piece.Values.Last;
        }
        for (std::uint32_t condition = 0; condition < count_; ++condition) {
            holdsEverywhere_[condition] = holdsEverywhere_[condition] && full[condition];
        }
    }
    for (const Piece& piece : axis.Pieces) {
        const bool isSingle = piece.Values.First == piece.Values.Last;
        for (const std::uint32_t first : piece.Full) {
            for (const std::uint32_t second : piece.Full) {
                if (!isSingle || isPeak[first] || isPeak[second]) {
                    meet_[first * count_ + second] = true;
                }
            }
        }
    }
    for (std::size_t condition = 0; condition < count_; ++condition) {
        meet_[condition * count_ + condition] = true;
    }
}

void ConditionRelations::FindCovering(const Axis& axis, const System::InputVariable& input) {
    // Degrees are straight on a piece, so its ends tell.
    std::vector<double> atFirst(count_);
    std::vector<double> atLast(count_);
    for (const Piece& piece : axis.Pieces) {
        std::vector<bool> active(count_);
        for (const std::uint32_t condition : piece.Active) {
            active[condition] = true;
            atFirst[condition] = DegreeOf(axis.Conditions[condition], input, piece.Values.First);
            atLast[condition] = DegreeOf(axis.Conditions[condition], input, piece.Values.Last);
        }
        for (const std::uint32_t narrow : piece.Active) {
            for (std::uint32_t wide = 0; wide < count_; ++wide) {
                if (!active[wide] || atFirst[wide] < atFirst[narrow] ||
                    atLast[wide] < atLast[narrow]) {
                    covers_[wide * count_ + narrow] = false;
                }
            }
        }
    }
}

} // namespace Quorvane::Check
