// SPDX-License-Identifier: MIT
// Message boxes of the editors on the screen.
#include "editor/windows/MessagePrompt.h"

#include "win/MessageBox.h"

namespace Quorvane::Editor {

PromptAnswer MessagePrompt::Show(const Text& text, PromptStyle style, const Text& title) {
    if (isKeeping_ && style == PromptStyle::Critical) {
        kept_.push_back({text, title});
        return PromptAnswer::OK;
    }
    HWND const top = owner_ ? ::GetAncestor(owner_, GA_ROOT) : nullptr;
    if (top && !::IsWindowVisible(top)) {
        return style == PromptStyle::Question ? PromptAnswer::No : PromptAnswer::OK;
    }
    return static_cast<PromptAnswer>(Win::ShowMessage(top, text, title, static_cast<UINT>(style)));
}

bool MessagePrompt::ShowKept() {
    const std::vector<Message> messages = std::exchange(kept_, {});
    for (const Message& message : messages) {
        // A window that its frame's end has destroyed has nobody to tell.
        if (::IsWindow(owner_)) {
            Show(message.Content, PromptStyle::Critical, message.Title);
        }
    }
    return !messages.empty();
}

} // namespace Quorvane::Editor
