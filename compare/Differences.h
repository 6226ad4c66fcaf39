// SPDX-License-Identifier: MIT
// What two fuzzy systems differ in.
#pragma once

#include <vector>

#include "system/FuzzySystem.h"

namespace Quorvane::Compare {

enum class Change { Added, Removed, Changed };

/// One difference. What is added has no former content, what is removed no new one.
struct Difference {
    Compare::Change Change;
    /// What differs: "input Level", "output Pump, term Full", "rule IF Level IS Low THEN Pump IS
    /// Off".
    Text Subject;
    Text Before;
    Text After;

    bool operator==(const Difference&) const = default;
};

/// The differences of the second system from the first: inputs, outputs and their terms by name,
/// without regard to case, and rules by what they say; a rule whose weight alone differs is
/// changed. Where all of these are the same but not in the same order, that is the one difference.
/// None for equal systems alone.
std::vector<Difference> Differences(const System::FuzzySystem& first,
                                    const System::FuzzySystem& second);

} // namespace Quorvane::Compare
