// SPDX-License-Identifier: MIT
// How the editors' logic shows a message box.
#pragma once

#include <cstdint>

#include "shared/Text.h"

namespace Quorvane::Editor {

/// Icon and buttons of a message box. The values are the platform's style bits.
enum class PromptStyle : std::uint32_t {
    /// The critical-stop icon and an OK button.
    Critical = 16,
    /// The question icon, a Yes and a No button.
    Question = 36,
};

/// The button that closed a message box. The values are the platform's.
enum class PromptAnswer { OK = 1, Yes = 6, No = 7 };

/// Message boxes, modal to the window of the editor that shows them.
class Prompt {
  public:
    virtual ~Prompt() = default;
    virtual PromptAnswer Show(const Text& text, PromptStyle style, const Text& title) = 0;
};

/// Shows the message of a refused input: critical icon, the system's name as the title.
void ShowRefusal(Prompt& prompt, const Text& message);

} // namespace Quorvane::Editor
