// SPDX-License-Identifier: MIT
// From the stored definition texts to the model.
#include "model/ParseDefinition.h"

#include <cmath>
#include <utility>

#include "model/TransformText.h"
#include "shared/Definition.h"
#include "shared/NumberText.h"

namespace Quorvane::Main {
namespace {

enum class Side { Input, Output };

/// The piece of a split text with an index. Raises SubscriptOutOfRange when the text has fewer.
TextView Field(const std::vector<TextView>& fields, std::size_t index) {
    if (index >= fields.size()) {
        throw FisError(RuntimeError::SubscriptOutOfRange);
    }
    return fields[index];
}

LinguisticTerm ParseTerm(TextView text, Side side) {
    const auto fields = Split(text, u',');
    LinguisticTerm term{Text(Field(fields, 0)), {}};
    if (side == Side::Output) {
        term.Points.fill(ParseNumber(Field(fields, 1)));
        return term;
    }
    for (std::size_t i = 0; i < term.Points.size(); ++i) {
        term.Points[i] = ParseNumber(Field(fields, i + 1));
    }
    return term;
}

LinguisticVariable ParseVariable(TextView text, Side side) {
    const auto fields = Split(text, u'/');
    LinguisticVariable variable{.Name = Text(Field(fields, 0)),
                                .UBound = ParseNumber(Field(fields, 1)),
                                .LBound = ParseNumber(Field(fields, 2)),
                                .Max = 0,
                                .Min = 0};
    variable.Max = variable.LBound;
    variable.Min = variable.UBound;
    for (const TextView piece : Split(Field(fields, 3), u';')) {
        LinguisticTerm term = ParseTerm(piece, side);
        IncludeTerm(variable, term);
        Text name = term.Name;
        variable.MF.Add(std::move(name), std::move(term));
    }
    return variable;
}

double Midpoint(const LinguisticVariable& variable) {
    const double sum = variable.LBound + variable.UBound;
    if (!std::isfinite(sum)) {
        throw FisError(RuntimeError::Overflow);
    }
    return sum / 2;
}

/// Parses the variables of one side, with the value that each starts with.
template <class InitialValue>
void ParseVariables(TextView plain, Side side, VariableDictionary& variables,
                    OwnValueDictionary& values, InitialValue initialValue) {
    for (const TextView piece : Split(plain, u'|')) {
        LinguisticVariable parsed = ParseVariable(piece, side);
        Text name = parsed.Name;
        const LinguisticVariable& variable = variables.Add(std::move(name), std::move(parsed));
        values.Items.Add(variable.Name, {initialValue(variable), nullptr});
    }
}

void ParseRules(TextView plain, RuleDictionary& rules) {
    const auto pieces = Split(plain, u'|');
    rules.Reserve(pieces.size());
    for (const TextView rule : pieces) {
        rules.Add(rule);
    }
}

} // namespace

// A text is decoded before what it replaces is touched: one that does not decode changes nothing.
// The dictionaries that a host assigned are released at the end, as that may run its code.
void ParseDefinition() {
    Definition::ProcessState& state = Definition::State();

    const Text inputs = TransformText(state.InputsText, false);
    const auto inputValues = std::make_shared<OwnValueDictionary>(KeyComparison::IgnoreCase);
    const auto formerInputValues = std::exchange(state.InputValues, inputValues);
    ParseVariables(inputs, Side::Input, state.InputVariables.emplace(KeyComparison::IgnoreCase),
                   *inputValues, [](const LinguisticVariable& input) { return input.LBound; });

    const Text outputs = TransformText(state.OutputsText, false);
    const auto defaults = std::make_shared<OwnValueDictionary>(KeyComparison::Exact);
    const auto formerDefaults = std::exchange(state.DefaultOutputValues, defaults);
    ParseVariables(outputs, Side::Output, state.OutputVariables.emplace(KeyComparison::IgnoreCase),
                   *defaults, Midpoint);

    const Text rules = TransformText(state.RulesText, false);
    ParseRules(rules, state.RuleBase.emplace(KeyComparison::IgnoreCase));
}

} // namespace Quorvane::Main
