// SPDX-License-Identifier: MIT
// A tip for what the mouse rests on in a window.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

#include "shared/Text.h"
#include "win/Subclass.h"
#include "win/Window.h"

namespace Quorvane::Win {

/// Shows a text while the mouse rests on a part of a window. Lists and trees have tips of their own
/// for some of their parts only, and not on every platform.
class HoverTip {
  public:
    struct Tip {
        /// Nothing is shown where it is empty.
        Text Content;
        /// The part that it tells of, in the client area.
        RECT Area;
    };

    /// Gives the tip for a point of the client area. An exception counts as none.
    using Ask = std::function<std::optional<Tip>(POINT point)>;

    /// Throws std::system_error. The window outlives the tip, or is destroyed first.
    HoverTip(HWND window, Ask ask);
    HoverTip(const HoverTip&) = delete;
    HoverTip& operator=(const HoverTip&) = delete;

  private:
    void OnMessage(UINT message, WPARAM first, LPARAM second);
    void Show(const Tip& tip);
    void Hide() noexcept;

    HWND window_;
    Ask ask_;
    ChildWindow tip_;
    Text content_;
    RECT area_{};
    std::optional<Subclass> mouse_;
};

} // namespace Quorvane::Win
