// SPDX-License-Identifier: MIT
// Rules that fail or cannot fire or conclude nothing, and outputs that are not set.
#include <algorithm>

#include "check/FindFaults.h"

namespace Quorvane::Check {
namespace {

using System::Clause;

class RuleFaults {
  public:
    explicit RuleFaults(const RuleTable& rules) : rules_(rules) {}

    std::vector<Finding> Run() {
        const auto failing = System::FirstFailingClause(rules_.Checked());
        if (failing) {
            const auto& consequents = rules_.Checked().Rules[failing->Rule].Consequents;
            Add(FindingKind::FailingRule, Severity::Error, failing->Rule).Output =
                consequents[failing->Consequent].Variable;
        }
        for (const System::CycleOutput& output : rules_.Outputs) {
            if (!output.IsSet) {
                Add(FindingKind::OutputNotSet, Severity::Error).Output = output.Variable;
            }
        }
        for (std::size_t rule = 0; rule < rules_.Rules(); ++rule) {
            CheckWeight(rule);
            CheckConditions(rule);
            CheckConclusions(rule);
        }
        return std::move(findings_);
    }

  private:
    Finding& Add(FindingKind kind, Severity level) {
        Finding& finding = findings_.emplace_back();
        finding.Kind = kind;
        finding.Level = level;
        return finding;
    }

    Finding& Add(FindingKind kind, Severity level, std::size_t rule) {
        Finding& finding = Add(kind, level);
        finding.Rules = {static_cast<std::uint32_t>(rule)};
        return finding;
    }

    void CheckWeight(std::size_t rule) {
        const double weight = rules_.WeightOf(rule);
        if (weight == 0) {
            Add(FindingKind::WeightZero, Severity::Warning, rule);
        } else if (weight < 0 || weight > 1) {
            Add(FindingKind::WeightOutOfRange, Severity::Warning, rule).Figure = weight;
        }
    }

    void CheckConditions(std::size_t rule) {
        for (std::uint32_t input = 0; input < rules_.Inputs(); ++input) {
            const std::uint32_t condition = rules_.ConditionOf(rule, input);
            if (condition != RuleTable::None && !rules_.HoldsSomewhere(input, condition)) {
                Finding& finding = Add(FindingKind::ConditionNeverHolds, Severity::Warning, rule);
                finding.Input = input;
                finding.Term = rules_.Axes[input].Conditions[condition].Terms.front();
            }
        }
    }

    void CheckConclusions(std::size_t rule) {
        const auto& consequents = rules_.Checked().Rules[rule].Consequents;
        if (std::ranges::none_of(consequents,
                                 [](const Clause& each) { return each.Term.has_value(); })) {
            Add(FindingKind::NoConclusion, Severity::Warning, rule);
        }
    }

    const RuleTable& rules_;
    std::vector<Finding> findings_;
};

} // namespace

std::vector<Finding> FindRuleFaults(const RuleTable& rules) {
    return RuleFaults(rules).Run();
}

} // namespace Quorvane::Check
