// SPDX-License-Identifier: MIT
// Looks for what is wrong with a fuzzy system, or worth knowing of it.
#include "check/CheckSystem.h"

#include <algorithm>

#include "check/ComparePairs.h"
#include "check/FindFaults.h"
#include "check/FindGaps.h"
#include "check/FindReach.h"
#include "check/FindSteepest.h"
#include "check/Response.h"
#include "check/RuleTable.h"

namespace Quorvane::Check {
namespace {

void Append(std::vector<Finding>& findings, std::vector<Finding> more) {
    findings.insert(findings.end(), std::make_move_iterator(more.begin()),
                    std::make_move_iterator(more.end()));
}

Finding NoRulesFound() {
    Finding finding;
    finding.Kind = FindingKind::NoRules;
    finding.Level = Severity::Error;
    return finding;
}

} // namespace

std::optional<Severity> CheckResult::Highest() const {
    if (Findings.empty()) {
        return std::nullopt;
    }
    return std::ranges::max(Findings, {}, &Finding::Level).Level;
}

CheckResult CheckSystem(const System::FuzzySystem& system, const CheckLimits& limits) {
    CheckResult result;
    std::vector<Finding>& findings = result.Findings;
    Append(findings, FindShapeFaults(system));
    if (system.Rules.empty()) {
        findings.push_back(NoRulesFound());
    } else {
        const RuleTable rules(system);
        Append(findings, FindRuleFaults(rules));
        Append(findings, FindGaps(rules, limits));
        ComparePairs(rules, limits, result);
        Append(findings, FindUnused(system));
        Append(findings, FindUncovered(system));
        Response response(rules);
        Append(findings, FindReach(rules, response, limits));
        Append(findings, FindSteepest(rules, response, limits));
    }
    std::ranges::stable_sort(findings, std::ranges::greater(), &Finding::Level);
    return result;
}

} // namespace Quorvane::Check
