// SPDX-License-Identifier: MIT
// New and deleted variables and terms in the model.
#include "editor/page/VariableEdits.h"

#include <cmath>
#include <string>

#include "editor/page/RuleReferences.h"
#include "shared/NumberText.h"
#include "text/GetText.h"
#include "text/TextIds.h"

namespace Quorvane::Editor {
namespace {

void EmptyRuleBase() {
    Definition::State().RuleBase.emplace(KeyComparison::IgnoreCase);
}

template <class Value>
Text FirstFreeName(TextView stem, const StringKeyedDictionary<Value>& names) {
    for (std::size_t number = 1;; ++number) {
        Text name = Text(stem) + Widen(std::to_string(number));
        if (!names.Exists(name)) {
            return name;
        }
    }
}

/// The number that the text of a computed one stands for, so that the model holds what it shows.
double AsShown(double number) {
    if (!std::isfinite(number)) {
        throw FisError(RuntimeError::Overflow);
    }
    return ParseNumber(NumberText(number));
}

} // namespace

bool ConfirmEmptyRuleBase(Prompt& prompt) {
    return Definition::Require(Definition::State().RuleBase).Empty() ||
           prompt.Show(Main::GetText(TextIds::RuleBaseWillBeEmptied), PromptStyle::Question,
                       Main::GetText(TextIds::InferenceSystem)) == PromptAnswer::Yes;
}

LinguisticVariable& NewVariable(Side side) {
    VariableDictionary& variables = VariablesOf(side);
    EmptyRuleBase();
    Text name = FirstFreeName(TraitsOf(side).NewNameStem, variables);
    LinguisticVariable& variable =
        variables.Add(name, {.Name = name, .UBound = 1, .LBound = -1, .Max = -1, .Min = 1});
    IncludeTerm(variable, NewTerm(side, variable));
    return variable;
}

LinguisticTerm& NewTerm(Side side, LinguisticVariable& variable) {
    LinguisticTerm term{FirstFreeName(u"MF_", variable.MF),
                        TraitsOf(side).NewTermPoints(variable.LBound, variable.UBound)};
    for (StampedNumber& point : term.Points) {
        point = AsShown(point);
    }
    Text name = term.Name;
    return variable.MF.Add(std::move(name), std::move(term));
}

void DeleteVariable(Side side, TextView name) {
    VariablesOf(side).Remove(name);
    EmptyRuleBase();
}

void DeleteTerm(Side side, TextView variable, TextView term) {
    VariablesOf(side).At(variable).MF.Remove(term);
    RemoveRulesContaining(Text(variable) + TraitsOf(side).TermMark + Text(term));
}

} // namespace Quorvane::Editor
