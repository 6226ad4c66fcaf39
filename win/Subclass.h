// SPDX-License-Identifier: MIT
// Watching the messages of a window of somebody else's class.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>

namespace Quorvane::Win {

/// Sees the messages of a window before its own procedure does, for as long as it lives. The window
/// may be destroyed first. It can be a host's: neither the window's data nor the order in which
/// several watch it and end matter, which is why the platform's own subclassing is used, slow as it
/// is under Wine.
class Subclass {
  public:
    /// Gives a result for a message that the window shall not see, nothing for any other. An
    /// exception counts as nothing.
    using Handler = std::function<std::optional<LRESULT>(UINT message, WPARAM, LPARAM)>;

    /// Throws std::system_error where the window system refuses.
    Subclass(HWND window, Handler handler);
    ~Subclass();
    Subclass(const Subclass&) = delete;
    Subclass& operator=(const Subclass&) = delete;

    /// Has the window handle a message as if nobody watched, from inside a handler.
    static LRESULT Default(HWND window, UINT message, WPARAM first, LPARAM second) noexcept;

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second,
                                      UINT_PTR id, DWORD_PTR self) noexcept;

    HWND window_;
    /// Shared with a call in progress, which may be the end of this object.
    std::shared_ptr<const Handler> handler_;
};

} // namespace Quorvane::Win
