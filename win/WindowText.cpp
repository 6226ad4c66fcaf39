// SPDX-License-Identifier: MIT
// Giving windows a text or a state.
#include "win/WindowText.h"

#include <new>

#include "win/WideText.h"

namespace Quorvane::Win {

Text TextOf(HWND window) {
    Text text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, u'\0');
    const int length = ::GetWindowTextW(window, reinterpret_cast<wchar_t*>(text.data()),
                                        static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void ShowText(HWND window, const Text& text) noexcept {
    try {
        // A window's text ends at the first zero.
        if (TextOf(window) != TextView(text).substr(0, text.find(u'\0'))) {
            ::SetWindowTextW(window, Wide(text));
        }
    } catch (const std::bad_alloc&) {
        return;
    }
}

bool Enable(HWND window, bool enabled) noexcept {
    if ((::IsWindowEnabled(window) != FALSE) == enabled) {
        return false;
    }
    ::EnableWindow(window, enabled);
    return true;
}

} // namespace Quorvane::Win
