// SPDX-License-Identifier: MIT
// Watches and closes the message boxes of the test's thread.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

#include "shared/Text.h"

namespace Quorvane {

/// What a person would have seen.
struct ShownBox {
    Text Title;
    Text Message;
    /// One of IDI_ERROR, IDI_INFORMATION, IDI_QUESTION, IDI_WARNING; null for none of them.
    const wchar_t* Icon;
    /// The texts of the buttons in their order, without the mark of the mnemonic.
    std::vector<Text> Buttons;
    HWND Owner;
};

/// Answers every message box that appears on this thread with OK and keeps what it showed. One
/// watcher at a time.
class MessageBoxes {
  public:
    /// `whileShown` runs while a box is open.
    explicit MessageBoxes(std::function<void()> whileShown = {});
    ~MessageBoxes();
    MessageBoxes(const MessageBoxes&) = delete;
    MessageBoxes& operator=(const MessageBoxes&) = delete;

    std::vector<ShownBox> Shown;

  private:
    static LRESULT CALLBACK OnHook(int code, WPARAM window, LPARAM details);
    static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR timer, DWORD time);
    void Answer();

    std::function<void()> whileShown_;
    HHOOK hook_;
    /// The last box that has appeared.
    HWND box_ = nullptr;
};

} // namespace Quorvane
