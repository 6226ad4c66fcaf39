// SPDX-License-Identifier: MIT
// Drawing by way of a bitmap in memory, so that nothing flickers.
#pragma once

#include <windows.h>

#include "win/Handle.h"

namespace Quorvane::Win {

/// Fills the client area of a window in the colour of dialogs.
void FillBackground(HWND window, HDC context) noexcept;

/// A bitmap with a context to draw in it.
class MemoryBitmap {
  public:
    /// As large as `area`, which begins at 0, 0; filled with a system colour, such as COLOR_WINDOW.
    MemoryBitmap(HDC screen, const RECT& area, int background) noexcept;

    HDC Context() const noexcept { return context_.Get(); }
    const RECT& Area() const noexcept { return area_; }
    void CopyTo(HDC target) const noexcept;

  private:
    RECT area_;
    MemoryDc context_;
    Bitmap bitmap_;
    Selection selected_;
};

/// Answers WM_PAINT: what is drawn in Context() appears at once when this ends.
class BufferedPaint {
  public:
    /// `background` is a system colour.
    BufferedPaint(HWND window, int background) noexcept;
    ~BufferedPaint() { memory_.CopyTo(screen_.Get()); }
    BufferedPaint(const BufferedPaint&) = delete;
    BufferedPaint& operator=(const BufferedPaint&) = delete;

    HDC Context() const noexcept { return memory_.Context(); }

    /// The client area of the window.
    const RECT& Area() const noexcept { return memory_.Area(); }

  private:
    PaintDc screen_;
    MemoryBitmap memory_;
};

} // namespace Quorvane::Win
