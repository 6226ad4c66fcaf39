// SPDX-License-Identifier: MIT
// Message boxes of the editors on the screen.
#pragma once

#include <windows.h>

#include "editor/Prompt.h"

namespace Quorvane::Editor {

/// Shows message boxes modal to the top-level window of an owner. Where that window is hidden, as
/// it is at its destruction, nobody is asked: the answer is OK, or No.
class MessagePrompt final : public Prompt {
  public:
    /// Null before there is a window and after it has gone.
    void SetOwner(HWND owner) noexcept { owner_ = owner; }

    PromptAnswer Show(const Text& text, PromptStyle style, const Text& title) override;

  private:
    HWND owner_ = nullptr;
};

} // namespace Quorvane::Editor
