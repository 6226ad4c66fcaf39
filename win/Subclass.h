// SPDX-License-Identifier: MIT
// Watching the messages of a window of somebody else's class.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>

namespace Quorvane::Win {

/// Sees the messages of a window before its own procedure does, for as long as it lives. The window
/// may be destroyed first. It uses the window's user data; a window has one subclass at most.
///
/// The platform's own subclassing finds its way by a property of the window. Under Wine that is a
/// question to another process at every message, which took a third of the time of making a list.
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

    /// Has a subclassed window's own procedure handle a message, from inside a handler.
    static LRESULT Default(HWND window, UINT message, WPARAM first, LPARAM second) noexcept;

  private:
    struct State;

    static State* Of(HWND window) noexcept;
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first,
                                      LPARAM second) noexcept;

    /// Owned by the window, which outlives this object or takes it along.
    State* state_;
};

} // namespace Quorvane::Win
