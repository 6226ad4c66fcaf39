// SPDX-License-Identifier: MIT
// Looks for what is wrong with a fuzzy system, or worth knowing of it.
#pragma once

#include <map>
#include <vector>

#include "check/Finding.h"
#include "system/FuzzySystem.h"

namespace Quorvane::Check {

struct CheckLimits {
    /// The most pairs of rules that are reported for each kind.
    std::size_t Pairs = 50;
    /// How many steps an exhaustive search may take before samples are taken instead; a step looks
    /// at one rule, a few nanoseconds.
    std::size_t Steps = 4'000'000;
    /// How many of the points between which the response is measured.
    std::size_t Samples = 4000;
};

struct CheckResult {
    /// Errors first, then warnings, then notes.
    std::vector<Finding> Findings;
    /// How many more pairs of rules there are than those reported, for each kind.
    std::map<FindingKind, std::size_t> Omitted;

    /// The highest severity there is; none without findings.
    std::optional<Severity> Highest() const;
};

/// Checks a system.
///
/// Exact, however large the system: everything about single rules, terms and variables, and all
/// about pairs of rules. Exact by a search that takes at most so many steps, and found by samples
/// beyond that (Finding::IsExact): gaps and what outputs reach. Steepest places and jumps are the
/// largest ones among samples, which include the corners where terms begin, peak and end.
CheckResult CheckSystem(const System::FuzzySystem& system, const CheckLimits& limits = {});

} // namespace Quorvane::Check
