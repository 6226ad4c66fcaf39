// SPDX-License-Identifier: MIT
// KeptFocus: what has the keyboard in a top-level window when that becomes active again.
#pragma once

#include <windows.h>

namespace Quorvane::Host {

/// Does for a window what dialogs do by themselves: after a message box, a dialog or another
/// program, the keyboard goes back to the child that had it.
class KeptFocus {
  public:
    /// Answers WM_ACTIVATE of `window`.
    void OnActivate(HWND window, WPARAM wParam);

    /// The child to get the keyboard when the window becomes active.
    void Keep(HWND child) { child_ = child; }

  private:
    HWND child_ = nullptr;
};

} // namespace Quorvane::Host
