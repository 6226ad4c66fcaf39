// SPDX-License-Identifier: MIT
// ProgramWindow: the base of the program's own windows, and small helpers for their children.
#pragma once

#include <windows.h>

#include <exception>

#include "com/Module.h"
#include "shared/Text.h"
#include "win/Window.h"

namespace Quorvane::Host {

/// A window in the colour of dialogs, with the program's icon. Anything that OnMessage throws is
/// shown in a message box and ends the message.
class ProgramWindow : public Win::Window {
  public:
    /// Pixels of this window's screen for a length at 96 dots per inch.
    int Scaled(int length) const noexcept;

  protected:
    /// Makes the window, without a size of its own. Siblings that are moved over each other do not
    /// take each other's pixels along. Throws std::system_error.
    template <class W>
    void Create(const Text& title, DWORD style, HWND parent, DWORD extendedStyle = 0) {
        Make<W>(Com::ModuleHandle(), {.Parent = parent,
                                      .Position = {},
                                      .Style = style | WS_CLIPSIBLINGS,
                                      .ExtendedStyle = extendedStyle,
                                      .Id = 0});
        Finish(title);
    }

    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
    void OnFailure() noexcept override;

  private:
    void Finish(const Text& title) noexcept;
};

/// Makes a visible child control of a system class, in the font of the user's message boxes. The
/// position is left to the caller. Throws std::system_error.
Win::ChildWindow MakeChild(HWND parent, const wchar_t* className, const Text& text, DWORD style,
                           int id, DWORD extendedStyle = 0);

/// The font of the user's message boxes for screens of that many dots per inch. Not to be deleted.
HFONT MessageFont(int dpi);

/// Moves a child to `left` and `top`, in pixels of its parent.
void MoveChild(const Win::ChildWindow& child, int left, int top, int width, int height) noexcept;

/// Shows an error and waits for the user.
void ShowError(HWND owner, const std::exception& error) noexcept;

} // namespace Quorvane::Host
