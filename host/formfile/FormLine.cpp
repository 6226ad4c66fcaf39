// SPDX-License-Identifier: MIT
// FormLine: the lines of a form file and the words and values in them.
#include "host/formfile/FormLine.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "host/formfile/Utf8.h"

namespace Quorvane::Host {
namespace {

bool IsBlank(char16_t c) {
    return c == u' ' || c == u'\t';
}
bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}
bool IsLetter(char16_t c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}
bool IsNameCharacter(char16_t c) {
    return IsLetter(c) || IsDigit(c) || c == u'_';
}
bool IsNumberCharacter(char16_t c) {
    return IsNameCharacter(c) || c == u'.' || c == u'+' || c == u'-';
}
bool IsClassCharacter(char16_t c) {
    return IsNameCharacter(c) || c == u'.' || c == u'-' || c == u'{' || c == u'}';
}

std::string Ascii(TextView text) {
    std::string ascii;
    for (const char16_t c : text) {
        ascii += static_cast<char>(c);
    }
    return ascii;
}

template <class Number>
bool ReadAll(const std::string& text, Number& number, auto... options) {
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, options...);
    return error == std::errc() && stop == end && !text.empty();
}

} // namespace

bool FormLine::Next() {
    if (unread_.empty()) {
        rest_ = {};
        return false;
    }
    const std::size_t end = std::min(unread_.find_first_of(u"\r\n"), unread_.size());
    rest_ = unread_.substr(0, end);
    const std::size_t lineBreak = unread_.substr(end).starts_with(u"\r\n") ? 2 : 1;
    unread_.remove_prefix(std::min(end + lineBreak, unread_.size()));
    ++number_;
    if (std::any_of(rest_.begin(), rest_.end(),
                    [](char16_t c) { return c < u' ' && c != u'\t'; })) {
        Fail("there is a control character in the line");
    }
    SkipBlanks();
    return true;
}

bool FormLine::NextStatement() {
    while (Next()) {
        if (!IsBlankOrComment()) {
            return true;
        }
    }
    return false;
}

bool FormLine::IsBlankOrComment() const {
    return rest_.empty() || rest_.front() == u'\'';
}

std::optional<TextView> FormLine::Comment() const {
    if (Peek() != u'\'') {
        return std::nullopt;
    }
    return rest_.substr(1);
}

bool FormLine::TakeWord(TextView word) {
    const TextView head = rest_.substr(0, word.size());
    if (!SameName(head, word) ||
        (rest_.size() > head.size() && IsNameCharacter(rest_[head.size()]))) {
        return false;
    }
    rest_.remove_prefix(word.size());
    SkipBlanks();
    return true;
}

bool FormLine::TakeStatementWord(TextView word) {
    const TextView line = rest_;
    if (!TakeWord(word)) {
        return false;
    }
    if (Peek() != u'=') {
        return true;
    }
    rest_ = line;
    return false;
}

bool FormLine::TakeSymbol(char16_t symbol) {
    if (Peek() != symbol) {
        return false;
    }
    rest_.remove_prefix(1);
    SkipBlanks();
    return true;
}

Text FormLine::TakeIdentifier(const std::string& role) {
    const TextView name = TakeRun(IsNameCharacter);
    if (name.empty() || IsDigit(name.front())) {
        Fail(role + " is expected here: letters, digits and '_', not starting with a digit");
    }
    return Text(name);
}

Text FormLine::TakeClass() {
    const TextView name = TakeRun(IsClassCharacter);
    if (name.empty()) {
        Fail("the control's class is expected after 'Begin'");
    }
    return Text(name);
}

FormValue FormLine::TakeValue() {
    if (Peek() == u'"' || SameName(rest_.substr(0, 4), u"ChrW")) {
        return TakeText();
    }
    if (Peek() == u'&') {
        return TakeHexNumber();
    }
    if (TakeWord(u"True")) {
        return true;
    }
    if (TakeWord(u"False")) {
        return false;
    }
    return TakeNumber();
}

void FormLine::ExpectEnd() {
    if (!IsBlankOrComment()) {
        Fail("the line should end here, before", rest_);
    }
}

void FormLine::Fail(const std::string& message) const {
    throw FormFileError(number_, message);
}

void FormLine::Fail(const std::string& message, TextView name) const {
    constexpr std::size_t LongestShown = 40;
    Fail(message + " '" + EncodeUtf8(name.substr(0, LongestShown)) + "'");
}

void FormLine::SkipBlanks() {
    while (!rest_.empty() && IsBlank(rest_.front())) {
        rest_.remove_prefix(1);
    }
}

TextView FormLine::TakeRun(bool (*belongs)(char16_t)) {
    const auto* const end = std::find_if_not(rest_.begin(), rest_.end(), belongs);
    const TextView run = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
    rest_.remove_prefix(run.size());
    SkipBlanks();
    return run;
}

Text FormLine::TakeText() {
    Text text;
    TakeTextPiece(text);
    while (TakeSymbol(u'&')) {
        if (TakeSymbol(u'_')) {
            ExpectEnd();
            if (!Next()) {
                Fail("the text goes on in the next line, but the file ends");
            }
        }
        TakeTextPiece(text);
    }
    return text;
}

void FormLine::TakeTextPiece(Text& text) {
    if (Peek() == u'"') {
        TakeQuoted(text);
    } else if (TakeWord(u"ChrW")) {
        text += TakeCharacterCode();
    } else {
        Fail("a text in quotation marks or ChrW(code) is expected here");
    }
    SkipBlanks();
}

void FormLine::TakeQuoted(Text& text) {
    rest_.remove_prefix(1);
    for (;;) {
        const std::size_t end = rest_.find(u'"');
        if (end == TextView::npos) {
            Fail("the closing quotation mark is missing");
        }
        text += rest_.substr(0, end);
        rest_.remove_prefix(end + 1);
        if (Peek() != u'"') {
            return;
        }
        text += u'"';
        rest_.remove_prefix(1);
    }
}

char16_t FormLine::TakeCharacterCode() {
    std::uint16_t code = 0;
    if (!TakeSymbol(u'(') || !ReadAll(Ascii(TakeRun(IsDigit)), code) || !TakeSymbol(u')')) {
        Fail("a code from 0 to 65535 in parentheses is expected after ChrW");
    }
    return static_cast<char16_t>(code);
}

FormValue FormLine::TakeHexNumber() {
    HexNumber number;
    rest_.remove_prefix(1);
    std::string digits = Ascii(TakeRun(IsNameCharacter));
    if (digits.empty() || (digits.front() != 'H' && digits.front() != 'h') ||
        !ReadAll(digits.substr(1), number.Bits, 16)) {
        Fail("a hexadecimal number is expected here, such as &H80000005&");
    }
    TakeSymbol(u'&');
    return number;
}

FormValue FormLine::TakeNumber() {
    const TextView token = TakeRun(IsNumberCharacter);
    std::string digits = Ascii(token);
    if (std::int32_t whole = 0; ReadAll(digits, whole)) {
        return whole;
    }
    double real = 0;
    const bool isPlain = digits.find_first_of("xXnN") == std::string::npos;
    if (!isPlain || !ReadAll(digits, real, std::chars_format::general) || !std::isfinite(real)) {
        Fail("a text in quotation marks, a number, True or False is expected here, not", token);
    }
    return real;
}

} // namespace Quorvane::Host
