// SPDX-License-Identifier: MIT
// Help for tests that check systems.
#pragma once

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

#include "check/CheckSystem.h"
#include "system/DefinitionTexts.h"

namespace Quorvane::Check {

inline System::FuzzySystem Read(TextView inputs, TextView outputs, TextView rules) {
    return System::FromPlainTexts({Text(inputs), Text(outputs), Text(rules)});
}

/// The findings of a kind.
inline std::vector<Finding> Of(FindingKind kind, const CheckResult& result) {
    std::vector<Finding> found;
    std::ranges::copy_if(result.Findings, std::back_inserter(found),
                         [&](const Finding& each) { return each.Kind == kind; });
    return found;
}

/// The kinds of all findings but notes, in order.
inline std::vector<FindingKind> Faults(const CheckResult& result) {
    std::vector<FindingKind> kinds;
    for (const Finding& finding : result.Findings) {
        if (finding.Level != Severity::Note) {
            kinds.push_back(finding.Kind);
        }
    }
    return kinds;
}

/// The findings of a kind in a system.
inline std::vector<Finding> Find(FindingKind kind, TextView inputs, TextView outputs,
                                 TextView rules, const CheckLimits& limits = {}) {
    return Of(kind, CheckSystem(Read(inputs, outputs, rules), limits));
}

} // namespace Quorvane::Check
