// SPDX-License-Identifier: MIT
// What has the keyboard in a top-level window when that becomes active again.
#include "win/SavedFocus.h"

namespace Quorvane::Win {

void SavedFocus::OnActivate(HWND window, WPARAM activation) noexcept {
    const bool isMinimized = HIWORD(activation) != 0;
    if (LOWORD(activation) == WA_INACTIVE) {
        HWND const focus = ::GetFocus();
        if (::IsChild(window, focus)) {
            child_ = focus;
        }
    } else if (!isMinimized) {
        // A field that was hidden meanwhile leaves the keyboard to what it was in.
        while (::IsChild(window, child_) &&
               !(::IsWindowVisible(child_) && ::IsWindowEnabled(child_))) {
            child_ = ::GetParent(child_);
        }
        HWND const first = ::GetNextDlgTabItem(window, nullptr, FALSE);
        ::SetFocus(::IsChild(window, child_) ? child_ : first ? first : window);
    }
}

} // namespace Quorvane::Win
