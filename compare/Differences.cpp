// SPDX-License-Identifier: MIT
// What two fuzzy systems differ in.
#include "compare/Differences.h"

#include <algorithm>
#include <map>

#include "system/ExactNumber.h"

namespace Quorvane::Compare {
namespace {

using System::ExactNumberText;
using System::FuzzySystem;

Text Folded(TextView text) {
    Text folded(text);
    std::ranges::transform(folded, folded.begin(), FoldCase);
    return folded;
}

Text Content(const System::InputTerm& term) {
    Text text;
    for (const double point : term.Points) {
        text += (text.empty() ? u"" : u", ") + ExactNumberText(point);
    }
    return text;
}

Text Content(const System::OutputTerm& term) {
    return ExactNumberText(term.Position);
}

template <class Term>
Text Content(const System::Variable<Term>& variable) {
    return ExactNumberText(variable.Lower) + u" to " + ExactNumberText(variable.Upper);
}

/// Without "[NONE]", which says nothing.
template <class Term>
Text Statements(const std::vector<System::Variable<Term>>& variables,
                const std::vector<System::Clause>& clauses) {
    Text text;
    for (const System::Clause& clause : clauses) {
        if (clause.Term) {
            text += text.empty() ? u"" : u" AND ";
            text += NameIn(variables, clause);
            text += u" IS " + variables[clause.Variable].Terms[*clause.Term].Name;
        }
    }
    return text;
}

Text Subject(const FuzzySystem& system, const System::Rule& rule) {
    return u"rule IF " + Statements(system.Inputs, rule.Antecedents) + u" THEN " +
           Statements(system.Outputs, rule.Consequents);
}

class Comparison {
  public:
    Comparison(const FuzzySystem& first, const FuzzySystem& second)
        : first_(first), second_(second) {}

    std::vector<Difference> Run() {
        CompareVariables(first_.Inputs, second_.Inputs, u"input ");
        CompareVariables(first_.Outputs, second_.Outputs, u"output ");
        CompareRules();
        if (differences_.empty() && first_ != second_) {
            differences_.push_back(
                {Change::Changed, u"the order or the spelling of what the systems have", {}, {}});
        }
        return std::move(differences_);
    }

  private:
    /// Compares what lists hold by name, and hands pairs on.
    template <class Named, class ComparePair>
    void CompareNamed(const std::vector<Named>& first, const std::vector<Named>& second,
                      const Text& kind, ComparePair comparePair) {
        std::map<Text, const Named*> byName;
        for (const Named& named : second) {
            byName[Folded(named.Name)] = &named;
        }
        for (const Named& named : first) {
            const auto found = byName.find(Folded(named.Name));
            if (found == byName.end()) {
                differences_.push_back({Change::Removed, kind + named.Name, Content(named), {}});
                continue;
            }
            if (Content(named) != Content(*found->second)) {
                differences_.push_back(
                    {Change::Changed, kind + named.Name, Content(named), Content(*found->second)});
            }
            comparePair(named, *found->second);
            byName.erase(found);
        }
        for (const Named& named : second) {
            if (byName.contains(Folded(named.Name))) {
                differences_.push_back({Change::Added, kind + named.Name, {}, Content(named)});
            }
        }
    }

    template <class Term>
    void CompareVariables(const std::vector<System::Variable<Term>>& first,
                          const std::vector<System::Variable<Term>>& second, const Text& kind) {
        CompareNamed(first, second, kind, [&](const auto& one, const auto& other) {
            CompareNamed(one.Terms, other.Terms, kind + one.Name + u", term ",
                         [](const auto&, const auto&) {});
        });
    }

    /// Rules that say the same are paired in their order.
    void CompareRules() {
        std::multimap<Text, const System::Rule*> others;
        for (const System::Rule& rule : second_.Rules) {
            others.emplace(Folded(Subject(second_, rule)), &rule);
        }
        std::vector<const System::Rule*> paired;
        for (const System::Rule& rule : first_.Rules) {
            const Text subject = Subject(first_, rule);
            const auto found = others.find(Folded(subject));
            if (found == others.end()) {
                differences_.push_back(
                    {Change::Removed, subject, ExactNumberText(rule.Weight), {}});
                continue;
            }
            if (found->second->Weight != rule.Weight) {
                differences_.push_back({Change::Changed, subject, ExactNumberText(rule.Weight),
                                        ExactNumberText(found->second->Weight)});
            }
            paired.push_back(found->second);
            others.erase(found);
        }
        std::ranges::sort(paired);
        for (const System::Rule& rule : second_.Rules) {
            if (!std::ranges::binary_search(paired, &rule)) {
                differences_.push_back(
                    {Change::Added, Subject(second_, rule), {}, ExactNumberText(rule.Weight)});
            }
        }
    }

    const FuzzySystem& first_;
    const FuzzySystem& second_;
    std::vector<Difference> differences_;
};

} // namespace

std::vector<Difference> Differences(const FuzzySystem& first, const FuzzySystem& second) {
    return Comparison(first, second).Run();
}

} // namespace Quorvane::Compare
