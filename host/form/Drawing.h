// SPDX-License-Identifier: MIT
// Owners of what drawing takes from the window system.
#pragma once

#include <windows.h>

namespace Quorvane::Host {

/// Selects a GDI object into a device context for as long as it lives, then deletes the object.
class Selected {
  public:
    Selected(HDC context, HGDIOBJ object)
        : context_(context), object_(object), former_(SelectObject(context, object)) {}
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;
    ~Selected() {
        SelectObject(context_, former_);
        DeleteObject(object_);
    }

  private:
    HDC context_;
    HGDIOBJ object_;
    HGDIOBJ former_;
};

/// Answers WM_PAINT without flicker: what is drawn in Context() appears at once when this ends.
class BufferedPaint {
  public:
    /// `background` is a system colour, such as COLOR_WINDOW.
    BufferedPaint(HWND window, int background);
    BufferedPaint(const BufferedPaint&) = delete;
    BufferedPaint& operator=(const BufferedPaint&) = delete;
    ~BufferedPaint();

    HDC Context() const { return memory_.Handle; }

    /// The client area of the window.
    const RECT& Area() const { return area_; }

  private:
    struct MemoryContext {
        explicit MemoryContext(HDC screen) : Handle(CreateCompatibleDC(screen)) {}
        MemoryContext(const MemoryContext&) = delete;
        MemoryContext& operator=(const MemoryContext&) = delete;
        ~MemoryContext() { DeleteDC(Handle); }
        HDC Handle;
    };

    HWND window_;
    RECT area_;
    PAINTSTRUCT paint_{};
    HDC screen_;
    MemoryContext memory_;
    Selected bitmap_;
};

} // namespace Quorvane::Host
