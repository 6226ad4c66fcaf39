// SPDX-License-Identifier: MIT
// What has the keyboard in a top-level window when that becomes active again.
#pragma once

#include <windows.h>

namespace Quorvane::Win {

/// Does for a window what dialogs do by themselves: after a message box, a dialog or another
/// program, the keyboard goes back to the child that had it.
class SavedFocus {
  public:
    /// Answers WM_ACTIVATE of `window`; `activation` is the message's first parameter.
    void OnActivate(HWND window, WPARAM activation) noexcept;

    /// The child to get the keyboard when the window becomes active; not owned.
    void Save(HWND child) noexcept { child_ = child; }

  private:
    HWND child_ = nullptr;
};

} // namespace Quorvane::Win
