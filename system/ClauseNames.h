// SPDX-License-Identifier: MIT
// From the names that a rule writes to its clauses, for every reader of rules.
#pragma once

#include <exception>
#include <unordered_map>
#include <vector>

#include "shared/StringKeyedDictionary.h"
#include "system/FuzzySystem.h"

namespace Quorvane::System {

/// Names with their indices, compared without regard to case.
class NameIndex {
  public:
    /// Gives the name the next index; false where it has one.
    bool Add(TextView name) {
        return indices_.emplace(name, static_cast<std::uint32_t>(indices_.size())).second;
    }

    std::optional<std::uint32_t> Find(TextView name) const {
        const auto found = indices_.find(name);
        return found == indices_.end() ? std::nullopt : std::optional(found->second);
    }

  private:
    struct Hash : KeyHash {
        using is_transparent = void;
    };
    struct Equal : KeyEqual {
        using is_transparent = void;
    };
    std::unordered_map<Text, std::uint32_t, Hash, Equal> indices_{
        0, Hash{{KeyComparison::IgnoreCase}}, Equal{{KeyComparison::IgnoreCase}}};
};

/// A rule names what is not there, or something twice.
class NameError : public std::exception {
  public:
    NameError(bool isOfTerm, Text message) : IsOfTerm(isOfTerm), Message(std::move(message)) {}

    const char* what() const noexcept override { return "no such name"; }

    /// Whether the name of the term is wrong and not that of the variable.
    bool IsOfTerm;
    Text Message;
};

/// The names that the antecedents of rules, or the consequents, can have.
class ClauseNames {
  public:
    /// The kind of variable is for messages: "input" or "output".
    template <class Term>
    ClauseNames(const std::vector<Variable<Term>>& variables, Text kind) : kind_(std::move(kind)) {
        for (const Variable<Term>& variable : variables) {
            variables_.Add(variable.Name);
            names_.push_back(variable.Name);
            NameIndex& terms = terms_.emplace_back();
            for (const Term& term : variable.Terms) {
                terms.Add(term.Name);
            }
        }
    }

    void BeginRule() { ++rule_; }

    /// The next clause of the rule that has begun; without a term it is "[NONE]". Throws NameError.
    Clause Resolve(TextView variable, const std::optional<TextView>& term);

  private:
    struct ExactHash {
        using is_transparent = void;
        std::size_t operator()(TextView name) const { return std::hash<TextView>()(name); }
    };

    std::uint32_t IndexOf(TextView variable) const;
    void RequireFirstMention(TextView variable);

    Text kind_;
    NameIndex variables_;
    std::vector<Text> names_;
    std::vector<NameIndex> terms_;
    /// The number of the rule that has last written a name.
    std::unordered_map<Text, std::size_t, ExactHash, std::equal_to<>> lastMentions_;
    std::size_t rule_ = 0;
};

/// A name in quotes, for messages.
Text Quoted(TextView name);

} // namespace Quorvane::System
