// SPDX-License-Identifier: MIT
// KeptFocus: what has the keyboard in a top-level window when that becomes active again.
#include "host/form/parts/KeptFocus.h"

namespace Quorvane::Host {

void KeptFocus::OnActivate(HWND window, WPARAM wParam) {
    const bool isMinimized = HIWORD(wParam) != 0;
    if (LOWORD(wParam) == WA_INACTIVE) {
        const HWND focus = GetFocus();
        if (IsChild(window, focus)) {
            child_ = focus;
        }
    } else if (!isMinimized) {
        // A field that was hidden meanwhile leaves the keyboard to what it was in.
        while (IsChild(window, child_) && !(IsWindowVisible(child_) && IsWindowEnabled(child_))) {
            child_ = GetParent(child_);
        }
        const HWND first = GetNextDlgTabItem(window, nullptr, FALSE);
        SetFocus(IsChild(window, child_) ? child_ : first ? first : window);
    }
}

} // namespace Quorvane::Host
