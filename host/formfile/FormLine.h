// SPDX-License-Identifier: MIT
// FormLine: the lines of a form file and the words and values in them.
#pragma once

#include "host/formfile/FormFile.h"

#include <optional>

namespace Quorvane::Host {

/// Walks over the lines of a text and takes words and values off the current line, from left to
/// right. Everything that fails throws FormFileError with the current line's number. The text must
/// outlive it.
class FormLine {
  public:
    explicit FormLine(std::u16string_view text) : unread_(text) {}

    /// Goes to the next line; false at the end of the text.
    bool Next();

    /// Goes to the next line that is neither blank nor a comment; false at the end of the text.
    bool NextStatement();

    /// The current line's number, counted from 1.
    int Number() const { return number_; }

    bool IsBlankOrComment() const;

    /// The text behind the apostrophe when the whole line is a comment.
    std::optional<std::u16string_view> Comment() const;

    /// Takes `word` if it comes next, in either letter case.
    bool TakeWord(std::u16string_view word);

    /// The same for a word that starts a statement: a property may bear its name ("End = 1").
    bool TakeStatementWord(std::u16string_view word);

    bool TakeSymbol(char16_t symbol);

    /// A name: letters, digits and "_", no digit first. `role` names it in the error message.
    std::u16string TakeIdentifier(const std::string& role);

    /// A ProgID or a class identifier in braces.
    std::u16string TakeClass();

    /// A text, a number or a Boolean. A text may go on in the next lines.
    FormValue TakeValue();

    /// Requires that nothing but a comment is left in the line.
    void ExpectEnd();

    [[noreturn]] void Fail(const std::string& message) const;
    [[noreturn]] void Fail(const std::string& message, std::u16string_view name) const;

  private:
    void SkipBlanks();
    char16_t Peek() const { return rest_.empty() ? u'\0' : rest_.front(); }
    std::u16string_view TakeRun(bool (*belongs)(char16_t));
    std::u16string TakeText();
    void TakeTextPiece(std::u16string& text);
    void TakeQuoted(std::u16string& text);
    char16_t TakeCharacterCode();
    FormValue TakeHexNumber();
    FormValue TakeNumber();

    std::u16string_view unread_;
    std::u16string_view rest_;
    int number_ = 0;
};

} // namespace Quorvane::Host
