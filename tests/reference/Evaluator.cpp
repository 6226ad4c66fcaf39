// SPDX-License-Identifier: MIT
// Fuzzy inference written down plainly.
#include "tests/reference/Evaluator.h"

#include "explain/Arithmetic.h"
#include "shared/Definition.h"
#include "shared/Markers.h"
#include "shared/NumberText.h"
#include "text/GetText.h"

namespace Quorvane::Reference {
namespace {

constexpr std::int32_t InvalidInputSignal = 79;
constexpr std::int32_t InvalidInputVariable = 80;
constexpr std::int32_t InvalidOutputVariable = 81;
constexpr std::int32_t InvalidRule = 82;
constexpr std::int32_t InvalidInference = 83;

FisError NumberedError(std::int32_t messageId) {
    return {ObjectErrorBase + static_cast<std::uint32_t>(messageId), Main::GetText(35),
            Main::GetText(messageId)};
}

TextView Piece(const std::vector<TextView>& pieces, std::size_t index) {
    if (index >= pieces.size()) {
        throw FisError(RuntimeError::SubscriptOutOfRange);
    }
    return pieces[index];
}

Value DefaultOf(TextView output) {
    return Definition::Require(Definition::State().DefaultOutputValues).Get(output);
}

} // namespace

/// Sets the current message on entry and turns whatever fails inside into the routine's own error.
template <class Body>
auto Evaluator::RunRoutine(std::int32_t messageId, Body body) {
    CurrentErrorId = messageId;
    try {
        return body();
    } catch (const FisError&) {
        throw NumberedError(messageId);
    }
}

void Evaluator::PrepareRuleBase() {
    RunRoutine(InvalidRule, [this] {
        const RuleDictionary& rules = Definition::Require(Definition::State().RuleBase);
        Tables tables;
        tables.LastRule = static_cast<std::ptrdiff_t>(rules.Count()) - 1;
        bool isFirstRule = true;
        for (const auto& [rule, value] : rules) {
            const auto bodyAndWeight = Split(rule, u':');
            const TextView body = Piece(bodyAndWeight, 0);
            tables.RuleWeights.push_back(ParseNumber(Piece(bodyAndWeight, 1)));
            const auto lists = Split(body, u'/');
            AddAntecedents(tables, Piece(lists, 0));
            AddConsequents(tables, Piece(lists, 1), isFirstRule);
            isFirstRule = false;
        }
        Prepared = std::move(tables);
    });
}

void Evaluator::AddAntecedents(Tables& tables, TextView list) const {
    Table<Text> antecedents;
    for (const TextView element : Split(list, u';')) {
        const auto pieces = Split(element, u'>');
        const Text input(Piece(pieces, 0));
        const Text term(Piece(pieces, 1));
        antecedents.Add(input, term);
        if (!tables.UsedTerms.Exists(input)) {
            tables.UsedTerms.Add(input, {});
            tables.LastInputs.Add(input, Text(EmptyMarker));
        }
        Table<double>& degrees = tables.UsedTerms.At(input);
        if (!degrees.Exists(term)) {
            degrees.Add(term, 1);
        }
    }
    tables.Antecedents.push_back(std::move(antecedents));
}

void Evaluator::AddConsequents(Tables& tables, TextView list, bool isFirstRule) {
    Table<Value> consequents;
    for (const TextView element : Split(list, u';')) {
        const auto pieces = Split(element, u'<');
        const Text output(Piece(pieces, 0));
        consequents.Add(output, ConsequentPoint(output, Piece(pieces, 1)));
        if (isFirstRule) {
            tables.OutputValues.Add(output, DefaultOf(output));
            tables.Sums.Add(output, {});
        }
    }
    tables.Consequents.push_back(std::move(consequents));
}

Value Evaluator::ConsequentPoint(TextView output, TextView term) {
    return RunRoutine(InvalidOutputVariable, [&]() -> Value {
        if (term == NoneMarker) {
            return Text(NoneMarker);
        }
        const auto& outputs = Definition::Require(Definition::State().OutputVariables);
        return outputs.At(output).MF.At(term).Points[0];
    });
}

void Evaluator::Infer() {
    RunRoutine(InvalidInference, [this] {
        if (!Fuzzify()) {
            return;
        }
        for (std::ptrdiff_t i = 0; i <= Prepared.LastRule; ++i) {
            const auto rule = static_cast<std::size_t>(i);
            const double activation = Activation(rule);
            for (const auto& [output, consequent] : Prepared.Consequents[rule]) {
                if (i == 0) {
                    Prepared.Sums.At(output) = {};
                }
                if (const double* const point = std::get_if<double>(&consequent)) {
                    Prepared.Sums.At(output).Add(activation, *point);
                }
                if (i == Prepared.LastRule) {
                    SetOutput(output);
                }
            }
        }
    });
}

double Evaluator::Activation(std::size_t rule) const {
    double activation = Prepared.RuleWeights[rule];
    for (const auto& [input, term] : Prepared.Antecedents[rule]) {
        activation = Explain::Finite(activation * Prepared.UsedTerms.At(input).At(term));
    }
    return activation;
}

void Evaluator::SetOutput(TextView output) {
    const std::optional<double> average = Prepared.Sums.At(output).Average();
    Prepared.OutputValues.Put(output, average ? Value(*average) : DefaultOf(output));
}

bool Evaluator::Fuzzify() {
    return RunRoutine(InvalidInputSignal, [this] {
        for (auto& [input, degrees] : Prepared.UsedTerms) {
            FuzzifyInput(input, degrees);
        }
        return true;
    });
}

void Evaluator::FuzzifyInput(TextView input, Table<double>& degrees) {
    const Definition::ProcessState& state = Definition::State();
    const Value value = Definition::Require(state.InputValues).Get(input);
    Value& lastInput = Prepared.LastInputs.At(input);
    if (UserText(lastInput) == UserText(value)) {
        return;
    }
    const LinguisticVariable& variable = Definition::Require(state.InputVariables).At(input);
    lastInput = Text(EmptyMarker);
    if (IsEmpty(value)) {
        throw NumberedError(InvalidInputSignal);
    }
    const double x = ToNumber(value);
    for (auto& [term, degree] : degrees) {
        degree = Membership(input, term, x, variable.UBound, variable.LBound);
    }
    // Only now, so that an input that failed is "[EMPTY]" and is fuzzified again next time.
    lastInput = x;
}

double Evaluator::Membership(TextView input, TextView term, double x, double upper, double lower) {
    return RunRoutine(InvalidInputVariable, [&]() -> double {
        if (term == NoneMarker) {
            return 1;
        }
        // A term that the model does not have fails, wherever x lies.
        const auto& inputs = Definition::Require(Definition::State().InputVariables);
        const TrapezoidPoints& points = inputs.At(input).MF.At(term).Points;
        return Explain::Degree({points[0], points[1], points[2], points[3]}, lower, upper, x);
    });
}

} // namespace Quorvane::Reference
