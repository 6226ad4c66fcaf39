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
            throw NameError(true, Quoted(variable) + " has no term " + Quoted(*term));
        }
    }
    return clause;
}

std::uint32_t ClauseNames::IndexOf(TextView variable) const {
    const auto index = variables_.Find(variable);
    if (!index) {
        throw NameError(false, "expected the name of an " + kind_ + ", not " + Quoted(variable));
    }
    return *index;
}

void ClauseNames::RequireFirstMention(TextView variable) {
    auto mention = lastMentions_.find(variable);
    if (mention == lastMentions_.end()) {
        mention = lastMentions_.emplace(variable, 0).first;
    }
    if (std::exchange(mention->second, rule_) == rule_) {
        throw NameError(false, "the rule names " + Quoted(variable) + " twice");
    }
}

std::string Quoted(TextView name) {
    std::string quoted = "\"";
    for (const char16_t character : name) {
        constexpr char16_t AsciiEnd = 0x80;
        quoted += character < AsciiEnd ? static_cast<char>(character) : '?';
    }
    return quoted + '"';
}

} // namespace Quorvane::System
