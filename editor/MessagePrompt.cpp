// SPDX-License-Identifier: MIT
// Message boxes of the editors on the screen.
#include "editor/MessagePrompt.h"

#include "win/MessageBox.h"

namespace Quorvane::Editor {

PromptAnswer MessagePrompt::Show(const Text& text, PromptStyle style, const Text& title) {
    HWND const top = owner_ ? ::GetAncestor(owner_, GA_ROOT) : nullptr;
    if (top && !::IsWindowVisible(top)) {
        return style == PromptStyle::Question ? PromptAnswer::No : PromptAnswer::OK;
    }
    return static_cast<PromptAnswer>(Win::ShowMessage(top, text, title, static_cast<UINT>(style)));
}

} // namespace Quorvane::Editor
