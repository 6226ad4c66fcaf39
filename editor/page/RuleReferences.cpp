// SPDX-License-Identifier: MIT
// How changes of variables and terms are carried into the rule base.
#include "editor/page/RuleReferences.h"

#include "editor/page/PartFinder.h"
#include "shared/Definition.h"

namespace Quorvane::Editor {
namespace {

RuleDictionary& Rules() {
    return Definition::Require(Definition::State().RuleBase);
}

/// Replaces the occurrences from the first character on; what was put in is not searched again.
Text ReplaceAll(TextView text, const PartFinder& oldPart, TextView newPart) {
    Text replaced;
    replaced.reserve(text.size());
    for (auto at = oldPart.FindIn(text); at != TextView::npos; at = oldPart.FindIn(text)) {
        replaced += text.substr(0, at);
        replaced += newPart;
        text.remove_prefix(at + oldPart.Part().size());
    }
    return replaced += text;
}

bool AnyContains(const PartFinder& part) {
    for (const auto& [rule, content] : Rules()) {
        if (part.IsIn(rule)) {
            return true;
        }
    }
    return false;
}

} // namespace

bool RenameInRules(TextView oldText, TextView newText) {
    const PartFinder oldPart(oldText);
    if (!AnyContains(oldPart)) {
        return true;
    }
    // A new table rather than one re-keying after the other: two rules may trade texts on the way.
    RuleDictionary renamed(KeyComparison::IgnoreCase);
    for (const auto& [rule, content] : Rules()) {
        const Text text = ReplaceAll(rule, oldPart, newText);
        if (renamed.Exists(text)) {
            return false;
        }
        renamed.Add(text);
    }
    Rules() = std::move(renamed);
    return true;
}

void RemoveRulesContaining(TextView text) {
    const PartFinder part(text);
    Rules().RemoveIf([&part](const RuleDictionary::Entry& rule) { return part.IsIn(rule.Key); });
}

} // namespace Quorvane::Editor
