// SPDX-License-Identifier: MIT
// From the names that a rule writes to its clauses.
#include "system/ClauseNames.h"

#include <utility>

namespace Quorvane::System {

Clause ClauseNames::Resolve(TextView variable, const std::optional<TextView>& term) {
    Clause clause;
    clause.Variable = IndexOf(variable);
    if (variable != names_[clause.Variable]) {
        clause.Spelling = variable;
    }
    RequireFirstMention(variable);
    if (term) {
        clause.Term = terms_[clause.Variable].Find(*term);
        if (!clause.Term) {
            throw NameError(true, Quoted(variable) + u" has no term " + Quoted(*term));
        }
    }
    return clause;
}

std::uint32_t ClauseNames::IndexOf(TextView variable) const {
    const auto index = variables_.Find(variable);
    if (!index) {
        throw NameError(false, u"expected the name of an " + kind_ + u", not " + Quoted(variable));
    }
    return *index;
}

void ClauseNames::RequireFirstMention(TextView variable) {
    auto mention = lastMentions_.find(variable);
    if (mention == lastMentions_.end()) {
        mention = lastMentions_.emplace(variable, 0).first;
    }
    if (std::exchange(mention->second, rule_) == rule_) {
        throw NameError(false, u"the rule names " + Quoted(variable) + u" twice");
    }
}

Text Quoted(TextView name) {
    Text quoted = u"\"";
    quoted += name;
    return quoted + u'"';
}

} // namespace Quorvane::System
