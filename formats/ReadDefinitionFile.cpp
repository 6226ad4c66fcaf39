// SPDX-License-Identifier: MIT
// From a plain-text definition file to a fuzzy system.
#include <algorithm>
#include <cmath>

#include "formats/DefinitionFile.h"
#include "formats/DefinitionTokens.h"
#include "formats/Utf8Text.h"
#include "host/formfile/Utf8.h"
#include "shared/FisError.h"
#include "shared/Markers.h"
#include "shared/NumberText.h"
#include "system/ClauseNames.h"
#include "system/DefinitionTexts.h"

namespace Quorvane::Formats {
namespace {

using System::Quoted;

constexpr TextView Heading = u"Fuzzy system 1";

bool SameWord(TextView left, TextView right) {
    return KeyEqual{KeyComparison::IgnoreCase}(left, right);
}

class Reader {
  public:
    explicit Reader(TextView text) : tokens_(text) { Advance(); }

    System::FuzzySystem Read() {
        System::FuzzySystem system;
        TakeHeading(Heading);
        TakeHeading(u"Inputs");
        ReadVariables(system.Inputs);
        TakeHeading(u"Outputs");
        ReadVariables(system.Outputs);
        TakeHeading(u"Rules");
        ReadRules(system);
        return system;
    }

  private:
    [[noreturn]] static void Fail(const Token& at, const std::string& message) {
        throw FormatError(at.Where, message);
    }

    [[noreturn]] static void Fail(const Token& at, TextView message) {
        throw FormatError(at.Where, Host::EncodeUtf8(message));
    }

    [[noreturn]] void FailHere(const std::string& expected) const {
        Fail(token_, "expected " + expected);
    }

    void Advance() { token_ = tokens_.Next(); }

    Token Take() {
        Token taken = std::move(token_);
        Advance();
        return taken;
    }

    void SkipLineEnds() {
        while (token_.Kind == TokenKind::LineEnd) {
            Advance();
        }
    }

    void TakeHeading(TextView heading) {
        SkipLineEnds();
        if (token_.Kind != TokenKind::Bracketed || !SameWord(token_.Value, heading)) {
            FailHere('[' + std::string(heading.begin(), heading.end()) + ']');
        }
        Advance();
        if (token_.Kind != TokenKind::LineEnd && token_.Kind != TokenKind::End) {
            FailHere("the end of the line");
        }
    }

    void TakeSeparator(char16_t separator, const char* expected) {
        if (!token_.Is(separator)) {
            FailHere(expected);
        }
        Advance();
    }

    Token TakeName(const char* expected) {
        if (!token_.IsWord()) {
            FailHere(expected);
        }
        if (!System::IsPlainName(token_.Value)) {
            Fail(token_, "a name cannot have any of | / ; , : > <");
        }
        return Take();
    }

    double TakeNumber(const char* expected) {
        if (token_.Kind != TokenKind::Word) {
            FailHere(expected);
        }
        try {
            const double number = ParseNumber(token_.Value);
            Advance();
            return number;
        } catch (const FisError& error) {
            const auto overflow = static_cast<std::uint32_t>(RuntimeError::Overflow);
            Fail(token_, error.Number == overflow ? "the number is too large"
                                                  : std::string("expected ") + expected);
        }
    }

    /// Takes the lines of a section: a variable is followed by "/", a term by ",".
    template <class Term>
    void ReadVariables(std::vector<System::Variable<Term>>& variables) {
        System::NameIndex names;
        System::NameIndex terms;
        SkipLineEnds();
        // Between "|" and a name there is a variable, between ";" and a name a term.
        char16_t separator = u'\0';
        while (token_.IsWord() || separator != u'\0') {
            const Token name = TakeName("a name");
            if (token_.Is(u'/') && separator != u';') {
                variables.push_back(ReadVariable<Term>(name));
                terms = {};
                if (!names.Add(name.Value)) {
                    Fail(name, u"there is a variable " + Quoted(name.Value) + u" already");
                }
                separator = TakeTermsBegin();
                continue;
            }
            if (variables.empty() || !token_.Is(u',') || separator == u'|') {
                FailHere(separator == u';' ? "\",\" and the first point of the term"
                         : variables.empty() || separator == u'|'
                             ? "\"/\" and the upper bound of a variable"
                             : "\"/\" and the upper bound of a variable, or \",\" and the first "
                               "point of a term");
            }
            Term& term = variables.back().Terms.emplace_back();
            term.Name = name.Value;
            ReadPoints(term);
            if (!terms.Add(name.Value)) {
                Fail(name, u"the variable has a term " + Quoted(name.Value) + u" already");
            }
            separator = TakeEndOfTerm();
        }
    }

    template <class Term>
    System::Variable<Term> ReadVariable(const Token& name) {
        System::Variable<Term> variable;
        variable.Name = name.Value;
        TakeSeparator(u'/', "\"/\"");
        variable.Upper = TakeNumber("a number, the upper bound of the variable");
        TakeSeparator(u'/', "\"/\" and the lower bound of the variable");
        variable.Lower = TakeNumber("a number, the lower bound of the variable");
        if constexpr (std::is_same_v<Term, System::OutputTerm>) {
            if (!std::isfinite(DefaultOf(variable))) {
                Fail(name, "the middle of the universe is too large");
            }
        }
        return variable;
    }

    void ReadPoints(System::InputTerm& term) {
        for (double& point : term.Points) {
            TakeSeparator(u',', "\",\" and one of the four points of the term");
            point = TakeNumber("a number, one of the four points of the term");
        }
    }

    void ReadPoints(System::OutputTerm& term) {
        TakeSeparator(u',', "\",\" and the position of the term");
        term.Position = TakeNumber("a number, the position of the term");
    }

    /// What comes between a variable's bounds and its terms.
    char16_t TakeTermsBegin() {
        if (token_.Is(u'/')) {
            Advance();
            if (token_.IsWord()) {
                return u';';
            }
        }
        return TakeEndOfTerm();
    }

    /// Takes the ends of lines, and a separator before, after or between them, which is returned.
    char16_t TakeEndOfTerm() {
        const bool isAtLineEnd = token_.Kind == TokenKind::LineEnd || token_.Kind == TokenKind::End;
        SkipLineEnds();
        if (token_.Is(u'|') || token_.Is(u';')) {
            const char16_t separator = Take().Value.front();
            SkipLineEnds();
            return separator;
        }
        if (!isAtLineEnd) {
            FailHere("the end of the line");
        }
        return u'\0';
    }

    void ReadRules(System::FuzzySystem& system) {
        System::ClauseNames inputs(system.Inputs, u"input");
        System::ClauseNames outputs(system.Outputs, u"output");
        SkipLineEnds();
        while (token_.Kind != TokenKind::End) {
            System::Rule& rule = system.Rules.emplace_back();
            rule.Antecedents = ReadClauses(inputs, u'>', u'/', "the name of an input");
            TakeSeparator(u'/', "\"/\" and the consequents of the rule");
            SkipLineEnds();
            rule.Consequents = ReadClauses(outputs, u'<', u':', "the name of an output");
            TakeSeparator(u':', "\":\" and the weight of the rule");
            rule.Weight = TakeNumber("a number, the weight of the rule");
            EndRule();
        }
    }

    std::vector<System::Clause> ReadClauses(System::ClauseNames& names, char16_t mark, char16_t end,
                                            const char* expected) {
        std::vector<System::Clause> clauses;
        names.BeginRule();
        if (token_.Is(end)) {
            return clauses;
        }
        for (;;) {
            clauses.push_back(ReadClause(names, mark, expected));
            if (!token_.Is(u';')) {
                return clauses;
            }
            Advance();
            SkipLineEnds();
        }
    }

    System::Clause ReadClause(System::ClauseNames& names, char16_t mark, const char* expected) {
        const Token name = TakeName(expected);
        TakeSeparator(mark, mark == u'>' ? "\">\" and the name of a term"
                                         : "\"<\" and the name of a term");
        const bool isNone = token_.Kind == TokenKind::Bracketed;
        if (isNone && !SameWord(u'[' + token_.Value + u']', NoneMarker)) {
            FailHere("the name of a term or [NONE]");
        }
        const Token term = isNone ? Take() : TakeName("the name of a term or [NONE]");
        if (!isNone && term.Value == NoneMarker) {
            Fail(term, "no rule can choose a term of this name");
        }
        try {
            return names.Resolve(name.Value,
                                 isNone ? std::nullopt : std::optional<TextView>(term.Value));
        } catch (const System::NameError& error) {
            Fail(error.IsOfTerm ? term : name, TextView(error.Message));
        }
    }

    void EndRule() {
        const bool isAtLineEnd = token_.Kind == TokenKind::LineEnd || token_.Kind == TokenKind::End;
        SkipLineEnds();
        if (token_.Is(u'|')) {
            Advance();
            SkipLineEnds();
            if (token_.Kind == TokenKind::End) {
                FailHere("a rule");
            }
        } else if (!isAtLineEnd) {
            FailHere("the end of the line");
        }
    }

    DefinitionTokens tokens_;
    Token token_;
};

} // namespace

System::FuzzySystem ReadDefinitionFile(std::string_view utf8) {
    const Text text = DecodedText(utf8);
    return Reader(text).Read();
}

bool IsDefinitionFile(std::string_view utf8) {
    constexpr std::string_view Mark = "\xEF\xBB\xBF";
    utf8.remove_prefix(utf8.starts_with(Mark) ? Mark.size() : 0);
    constexpr std::string_view Begin = "[fuzzy system";
    for (;;) {
        utf8.remove_prefix(std::min(utf8.find_first_not_of(" \t\r\n"), utf8.size()));
        if (!utf8.starts_with('#')) {
            break;
        }
        utf8.remove_prefix(std::min(utf8.find_first_of("\r\n"), utf8.size()));
    }
    return std::ranges::equal(utf8.substr(0, Begin.size()), Begin, [](char left, char right) {
        return FoldCase(static_cast<unsigned char>(left)) ==
               FoldCase(static_cast<unsigned char>(right));
    });
}

} // namespace Quorvane::Formats
