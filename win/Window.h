// SPDX-License-Identifier: MIT
// The base of windows with a window procedure of their own, and the owner of any other window.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>

#include "win/Handle.h"
#include "win/WindowClass.h"

namespace Quorvane::Win {

struct WindowKind {
    using Type = HWND;
    /// A window that its parent's end has destroyed is gone already.
    static void Close(HWND window) noexcept {
        if (::IsWindow(window)) {
            ::DestroyWindow(window);
        }
    }
};

/// Where and how a window is made.
struct WindowPlace {
    HWND Parent = nullptr;
    RECT Position{};
    DWORD Style = 0;
    DWORD ExtendedStyle = 0;
    /// The id of a child window.
    UINT Id = 0;
};

/// The client area of a window, which begins at 0, 0; empty for a window that is gone.
RECT ClientArea(HWND window) noexcept;

/// Makes a window of one of the platform's classes. Throws std::system_error.
HWND MakeWindow(HINSTANCE module, const wchar_t* className, const WindowPlace& place,
                void* parameter = nullptr);

/// A window of a class of our own. The object owns the window, and notices when the window is
/// destroyed by others first. A derived class has a `static constexpr const wchar_t* ClassName`.
///
/// An exception in OnMessage ends at the window procedure, by OnFailure; the message then counts as
/// handled.
class Window {
  public:
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window() { Destroy(); }

    /// Null before it is made and after it is destroyed.
    HWND Get() const noexcept { return window_; }

  protected:
    Window() noexcept = default;

    /// Makes the window. Throws std::system_error.
    template <class W>
    void Make(HINSTANCE module, const WindowPlace& place) {
        class_ = WindowClass::Of<W>(module, &Window::Procedure);
        MakeOf(place);
    }

    /// Destroys the window if there is one. A derived class whose OnMessage must not run during its
    /// destruction calls it first thing in its destructor.
    void Destroy() noexcept;

    /// Handles a message. The default handling is DefWindowProc.
    virtual LRESULT OnMessage(UINT message, WPARAM first, LPARAM second);

    /// Called inside the catch block of what OnMessage has thrown. The default says nothing: what
    /// failed is not done.
    virtual void OnFailure() noexcept {}

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first,
                                      LPARAM second) noexcept;
    void MakeOf(const WindowPlace& place);

    std::shared_ptr<const WindowClass> class_;
    HWND window_ = nullptr;
};

/// A window of one of the platform's classes, such as a list view.
using ChildWindow = Handle<WindowKind>;

} // namespace Quorvane::Win
