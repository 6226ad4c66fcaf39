// SPDX-License-Identifier: MIT
// Message boxes of the editors on the screen.
#pragma once

#include <windows.h>

#include <utility>
#include <vector>

#include "editor/checks/Prompt.h"
#include "win/Raised.h"

namespace Quorvane::Editor {

/// Shows message boxes modal to the top-level window of an owner. Where that window is hidden, as
/// it is at its destruction, nobody is asked: the answer is OK, or No.
class MessagePrompt final : public Prompt {
  public:
    /// Null before there is a window and after it has gone.
    void SetOwner(HWND owner) noexcept {
        owner_ = owner;
        kept_.clear();
    }

    /// Does something whose refusals are kept until ShowKept, for the time in which a control of
    /// the platform waits: it might be destroyed while a message box is open.
    template <class Action>
    void Keep(Action&& action) {
        const Win::Raised keeping(isKeeping_);
        std::forward<Action>(action)();
    }

    /// Shows what has been kept, unless the owner has gone. Returns whether there was anything.
    bool ShowKept();

    PromptAnswer Show(const Text& text, PromptStyle style, const Text& title) override;

  private:
    struct Message {
        Text Content;
        Text Title;
    };

    HWND owner_ = nullptr;
    bool isKeeping_ = false;
    std::vector<Message> kept_;
};

} // namespace Quorvane::Editor
