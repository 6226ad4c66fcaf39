// SPDX-License-Identifier: MIT
// How changes of variables and terms are carried into the rule base.
#include "editor/page/RuleReferences.h"

#include "shared/Definition.h"

namespace Quorvane::Editor {
namespace {

RuleDictionary& Rules() {
    return Definition::Require(Definition::State().RuleBase);
}

bool Contains(TextView text, TextView part) {
    return text.find(part) != TextView::npos;
}

/// Replaces the occurrences from the first character on; what was put in is not searched again.
Text ReplaceAll(TextView text, TextView oldPart, TextView newPart) {
    Text replaced;
    replaced.reserve(text.size());
    for (auto at = text.find(oldPart); at != TextView::npos; at = text.find(oldPart)) {
        replaced += text.substr(0, at);
        replaced += newPart;
        text.remove_prefix(at + oldPart.size());
    }
    return replaced += text;
}

bool AnyContains(TextView part) {
    for (const auto& [rule, content] : Rules()) {
        if (Contains(rule, part)) {
            return true;
        }
    }
    return false;
}

} // namespace

bool RenameInRules(TextView oldText, TextView newText) {
    if (!AnyContains(oldText)) {
        return true;
    }
    // A new table rather than one re-keying after the other: two rules may trade texts on the way.
    RuleDictionary renamed(KeyComparison::IgnoreCase);
    for (const auto& [rule, content] : Rules()) {
        const Text text = ReplaceAll(rule, oldText, newText);
        if (renamed.Exists(text)) {
            return false;
        }
        renamed.Add(text);
    }
    Rules() = std::move(renamed);
    return true;
}

void RemoveRulesContaining(TextView text) {
    Rules().RemoveIf(
        [text](const RuleDictionary::Entry& rule) { return Contains(rule.Key, text); });
}

} // namespace Quorvane::Editor
