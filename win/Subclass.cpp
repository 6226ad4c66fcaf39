// SPDX-License-Identifier: MIT
// Watching the messages of a window of somebody else's class.
#include "win/Subclass.h"

#include <utility>

#include "win/Error.h"

namespace Quorvane::Win {

struct Subclass::State {
    HWND Window;
    WNDPROC Former;
    /// Shared with a call in progress, which may be the end of the subclass.
    std::shared_ptr<const Handler> Watch;
    /// Null once that has ended.
    Subclass* Owner;
};

Subclass::State* Subclass::Of(HWND window) noexcept {
    return reinterpret_cast<State*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
}

Subclass::Subclass(HWND window, Handler handler) {
    auto state = std::make_unique<State>(
        window, reinterpret_cast<WNDPROC>(::GetWindowLongPtrW(window, GWLP_WNDPROC)),
        std::make_shared<const Handler>(std::move(handler)), this);
    ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(state.get()));
    if (!::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure))) {
        ThrowLastError();
    }
    state_ = state.release();
}

Subclass::~Subclass() {
    if (!state_) {
        return;
    }
    state_->Watch.reset();
    state_->Owner = nullptr;
    const auto current =
        reinterpret_cast<WNDPROC>(::GetWindowLongPtrW(state_->Window, GWLP_WNDPROC));
    // Where somebody else watches the window since, the procedure stays, and passes all on.
    if (current == &Procedure) {
        const std::unique_ptr<State> ending(state_);
        ::SetWindowLongPtrW(ending->Window, GWLP_WNDPROC,
                            reinterpret_cast<LONG_PTR>(ending->Former));
        ::SetWindowLongPtrW(ending->Window, GWLP_USERDATA, 0);
    }
}

LRESULT Subclass::Default(HWND window, UINT message, WPARAM first, LPARAM second) noexcept {
    const State* const state = Of(window);
    return state ? ::CallWindowProcW(state->Former, window, message, first, second)
                 : ::DefWindowProcW(window, message, first, second);
}

LRESULT CALLBACK Subclass::Procedure(HWND window, UINT message, WPARAM first,
                                     LPARAM second) noexcept {
    State* const state = Of(window);
    if (!state) {
        return ::DefWindowProcW(window, message, first, second);
    }
    // The handler may be the end of the state.
    WNDPROC const former = state->Former;
    if (message == WM_NCDESTROY) {
        const std::unique_ptr<State> ending(state);
        if (ending->Owner) {
            ending->Owner->state_ = nullptr;
        }
        ::SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        return ::CallWindowProcW(former, window, message, first, second);
    }
    try {
        if (const auto handler = state->Watch) {
            if (const auto result = (*handler)(message, first, second)) {
                return *result;
            }
        }
    } catch (...) {
        // The window's own procedure handles it.
    }
    return ::CallWindowProcW(former, window, message, first, second);
}

} // namespace Quorvane::Win
