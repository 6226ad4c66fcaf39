// SPDX-License-Identifier: MIT
// Making windows, and the one window procedure.
#include "win/Window.h"

#include "win/Error.h"

namespace Quorvane::Win {

RECT ClientArea(HWND window) noexcept {
    RECT area{};
    ::GetClientRect(window, &area);
    return area;
}

HWND MakeWindow(HINSTANCE module, const wchar_t* className, const WindowPlace& place,
                void* parameter) {
    const RECT& position = place.Position;
    HWND const window = ::CreateWindowExW(
        place.ExtendedStyle, className, L"", place.Style, position.left, position.top,
        position.right - position.left, position.bottom - position.top, place.Parent,
        reinterpret_cast<HMENU>(UINT_PTR{place.Id}), module, parameter);
    if (!window) {
        ThrowLastError();
    }
    return window;
}

void Window::MakeOf(const WindowPlace& place) {
    // The procedure notes the handle with the first message.
    MakeWindow(class_->Module(), class_->Name(), place, this);
}

void Window::Destroy() noexcept {
    if (window_) {
        ::DestroyWindow(window_);
    }
    class_.reset();
}

LRESULT Window::OnMessage(UINT message, WPARAM first, LPARAM second) {
    return ::DefWindowProcW(window_, message, first, second);
}

LRESULT CALLBACK Window::Procedure(HWND window, UINT message, WPARAM first,
                                   LPARAM second) noexcept {
    if (message == WM_NCCREATE) {
        const auto* const creation = reinterpret_cast<const CREATESTRUCTW*>(second);
        auto* const created = static_cast<Window*>(creation->lpCreateParams);
        created->window_ = window;
        LiveCount<WindowKind>::Add(1);
        ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto* const self = reinterpret_cast<Window*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) {
        return ::DefWindowProcW(window, message, first, second);
    }
    if (message == WM_NCDESTROY) {
        ::SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        self->window_ = nullptr;
        LiveCount<WindowKind>::Add(-1);
        return ::DefWindowProcW(window, message, first, second);
    }
    try {
        return self->OnMessage(message, first, second);
    } catch (...) {
        // Nothing may pass through the window system.
        self->OnFailure();
        return 0;
    }
}

} // namespace Quorvane::Win
