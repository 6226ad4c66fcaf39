// SPDX-License-Identifier: MIT
// A window that is not painted for a while.
#pragma once

#include <windows.h>

namespace Quorvane::Win {

/// Keeps a tree or a list from painting as long as it lives, so that several changes of it are
/// painted once, afterwards. The window is a shown one and outlives it.
class Unpainted {
  public:
    explicit Unpainted(HWND window) noexcept : window_(window) {
        ::SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
    }
    ~Unpainted() {
        ::SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
        ::RedrawWindow(window_, nullptr, nullptr,
                       RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    }
    Unpainted(const Unpainted&) = delete;
    Unpainted& operator=(const Unpainted&) = delete;

  private:
    HWND window_;
};

} // namespace Quorvane::Win
