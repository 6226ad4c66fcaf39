// SPDX-License-Identifier: MIT
// From the texts of inputs and outputs to their variables.
#include <cmath>

#include "system/ClauseNames.h"
#include "system/TextReading.h"

namespace Quorvane::System {
namespace {

void ReadPoints(const PartReader& reader, const std::vector<TextView>& fields, TextView text,
                InputTerm& term) {
    for (std::size_t i = 0; i < term.Points.size(); ++i) {
        term.Points[i] = reader.Number(
            reader.Piece(fields, i + 1, text, u"\",\" and one of the four points of the term"));
    }
}

void ReadPoints(const PartReader& reader, const std::vector<TextView>& fields, TextView text,
                OutputTerm& term) {
    term.Position = reader.Number(reader.Piece(fields, 1, text, u"\",\" and the term's position"));
}

template <class Term>
std::vector<Term> ReadTerms(const PartReader& reader, TextView list) {
    std::vector<Term> terms;
    NameIndex names;
    for (const TextView text : Split(list, u';')) {
        const auto fields = Split(text, u',');
        const TextView name = reader.Piece(fields, 0, text, u"the name of a term");
        Term& term = terms.emplace_back();
        term.Name = name;
        ReadPoints(reader, fields, text, term);
        if (!names.Add(name)) {
            reader.Fail(name, u"the variable has a term " + Quoted(name) + u" already");
        }
    }
    return terms;
}

template <class Term>
std::vector<Variable<Term>> ReadVariables(const PartReader& reader) {
    std::vector<Variable<Term>> variables;
    NameIndex names;
    for (const TextView text : Split(reader.Whole, u'|')) {
        const auto fields = Split(text, u'/');
        const TextView name = reader.Piece(fields, 0, text, u"the name of a variable");
        Variable<Term>& variable = variables.emplace_back();
        variable.Name = name;
        variable.Upper =
            reader.Number(reader.Piece(fields, 1, text, u"\"/\" and the variable's upper bound"));
        variable.Lower =
            reader.Number(reader.Piece(fields, 2, text, u"\"/\" and the variable's lower bound"));
        variable.Terms = ReadTerms<Term>(
            reader, reader.Piece(fields, 3, text, u"\"/\" and the variable's terms"));
        if (!names.Add(name)) {
            reader.Fail(name, u"there is a variable " + Quoted(name) + u" already");
        }
    }
    return variables;
}

} // namespace

std::vector<InputVariable> ReadInputs(TextView plain) {
    return ReadVariables<InputTerm>({DefinitionPart::Inputs, plain});
}

std::vector<OutputVariable> ReadOutputs(TextView plain) {
    const PartReader reader(DefinitionPart::Outputs, plain);
    auto outputs = ReadVariables<OutputTerm>(reader);
    const auto texts = Split(plain, u'|');
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        if (!std::isfinite(DefaultOf(outputs[i]))) {
            reader.Fail(texts[i], u"the middle of the universe is too large");
        }
    }
    return outputs;
}

} // namespace Quorvane::System
