// SPDX-License-Identifier: MIT
// Errors in what a user has asked the editors to do.
#pragma once

#include <utility>

#include "editor/checks/Prompt.h"

namespace Quorvane::Editor {

/// Called inside a catch block: shows the current exception in a message box, critical and titled
/// with the system's name. The text is the error's own description, or the platform's words for its
/// number.
void ShowFailure(Prompt& prompt) noexcept;

/// Does what the user has asked for. An error is shown, and ends here.
template <class Action>
void Attempt(Prompt& prompt, Action&& action) noexcept {
    try {
        std::forward<Action>(action)();
    } catch (...) {
        ShowFailure(prompt);
    }
}

} // namespace Quorvane::Editor
