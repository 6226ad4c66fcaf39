// SPDX-License-Identifier: MIT
// Window: the base of the program's own windows, and small helpers for their children.
#pragma once

#include <windows.h>

#include <string>

namespace Quorvane::Host {

/// A window whose messages come to OnMessage. The window is destroyed with the object; the object
/// survives a window that is destroyed before it.
class Window {
  public:
    Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window();

    HWND Handle() const { return handle_; }

    /// Pixels of this window's screen for a length at 96 dots per inch.
    int Scaled(int length) const;

  protected:
    /// Creates the window of a class named `className`, which is registered when it is first used.
    /// Throws HResultError.
    void Create(const wchar_t* className, const wchar_t* title, DWORD style, HWND parent,
                HMENU menu = nullptr, DWORD extendedStyle = 0);

    /// Handles one message. Anything it throws is shown in a message box and ends the message.
    virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND handle_ = nullptr;
};

/// The dots per inch of a window's screen.
int DpiOf(HWND window);

/// The part of a window's screen that no task bar covers.
RECT WorkAreaOf(HWND window);

/// A child window of a system class, in the font of the user's message boxes.
HWND CreateChild(HWND parent, const wchar_t* className, const wchar_t* text, DWORD style, int id,
                 DWORD extendedStyle = 0);

/// The font of the user's message boxes for screens of that many dots per inch. Not to be deleted.
HFONT MessageFont(int dpi);

/// The text of a window.
std::wstring TextOf(HWND window);

/// Shows an error and waits for the user.
void ShowError(HWND owner, const std::string& utf8);

} // namespace Quorvane::Host
