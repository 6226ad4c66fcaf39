// SPDX-License-Identifier: MIT
// The words and signs of a plain-text definition file.
#include "formats/DefinitionTokens.h"

#include <algorithm>

namespace Quorvane::Formats {
namespace {

constexpr TextView Separators = u"|/;,:><";
constexpr TextView Blanks = u" \t";
constexpr TextView WordEnds = u"|/;,:><#\r\n";
constexpr TextView LineEnds = u"\r\n";

bool IsTrailSurrogate(char16_t character) {
    return character >= 0xDC00 && character <= 0xDFFF;
}

} // namespace

/// Columns count characters, and a pair of surrogates is one.
void DefinitionTokens::Drop(std::size_t count) {
    for (const char16_t character : rest_.substr(0, count)) {
        where_.Column += IsTrailSurrogate(character) ? 0 : 1;
    }
    rest_.remove_prefix(count);
}

void DefinitionTokens::SkipBlanksAndComment() {
    Drop(std::min(rest_.find_first_not_of(Blanks), rest_.size()));
    if (rest_.starts_with(u'#')) {
        Drop(std::min(rest_.find_first_of(LineEnds), rest_.size()));
    }
}

Token DefinitionTokens::Next() {
    SkipBlanksAndComment();
    if (rest_.empty()) {
        return {TokenKind::End, {}, where_};
    }
    if (StartsWithLineEnd()) {
        return TakeLineEnd();
    }
    if (Separators.find(rest_.front()) != TextView::npos) {
        Token token{TokenKind::Separator, Text(1, rest_.front()), where_};
        Drop(1);
        return token;
    }
    return rest_.front() == u'"'   ? TakeQuoted()
           : rest_.front() == u'[' ? TakeBracketed()
                                   : TakeWord();
}

Token DefinitionTokens::TakeLineEnd() {
    Token token{TokenKind::LineEnd, {}, where_};
    rest_.remove_prefix(rest_.starts_with(u"\r\n") ? 2 : 1);
    where_ = {where_.Line + 1, 1};
    return token;
}

void DefinitionTokens::RejectControlCharacters(TextView text) const {
    const auto isControl = [](char16_t character) {
        return character < u' ' && character != u'\t';
    };
    if (std::ranges::any_of(text, isControl)) {
        throw FormatError(where_, "there is a control character");
    }
}

Token DefinitionTokens::TakeWord() {
    const std::size_t end = std::min(rest_.find_first_of(WordEnds), rest_.size());
    const TextView word = rest_.substr(0, rest_.find_last_not_of(Blanks, end - 1) + 1);
    RejectControlCharacters(word);
    Token token{TokenKind::Word, Text(word), where_};
    Drop(word.size());
    return token;
}

Token DefinitionTokens::TakeBracketed() {
    const std::size_t end = rest_.find_first_of(u"]\r\n");
    if (end == TextView::npos || rest_[end] != u']') {
        throw FormatError(where_, "there is no \"]\" in this line");
    }
    RejectControlCharacters(rest_.substr(0, end));
    Token token{TokenKind::Bracketed, Text(rest_.substr(1, end - 1)), where_};
    Drop(end + 1);
    return token;
}

Token DefinitionTokens::TakeQuoted() {
    Token token{TokenKind::QuotedWord, {}, where_};
    Drop(1);
    for (;;) {
        if (rest_.empty() || StartsWithLineEnd()) {
            throw FormatError(token.Where, "there is no closing quote in this line");
        }
        RejectControlCharacters(rest_.substr(0, 1));
        const char16_t character = rest_.front();
        if (character == u'\\') {
            token.Value += TakeEscape();
            continue;
        }
        Drop(1);
        if (character == u'"') {
            return token;
        }
        token.Value += character;
    }
}

char16_t DefinitionTokens::TakeEscape() {
    const Position where = where_;
    Drop(1);
    if (rest_.starts_with(u'"') || rest_.starts_with(u'\\')) {
        const char16_t character = rest_.front();
        Drop(1);
        return character;
    }
    constexpr std::size_t Digits = 4;
    const TextView digits = rest_.substr(std::min<std::size_t>(1, rest_.size()), Digits);
    if (!rest_.starts_with(u'u') || digits.size() < Digits) {
        throw FormatError(where, R"(expected \", \\ or \u and four hexadecimal digits)");
    }
    unsigned code = 0;
    for (const char16_t digit : digits) {
        constexpr TextView Upper = u"0123456789ABCDEF";
        const std::size_t value = Upper.find(FoldCase(digit));
        if (value == TextView::npos) {
            throw FormatError(where, R"(expected \", \\ or \u and four hexadecimal digits)");
        }
        code = code * 16 + static_cast<unsigned>(value);
    }
    Drop(1 + Digits);
    return static_cast<char16_t>(code);
}

} // namespace Quorvane::Formats
