// SPDX-License-Identifier: MIT
// Bounds, points and positions that are not in order.
#include <algorithm>
#include <cmath>

#include "check/FindFaults.h"

namespace Quorvane::Check {
namespace {

using System::InputVariable;
using System::OutputVariable;

Finding OfInput(FindingKind kind, std::size_t input) {
    Finding finding;
    finding.Kind = kind;
    finding.Level = Severity::Error;
    finding.Input = static_cast<std::uint32_t>(input);
    return finding;
}

Finding OfOutput(FindingKind kind, Severity level, std::size_t output) {
    Finding finding;
    finding.Kind = kind;
    finding.Level = level;
    finding.Output = static_cast<std::uint32_t>(output);
    return finding;
}

void CheckInput(const InputVariable& variable, std::size_t input, std::vector<Finding>& findings) {
    if (!(variable.Lower < variable.Upper)) {
        findings.push_back(OfInput(FindingKind::BoundsNotAscending, input));
    }
    for (std::uint32_t term = 0; term < variable.Terms.size(); ++term) {
        const auto& points = variable.Terms[term].Points;
        const auto add = [&](FindingKind kind) {
            findings.push_back(OfInput(kind, input));
            findings.back().Term = term;
        };
        if (!std::ranges::is_sorted(points)) {
            add(FindingKind::PointsNotAscending);
        }
        if (!std::isfinite(points[1] - points[0]) || !std::isfinite(points[3] - points[2])) {
            add(FindingKind::FlankTooWide);
        }
    }
}

void CheckOutput(const OutputVariable& variable, std::size_t output,
                 std::vector<Finding>& findings) {
    if (!(variable.Lower < variable.Upper)) {
        findings.push_back(OfOutput(FindingKind::BoundsNotAscending, Severity::Error, output));
        return;
    }
    for (std::uint32_t term = 0; term < variable.Terms.size(); ++term) {
        const double position = variable.Terms[term].Position;
        if (position < variable.Lower || position > variable.Upper) {
            Finding& finding = findings.emplace_back(
                OfOutput(FindingKind::PositionOutsideUniverse, Severity::Warning, output));
            finding.Term = term;
            finding.Figure = position;
        }
    }
}

} // namespace

std::vector<Finding> FindShapeFaults(const System::FuzzySystem& system) {
    std::vector<Finding> findings;
    for (std::size_t input = 0; input < system.Inputs.size(); ++input) {
        CheckInput(system.Inputs[input], input, findings);
    }
    for (std::size_t output = 0; output < system.Outputs.size(); ++output) {
        CheckOutput(system.Outputs[output], output, findings);
    }
    return findings;
}

} // namespace Quorvane::Check
