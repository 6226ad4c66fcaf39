// SPDX-License-Identifier: MIT
// What the tests of the editors have in common: a recorder of message boxes and looks at the model.
#pragma once

#include <functional>

#include "editor/checks/Prompt.h"
#include "tests/core/CoreTest.h"

namespace Quorvane::Editor {

inline constexpr std::int32_t Chinese = 2052;

/// A message box that was shown.
struct ShownPrompt {
    Text Message;
    PromptStyle Style;
    Text Title;

    friend bool operator==(const ShownPrompt&, const ShownPrompt&) = default;
    friend void PrintTo(const ShownPrompt& prompt, std::ostream* stream);
};

using ShownPrompts = std::vector<ShownPrompt>;

/// The message box of a refused input, in English.
ShownPrompts Refusal(Text message);

/// The question before the rule base is emptied, in English.
ShownPrompts EmptyingQuestion();

/// Records message boxes and gives the answers of a test.
class PromptRecorder final : public Prompt {
  public:
    PromptAnswer Answer = PromptAnswer::Yes;
    /// What happens while a message box is open.
    std::function<void()> WhileOpen;

    PromptAnswer Show(const Text& text, PromptStyle style, const Text& title) override;

    /// The message boxes since the last call.
    ShownPrompts Take() { return std::exchange(shown_, {}); }

  private:
    ShownPrompts shown_;
};

/// Starts and ends every test with the state of a new process.
class EditorTest : public CoreTest {
  protected:
    PromptRecorder Prompts;
};

/// The plain definition texts.
struct PlainTexts {
    Text Inputs;
    Text Outputs;
    Text Rules;

    friend bool operator==(const PlainTexts&, const PlainTexts&) = default;
    friend void PrintTo(const PlainTexts& texts, std::ostream* stream);
};

/// The stored texts of the process, decoded.
PlainTexts StoredTexts();

/// What the model would be stored as; the stored texts stay as they are.
PlainTexts ModelTexts();

/// The rules of the model in their order. Checks that each is held under its own text.
std::vector<Text> RuleTexts();

inline std::vector<Text> Texts(std::initializer_list<TextView> views) {
    return {views.begin(), views.end()};
}

} // namespace Quorvane::Editor
