// SPDX-License-Identifier: MIT
// A picture in memory that a test draws into and looks at.
#pragma once

#include <windows.h>

#include <objidl.h>

#include <set>

#include "win/Handle.h"

namespace Quorvane {

/// White at first.
class Picture {
  public:
    Picture(int width, int height);

    /// What a window shows on the screen.
    static Picture OfWindow(HWND window);

    HDC Context() const { return context_.Get(); }
    COLORREF At(int x, int y) const { return ::GetPixel(Context(), x, y); }

    /// How many pixels differ from the most frequent colour of the area.
    int Ink(const RECT& area) const;

    /// The colours in an area.
    std::set<COLORREF> Colours(const RECT& area) const;

    /// Plays a metafile over the whole picture.
    void Play(const STGMEDIUM& medium);

  private:
    int width_;
    int height_;
    Win::Bitmap bitmap_;
    Win::MemoryDc context_;
};

} // namespace Quorvane
