// SPDX-License-Identifier: MIT
// Watching the messages of a window of somebody else's class.
#include "win/Subclass.h"

#include <commctrl.h>

#include <utility>

#include "win/Error.h"

namespace Quorvane::Win {

// The object's own address is an id that no other subclass of the window has.

Subclass::Subclass(HWND window, Handler handler)
    : window_(window), handler_(std::make_shared<const Handler>(std::move(handler))) {
    const auto self = reinterpret_cast<DWORD_PTR>(this);
    if (!::SetWindowSubclass(window, &Subclass::Procedure, self, self)) {
        ThrowLastError();
    }
}

Subclass::~Subclass() {
    if (window_) {
        ::RemoveWindowSubclass(window_, &Subclass::Procedure, reinterpret_cast<UINT_PTR>(this));
    }
}

LRESULT Subclass::Default(HWND window, UINT message, WPARAM first, LPARAM second) noexcept {
    return ::DefSubclassProc(window, message, first, second);
}

LRESULT CALLBACK Subclass::Procedure(HWND window, UINT message, WPARAM first, LPARAM second,
                                     UINT_PTR id, DWORD_PTR self) noexcept {
    auto* const subclass = reinterpret_cast<Subclass*>(self);
    if (message == WM_NCDESTROY) {
        subclass->window_ = nullptr;
        ::RemoveWindowSubclass(window, &Subclass::Procedure, id);
        return ::DefSubclassProc(window, message, first, second);
    }
    try {
        const auto handler = subclass->handler_;
        if (const auto result = (*handler)(message, first, second)) {
            return *result;
        }
    } catch (...) {
        // The window's own procedure handles it.
    }
    return ::DefSubclassProc(window, message, first, second);
}

} // namespace Quorvane::Win
