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

/// A bitmap in memory with a context to draw in it.
class MemoryBitmap {
  public:
    /// As large as `area`, which begins at 0, 0; filled with a system colour, such as COLOR_WINDOW.
    MemoryBitmap(HDC screen, const RECT& area, int background);
    MemoryBitmap(const MemoryBitmap&) = delete;
    MemoryBitmap& operator=(const MemoryBitmap&) = delete;

    HDC Context() const { return context_.Handle; }
    const RECT& Area() const { return area_; }
    void CopyTo(HDC target) const;

  private:
    struct MemoryContext {
        explicit MemoryContext(HDC screen) : Handle(CreateCompatibleDC(screen)) {}
        MemoryContext(const MemoryContext&) = delete;
        MemoryContext& operator=(const MemoryContext&) = delete;
        ~MemoryContext() { DeleteDC(Handle); }
        HDC Handle;
    };

    RECT area_;
    MemoryContext context_;
    Selected bitmap_;
};

/// Answers WM_PAINT without flicker: what is drawn in Context() appears at once when this ends.
class BufferedPaint {
  public:
    /// `background` is a system colour.
    BufferedPaint(HWND window, int background);
    BufferedPaint(const BufferedPaint&) = delete;
    BufferedPaint& operator=(const BufferedPaint&) = delete;
    ~BufferedPaint();

    HDC Context() const { return memory_.Context(); }

    /// The client area of the window.
    const RECT& Area() const { return memory_.Area(); }

  private:
    HWND window_;
    PAINTSTRUCT paint_{};
    HDC screen_;
    MemoryBitmap memory_;
};

} // namespace Quorvane::Host
