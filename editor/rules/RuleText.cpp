// SPDX-License-Identifier: MIT
// The parts of a rule's text.
#include "editor/rules/RuleText.h"

#include <algorithm>
#include <utility>

#include "shared/FisError.h"
#include "shared/NumberText.h"

namespace Quorvane::Editor {
namespace {

/// What stands before the first separator and what after it.
std::pair<TextView, TextView> Cut(TextView text, char16_t separator) {
    const auto at = text.find(separator);
    return at == TextView::npos ? std::pair(text, TextView())
                                : std::pair(text.substr(0, at), text.substr(at + 1));
}

/// Takes the first element off a list: its variable and its term.
std::pair<TextView, TextView> TakeElement(TextView& list, char16_t mark) {
    const auto [element, rest] = Cut(list, u';');
    list = rest;
    return Cut(element, mark);
}

} // namespace

RuleParts SplitRule(TextView rule) {
    const auto [head, afterHead] = Cut(rule, u':');
    const auto [antecedents, afterAntecedents] = Cut(head, u'/');
    return {head, antecedents, Cut(afterAntecedents, u'/').first, Cut(afterHead, u':').first};
}

std::optional<TextView> TermOf(TextView list, char16_t mark, TextView variable) {
    while (!list.empty()) {
        const auto [name, term] = TakeElement(list, mark);
        if (SameName(name, variable)) {
            return term;
        }
    }
    return std::nullopt;
}

StringKeyedDictionary<TextView> TermsOf(TextView list, char16_t mark) {
    StringKeyedDictionary<TextView> terms(KeyComparison::IgnoreCase);
    while (!list.empty()) {
        const auto [name, term] = TakeElement(list, mark);
        if (!terms.Exists(name)) {
            terms.Add(Text(name), term);
        }
    }
    return terms;
}

TextView ShownTerm(TextView list, char16_t mark, const std::vector<Text>& variables,
                   std::size_t column) {
    if (const auto own = TermOf(list, mark, variables[column])) {
        return *own;
    }
    const auto terms = TermsOf(list, mark);
    const auto isFree = [&terms](TextView variable) { return !terms.Exists(variable); };
    auto ahead = std::ranges::count_if(
        variables.begin(), variables.begin() + static_cast<std::ptrdiff_t>(column), isFree);
    for (const auto& [variable, term] : terms) {
        const auto isIt = [name = TextView(variable)](const Text& other) {
            return SameName(other, name);
        };
        if (std::ranges::none_of(variables, isIt) && ahead-- == 0) {
            return term;
        }
    }
    return {};
}

Text UserWeightText(TextView weight) {
    try {
        return UserNumberText(ParseNumber(weight));
    } catch (const FisError&) {
        return Text(weight);
    }
}

} // namespace Quorvane::Editor
