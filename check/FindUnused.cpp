// SPDX-License-Identifier: MIT
// Variables and terms that no rule uses.
#include <algorithm>

#include "check/FindFaults.h"

namespace Quorvane::Check {
namespace {

using System::Clause;
using System::Rule;

/// For each variable, which of its terms rules use.
template <class Term>
std::vector<std::vector<bool>> UsedTerms(const std::vector<System::Variable<Term>>& variables,
                                         const std::vector<Rule>& rules,
                                         std::vector<Clause> Rule::*clauses) {
    std::vector<std::vector<bool>> used;
    used.reserve(variables.size());
    for (const auto& variable : variables) {
        used.emplace_back(variable.Terms.size());
    }
    for (const Rule& rule : rules) {
        for (const Clause& clause : rule.*clauses) {
            if (clause.Term) {
                used[clause.Variable][*clause.Term] = true;
            }
        }
    }
    return used;
}

void Add(const std::vector<std::vector<bool>>& usedTerms,
         std::optional<std::uint32_t> Finding::*variable, std::vector<Finding>& findings) {
    for (std::uint32_t i = 0; i < usedTerms.size(); ++i) {
        const auto add = [&](FindingKind kind) -> Finding& {
            Finding& finding = findings.emplace_back();
            finding.Kind = kind;
            finding.Level = Severity::Warning;
            finding.*variable = i;
            return finding;
        };
        if (std::ranges::find(usedTerms[i], true) == usedTerms[i].end()) {
            add(FindingKind::UnusedVariable);
            continue;
        }
        for (std::uint32_t term = 0; term < usedTerms[i].size(); ++term) {
            if (!usedTerms[i][term]) {
                add(FindingKind::UnusedTerm).Term = term;
            }
        }
    }
}

} // namespace

std::vector<Finding> FindUnused(const System::FuzzySystem& system) {
    std::vector<Finding> findings;
    Add(UsedTerms(system.Inputs, system.Rules, &Rule::Antecedents), &Finding::Input, findings);
    Add(UsedTerms(system.Outputs, system.Rules, &Rule::Consequents), &Finding::Output, findings);
    return findings;
}

} // namespace Quorvane::Check
