// SPDX-License-Identifier: MIT
// Findings in words.
#pragma once

#include <string_view>

#include "check/Finding.h"
#include "shared/Text.h"
#include "system/FuzzySystem.h"

namespace Quorvane::Check {

/// A word for programs: "gap", "rule-covered"; "note", "warning", "error".
std::string_view NameOf(FindingKind kind);
std::string_view NameOf(Severity severity);

/// What was found, as one sentence without a full stop; rules have their numbers, from 1: "No rule
/// fires for Pump in 20 % of the input space; the largest of 3 regions is Level 40 to 60".
Text Describe(const System::FuzzySystem& system, const Finding& finding);

/// The example of a finding: "Level = 50, Inflow = 5"; empty where there is none.
Text DescribeExample(const System::FuzzySystem& system, const Finding& finding);

} // namespace Quorvane::Check
