// SPDX-License-Identifier: MIT
// Values of inputs that belong to no term, and terms that have no value of their input.
#include "check/FindFaults.h"

namespace Quorvane::Check {
namespace {

Finding MakeFinding(FindingKind kind, std::size_t input) {
    Finding finding;
    finding.Kind = kind;
    finding.Level = Severity::Warning;
    finding.Input = static_cast<std::uint32_t>(input);
    return finding;
}

void CheckInput(const System::InputVariable& variable, std::size_t input,
                std::vector<Finding>& findings) {
    const Axis axis = MakeAxis(variable, OneForEachTerm(variable));
    const std::vector<bool> all(variable.Terms.size(), true);
    std::vector<bool> holds(variable.Terms.size());
    for (const ActiveClass& each : ClassesOf(axis, all)) {
        for (const std::uint32_t term : each.Active) {
            holds[term] = true;
        }
        if (each.Active.empty()) {
            Finding& finding =
                findings.emplace_back(MakeFinding(FindingKind::UncoveredUniverse, input));
            finding.Region = {each.Widest};
            finding.Example = {MiddleOf(each.Widest)};
            finding.Count = each.Ranges;
            finding.Share = each.Share;
        }
    }
    for (std::uint32_t term = 0; term < holds.size(); ++term) {
        if (!holds[term]) {
            findings.push_back(MakeFinding(FindingKind::TermOutsideUniverse, input));
            findings.back().Term = term;
        }
    }
}

} // namespace

std::vector<Finding> FindUncovered(const System::FuzzySystem& system) {
    std::vector<Finding> findings;
    for (std::size_t input = 0; input < system.Inputs.size(); ++input) {
        // With bounds that are not in order there is nothing to cover.
        if (system.Inputs[input].Lower <= system.Inputs[input].Upper) {
            CheckInput(system.Inputs[input], input, findings);
        }
    }
    return findings;
}

} // namespace Quorvane::Check
