// SPDX-License-Identifier: MIT
// FormLine: the lines of a form file and the words and values in them.
#pragma once

#include <optional>

#include "host/formfile/FormFile.h"
#include "shared/Text.h"

namespace Quorvane::Host {

/// Walks over the lines of a text and takes words and values off the current line, from left to
/// right. Everything that fails throws FormFileError with the current line's number. The text must
/// outlive it.
class FormLine {
  public:
    explicit FormLine(TextView text) : unread_(text) {}

    /// Goes to the next line; false at the end of the text.
    bool Next();

    /// Goes to the next line that is neither blank nor a comment; false at the end of the text.
    bool NextStatement();

    /// The current line's number, counted from 1.
    int Number() const { return number_; }

    bool IsBlankOrComment() const;

    /// The text behind the apostrophe when the whole line is a comment.
    std::optional<TextView> Comment() const;

    /// Takes `word` if it comes next, in either letter case.
    bool TakeWord(TextView word);

    /// The same for a word that starts a statement: a property may bear its name ("End = 1").
    bool TakeStatementWord(TextView word);

    bool TakeSymbol(char16_t symbol);

    /// A name: letters, digits and "_", no digit first. `role` names it in the error message.
    Text TakeIdentifier(const std::string& role);

    /// A ProgID or a class identifier in braces.
    Text TakeClass();

    /// A text, a number or a Boolean. A text may go on in the next lines.
    FormValue TakeValue();

    /// Requires that nothing but a comment is left in the line.
    void ExpectEnd();

    [[noreturn]] void Fail(const std::string& message) const;
    [[noreturn]] void Fail(const std::string& message, TextView name) const;

  private:
    void SkipBlanks();
    char16_t Peek() const { return rest_.empty() ? u'\0' : rest_.front(); }
    TextView TakeRun(bool (*belongs)(char16_t));
    Text TakeText();
    void TakeTextPiece(Text& text);
    void TakeQuoted(Text& text);
    char16_t TakeCharacterCode();
    FormValue TakeHexNumber();
    FormValue TakeNumber();

    TextView unread_;
    TextView rest_;
    int number_ = 0;
};

} // namespace Quorvane::Host
