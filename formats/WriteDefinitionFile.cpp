// SPDX-License-Identifier: MIT
// From a fuzzy system to a plain-text definition file.
#include <array>

#include "formats/DefinitionFile.h"
#include "host/formfile/Utf8.h"
#include "shared/Markers.h"
#include "system/ExactNumber.h"

namespace Quorvane::Formats {
namespace {

using System::ExactNumberText;

constexpr TextView Blanks = u" \t";

bool IsLeadSurrogate(char16_t character) {
    return character >= 0xD800 && character <= 0xDBFF;
}

bool IsTrailSurrogate(char16_t character) {
    return character >= 0xDC00 && character <= 0xDFFF;
}

/// Whether UTF-8 cannot hold the character at a place: half of a pair.
bool IsLoneSurrogate(TextView name, std::size_t place) {
    if (IsLeadSurrogate(name[place])) {
        return place + 1 == name.size() || !IsTrailSurrogate(name[place + 1]);
    }
    return IsTrailSurrogate(name[place]) && (place == 0 || !IsLeadSurrogate(name[place - 1]));
}

bool NeedsEscape(TextView name, std::size_t place) {
    return (name[place] < u' ' && name[place] != u'\t') || IsLoneSurrogate(name, place);
}

bool NeedsQuotes(TextView name) {
    if (name.empty() || name.front() == u'[' || name.front() == u'"' ||
        Blanks.find(name.front()) != TextView::npos || Blanks.find(name.back()) != TextView::npos ||
        name.find(u'#') != TextView::npos) {
        return true;
    }
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (NeedsEscape(name, i)) {
            return true;
        }
    }
    return false;
}

Text Name(TextView name) {
    if (!NeedsQuotes(name)) {
        return Text(name);
    }
    Text quoted = u"\"";
    for (std::size_t i = 0; i < name.size(); ++i) {
        const char16_t character = name[i];
        if (NeedsEscape(name, i)) {
            constexpr TextView Digits = u"0123456789ABCDEF";
            quoted += u"\\u";
            for (int shift = 12; shift >= 0; shift -= 4) {
                quoted += Digits[(character >> shift) & 0xF];
            }
        } else {
            quoted += character == u'"' || character == u'\\' ? u"\\" : u"";
            quoted += character;
        }
    }
    return quoted + u'"';
}

Text TermLine(const System::InputTerm& term) {
    Text line = Name(term.Name);
    for (const double point : term.Points) {
        line += u", " + ExactNumberText(point);
    }
    return line;
}

Text TermLine(const System::OutputTerm& term) {
    return Name(term.Name) + u", " + ExactNumberText(term.Position);
}

template <class Term>
Text VariableLines(const std::vector<System::Variable<Term>>& variables) {
    Text lines;
    for (const System::Variable<Term>& variable : variables) {
        lines += Name(variable.Name) + u" / " + ExactNumberText(variable.Upper) + u" / " +
                 ExactNumberText(variable.Lower) + u'\n';
        for (const Term& term : variable.Terms) {
            lines += u"    " + TermLine(term) + u'\n';
        }
    }
    return lines;
}

template <class Term>
Text Clauses(const std::vector<System::Clause>& clauses,
             const std::vector<System::Variable<Term>>& variables, TextView mark) {
    Text text;
    for (const System::Clause& clause : clauses) {
        text += text.empty() ? u"" : u"; ";
        text += Name(NameIn(variables, clause));
        text += mark;
        text += clause.Term ? Name(variables[clause.Variable].Terms[*clause.Term].Name)
                            : Text(NoneMarker);
    }
    return text;
}

Text RuleLines(const System::FuzzySystem& system) {
    Text lines;
    for (const System::Rule& rule : system.Rules) {
        const Text antecedents = Clauses(rule.Antecedents, system.Inputs, u" > ");
        const Text consequents = Clauses(rule.Consequents, system.Outputs, u" < ");
        lines.append(antecedents).append(antecedents.empty() ? u"/ " : u" / ");
        lines.append(consequents).append(consequents.empty() ? u": " : u" : ");
        lines.append(ExactNumberText(rule.Weight)).append(u"\n");
    }
    return lines;
}

} // namespace

std::string WriteDefinitionFile(const System::FuzzySystem& system) {
    return Host::EncodeUtf8(
        u"[Fuzzy system 1]\n\n[Inputs]\n"
        u"# name / upper bound / lower bound, and a line for each term: name, its four points\n" +
        VariableLines(system.Inputs) +
        u"\n[Outputs]\n"
        u"# name / upper bound / lower bound, and a line for each term: name, its position\n" +
        VariableLines(system.Outputs) +
        u"\n[Rules]\n# inputs > terms / outputs < terms : weight\n" + RuleLines(system));
}

} // namespace Quorvane::Formats
