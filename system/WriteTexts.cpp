// SPDX-License-Identifier: MIT
// From a fuzzy system to definition texts.
#include <unordered_set>

#include "model/TransformText.h"
#include "shared/Markers.h"
#include "shared/StringKeyedDictionary.h"
#include "system/DefinitionTexts.h"
#include "system/ExactNumber.h"

namespace Quorvane::System {
namespace {

/// Appends a separator but before the first element of a list.
void Separate(Text& text, std::size_t begin, char16_t separator) {
    if (text.size() != begin) {
        text += separator;
    }
}

void AppendTerm(Text& text, const InputTerm& term) {
    text += term.Name;
    for (const double point : term.Points) {
        text += u',' + ExactNumberText(point);
    }
}

void AppendTerm(Text& text, const OutputTerm& term) {
    text += term.Name + u',' + ExactNumberText(term.Position);
}

template <class Term>
Text WriteVariables(const std::vector<Variable<Term>>& variables) {
    Text text;
    for (const Variable<Term>& variable : variables) {
        Separate(text, 0, u'|');
        text += variable.Name + u'/' + ExactNumberText(variable.Upper) + u'/' +
                ExactNumberText(variable.Lower) + u'/';
        const std::size_t begin = text.size();
        for (const Term& term : variable.Terms) {
            Separate(text, begin, u';');
            AppendTerm(text, term);
        }
    }
    return text;
}

template <class Term>
void AppendClauses(Text& text, const std::vector<Clause>& clauses,
                   const std::vector<Variable<Term>>& variables, char16_t mark) {
    const std::size_t begin = text.size();
    for (const Clause& clause : clauses) {
        Separate(text, begin, u';');
        text += NameIn(variables, clause);
        text += mark;
        text += clause.Term ? TextView(variables[clause.Variable].Terms[*clause.Term].Name)
                            : NoneMarker;
    }
}

/// Appends a zero to the decimals of a number, which changes its text alone: 1 -> 1.0 -> 1.00.
void AppendZero(Text& number, std::size_t begin) {
    const std::size_t mark = std::min(number.find(u'E', begin), number.size());
    const bool hasPoint = number.find(u'.', begin) != Text::npos;
    number.insert(mark, hasPoint ? u"0" : u".0");
}

class RuleWriter {
  public:
    explicit RuleWriter(const FuzzySystem& system) : system_(system) {}

    /// The text of a rule, which is none that came before.
    TextView Write(const Rule& rule) {
        Text text;
        AppendClauses(text, rule.Antecedents, system_.Inputs, u'>');
        text += u'/';
        AppendClauses(text, rule.Consequents, system_.Outputs, u'<');
        text += u':';
        const std::size_t weight = text.size();
        text += ExactNumberText(rule.Weight);
        while (texts_.contains(text)) {
            AppendZero(text, weight);
        }
        return *texts_.insert(std::move(text)).first;
    }

  private:
    const FuzzySystem& system_;
    std::unordered_set<Text, KeyHash, KeyEqual> texts_{0, KeyHash{KeyComparison::IgnoreCase},
                                                       KeyEqual{KeyComparison::IgnoreCase}};
};

Text WriteRules(const FuzzySystem& system) {
    RuleWriter writer(system);
    Text text;
    for (const Rule& rule : system.Rules) {
        Separate(text, 0, u'|');
        text += writer.Write(rule);
    }
    return text;
}

} // namespace

bool IsPlainName(TextView name) {
    return name.find_first_of(u"|/;,:><") == TextView::npos;
}

DefinitionTexts PlainTexts(const FuzzySystem& system) {
    return {WriteVariables(system.Inputs), WriteVariables(system.Outputs), WriteRules(system)};
}

DefinitionTexts StoredTexts(const FuzzySystem& system, const TextServices& services) {
    const DefinitionTexts plain = PlainTexts(system);
    return {Main::TransformText(plain.Inputs, true, services),
            Main::TransformText(plain.Outputs, true, services),
            Main::TransformText(plain.Rules, true, services)};
}

} // namespace Quorvane::System
