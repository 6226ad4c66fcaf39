// SPDX-License-Identifier: MIT
// The words and signs of a plain-text definition file.
#pragma once

#include "formats/FormatError.h"
#include "shared/Text.h"

namespace Quorvane::Formats {

enum class TokenKind {
    /// A name or a number, without the blanks around it.
    Word,
    /// A name that was in quotes.
    QuotedWord,
    /// What stands in brackets, without these.
    Bracketed,
    /// A separator, the only character of the text.
    Separator,
    LineEnd,
    End,
};

struct Token {
    TokenKind Kind = TokenKind::End;
    Text Value;
    Position Where;

    bool Is(char16_t separator) const {
        return Kind == TokenKind::Separator && Value.front() == separator;
    }
    bool IsWord() const { return Kind == TokenKind::Word || Kind == TokenKind::QuotedWord; }
};

/// Takes a text apart. Comments and blanks are passed over.
class DefinitionTokens {
  public:
    /// The text must outlive it.
    explicit DefinitionTokens(TextView text) : rest_(text) {}

    /// The next token. Throws FormatError for a quote or bracket without end, for an unknown escape
    /// and for a control character.
    Token Next();

  private:
    void SkipBlanksAndComment();
    void Drop(std::size_t count);
    Token TakeLineEnd();
    Token TakeWord();
    Token TakeBracketed();
    Token TakeQuoted();
    char16_t TakeEscape();
    void RejectControlCharacters(TextView text) const;
    bool StartsWithLineEnd() const { return rest_.front() == u'\n' || rest_.front() == u'\r'; }

    TextView rest_;
    Position where_{1, 1};
};

} // namespace Quorvane::Formats
