// SPDX-License-Identifier: MIT
// The words by which programs know findings.
#include <array>

#include "check/Describe.h"

namespace Quorvane::Check {
namespace {

struct KindName {
    FindingKind Kind;
    std::string_view Name;
};

constexpr std::array KindNames = {
    KindName{FindingKind::NoRules, "no-rules"},
    KindName{FindingKind::FailingRule, "failing-rule"},
    KindName{FindingKind::OutputNotSet, "output-not-set"},
    KindName{FindingKind::BoundsNotAscending, "bounds-not-ascending"},
    KindName{FindingKind::PointsNotAscending, "points-not-ascending"},
    KindName{FindingKind::FlankTooWide, "flank-too-wide"},
    KindName{FindingKind::Gap, "gap"},
    KindName{FindingKind::Conflict, "conflict"},
    KindName{FindingKind::Overlap, "overlap"},
    KindName{FindingKind::WeightZero, "weight-zero"},
    KindName{FindingKind::WeightOutOfRange, "weight-out-of-range"},
    KindName{FindingKind::ConditionNeverHolds, "condition-never-holds"},
    KindName{FindingKind::NoConclusion, "no-conclusion"},
    KindName{FindingKind::RuleCovered, "rule-covered"},
    KindName{FindingKind::UnusedVariable, "unused-variable"},
    KindName{FindingKind::UnusedTerm, "unused-term"},
    KindName{FindingKind::TermOutsideUniverse, "term-outside-universe"},
    KindName{FindingKind::UncoveredUniverse, "uncovered-universe"},
    KindName{FindingKind::PositionOutsideUniverse, "position-outside-universe"},
    KindName{FindingKind::RangeNotReached, "range-not-reached"},
    KindName{FindingKind::Fallback, "fallback"},
    KindName{FindingKind::Jump, "jump"},
    KindName{FindingKind::Steepest, "steepest"},
};

} // namespace

std::string_view NameOf(FindingKind kind) {
    for (const auto& [known, name] : KindNames) {
        if (known == kind) {
            return name;
        }
    }
    return {};
}

std::string_view NameOf(Severity severity) {
    return severity == Severity::Error     ? "error"
           : severity == Severity::Warning ? "warning"
                                           : "note";
}

} // namespace Quorvane::Check
