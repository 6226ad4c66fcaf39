// SPDX-License-Identifier: MIT
// From the text of the rules to the rules of a system.
#include <unordered_set>

#include "shared/Markers.h"
#include "system/ClauseNames.h"
#include "system/TextReading.h"

namespace Quorvane::System {
namespace {

/// Reads the antecedents or the consequents of rules, one rule after the other.
class ClauseReader {
  public:
    template <class Term>
    ClauseReader(const PartReader& reader, const std::vector<Variable<Term>>& variables,
                 const Text& kind, char16_t mark)
        : reader_(reader), names_(variables, kind), mark_(mark),
          expectedName_(u"the name of an " + kind),
          expectedTerm_(Text(u"\"") + mark + u"\" and the name of a term") {}

    std::vector<Clause> Read(TextView list) {
        names_.BeginRule();
        Split(list, u';', elements_);
        std::vector<Clause> clauses;
        clauses.reserve(elements_.size());
        for (const TextView element : elements_) {
            clauses.push_back(ReadClause(element));
        }
        return clauses;
    }

  private:
    Clause ReadClause(TextView element) {
        Split(element, mark_, pieces_);
        const TextView name = reader_.Piece(pieces_, 0, element, expectedName_);
        const TextView term = reader_.Piece(pieces_, 1, element, expectedTerm_);
        try {
            return names_.Resolve(name, term == NoneMarker ? std::nullopt : std::optional(term));
        } catch (const NameError& error) {
            reader_.Fail(error.IsOfTerm ? term : name, error.Message);
        }
    }

    const PartReader& reader_;
    ClauseNames names_;
    char16_t mark_;
    Text expectedName_;
    Text expectedTerm_;
    std::vector<TextView> elements_;
    std::vector<TextView> pieces_;
};

} // namespace

std::vector<Rule> ReadRules(TextView plain, const FuzzySystem& variables) {
    const PartReader reader(DefinitionPart::Rules, plain);
    ClauseReader antecedents(reader, variables.Inputs, u"input", u'>');
    ClauseReader consequents(reader, variables.Outputs, u"output", u'<');
    std::unordered_set<TextView, KeyHash, KeyEqual> texts(0, KeyHash{KeyComparison::IgnoreCase},
                                                          KeyEqual{KeyComparison::IgnoreCase});
    std::vector<Rule> rules;
    for (const TextView text : Split(plain, u'|')) {
        const auto bodyAndWeight = Split(text, u':');
        const TextView body = reader.Piece(bodyAndWeight, 0, text, u"a rule");
        const TextView weight = reader.Piece(bodyAndWeight, 1, text, u"\":\" and a weight");
        const auto lists = Split(body, u'/');
        const TextView list = reader.Piece(lists, 0, body, u"antecedents");
        Rule& rule = rules.emplace_back();
        rule.Antecedents = antecedents.Read(list);
        rule.Consequents =
            consequents.Read(reader.Piece(lists, 1, body, u"\"/\" and what follows"));
        rule.Weight = reader.Number(weight);
        if (!texts.insert(text).second) {
            reader.Fail(text, u"the rule is there already");
        }
    }
    return rules;
}

} // namespace Quorvane::System
