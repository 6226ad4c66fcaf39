// SPDX-License-Identifier: MIT
// From the text of the rules to the rules of a system.
#include <unordered_set>
#include <utility>

#include "shared/Markers.h"
#include "system/TextReading.h"

namespace Quorvane::System {
namespace {

/// Reads the antecedents or the consequents of rules, one rule after the other.
template <class Term>
class ClauseReader {
  public:
    ClauseReader(const PartReader& reader, const std::vector<Variable<Term>>& variables,
                 char16_t mark, const char* kind)
        : reader_(reader), variables_(variables), mark_(mark), kind_(kind) {
        for (const Variable<Term>& variable : variables) {
            names_.emplace(variable.Name, static_cast<std::uint32_t>(names_.size()));
            NameIndex terms = NoNames();
            for (const Term& term : variable.Terms) {
                terms.emplace(term.Name, static_cast<std::uint32_t>(terms.size()));
            }
            terms_.push_back(std::move(terms));
        }
    }

    std::vector<Clause> Read(TextView list) {
        ++rule_;
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
        const TextView name = reader_.Piece(pieces_, 0, element, kind_);
        const TextView term = reader_.Piece(pieces_, 1, element,
                                            mark_ == u'>' ? "\">\" and the name of a term"
                                                          : "\"<\" and the name of a term");
        Clause clause;
        const auto variable = names_.find(name);
        if (variable == names_.end()) {
            reader_.Fail(name, std::string("expected ") + kind_ + ", not " + Quoted(name));
        }
        clause.Variable = variable->second;
        if (name != variables_[clause.Variable].Name) {
            clause.Spelling = name;
        }
        if (std::exchange(lastMentions_[name], rule_) == rule_) {
            reader_.Fail(name, "the rule names " + Quoted(name) + " twice");
        }
        if (term != NoneMarker) {
            const auto& terms = terms_[clause.Variable];
            const auto found = terms.find(term);
            if (found == terms.end()) {
                reader_.Fail(term, Quoted(name) + " has no term " + Quoted(term));
            }
            clause.Term = found->second;
        }
        return clause;
    }

    const PartReader& reader_;
    const std::vector<Variable<Term>>& variables_;
    char16_t mark_;
    const char* kind_;
    NameIndex names_ = NoNames();
    std::vector<NameIndex> terms_;
    /// The number of the rule that has last written a name, counted from 1.
    std::unordered_map<TextView, std::size_t> lastMentions_;
    std::size_t rule_ = 0;
    std::vector<TextView> elements_;
    std::vector<TextView> pieces_;
};

} // namespace

std::vector<Rule> ReadRules(TextView plain, const FuzzySystem& variables) {
    const PartReader reader(DefinitionPart::Rules, plain);
    ClauseReader antecedents(reader, variables.Inputs, u'>', "the name of an input");
    ClauseReader consequents(reader, variables.Outputs, u'<', "the name of an output");
    std::unordered_set<TextView, KeyHash, KeyEqual> texts(0, KeyHash{KeyComparison::IgnoreCase},
                                                          KeyEqual{KeyComparison::IgnoreCase});
    std::vector<Rule> rules;
    for (const TextView text : Split(plain, u'|')) {
        const auto bodyAndWeight = Split(text, u':');
        const TextView body = reader.Piece(bodyAndWeight, 0, text, "a rule");
        const TextView weight = reader.Piece(bodyAndWeight, 1, text, "\":\" and a weight");
        const auto lists = Split(body, u'/');
        const TextView list = reader.Piece(lists, 0, body, "antecedents");
        Rule& rule = rules.emplace_back();
        rule.Antecedents = antecedents.Read(list);
        rule.Consequents = consequents.Read(reader.Piece(lists, 1, body, "\"/\" and what follows"));
        rule.Weight = reader.Number(weight);
        if (!texts.insert(text).second) {
            reader.Fail(text, "the rule is there already");
        }
    }
    return rules;
}

} // namespace Quorvane::System
