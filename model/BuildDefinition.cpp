// SPDX-License-Identifier: MIT
// From the model to the stored definition texts.
#include "model/BuildDefinition.h"

#include <span>

#include "model/TransformText.h"
#include "shared/Definition.h"
#include "shared/NumberText.h"

namespace Quorvane::Main {
namespace {

void DropLast(Text& text) {
    if (!text.empty()) {
        text.pop_back();
    }
}

void AppendVariable(Text& text, const LinguisticVariable& variable, std::size_t pointsPerTerm) {
    text += variable.Name + u'/' + NumberText(variable.UBound) + u'/' +
            NumberText(variable.LBound) + u'/';
    for (const auto& [name, term] : variable.MF) {
        text += term.Name;
        for (const double point : std::span(term.Points).first(pointsPerTerm)) {
            text += u',' + NumberText(point);
        }
        text += u';';
    }
    DropLast(text);
}

Text BuildVariables(const VariableDictionary& variables, std::size_t pointsPerTerm) {
    Text text;
    for (const auto& [name, variable] : variables) {
        AppendVariable(text, variable, pointsPerTerm);
        text += u'|';
    }
    DropLast(text);
    return TransformText(text, true);
}

Text BuildRules(const RuleDictionary& rules) {
    Text text;
    for (const auto& [rule, content] : rules) {
        text += rule;
        text += u'|';
    }
    DropLast(text);
    return TransformText(text, true);
}

} // namespace

void BuildDefinition() {
    Definition::ProcessState& state = Definition::State();
    state.InputsText = BuildVariables(Definition::Require(state.InputVariables), 4);
    state.OutputsText = BuildVariables(Definition::Require(state.OutputVariables), 1);
    state.RulesText = BuildRules(Definition::Require(state.RuleBase));
}

} // namespace Quorvane::Main
