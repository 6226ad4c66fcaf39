// SPDX-License-Identifier: MIT
// Watches and closes the message boxes of the test's thread.
#include "tests/com/support/MessageBoxes.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "com/Scoped.h"

namespace Quorvane {
namespace {

/// A hook procedure has no argument that could tell it whose it is.
MessageBoxes* current = nullptr;

Text TextOf(HWND window) {
    wchar_t text[1024]{};
    ::GetWindowTextW(window, text, static_cast<int>(std::size(text)));
    return Com::ToText(text);
}

bool IsOfClass(HWND window, const wchar_t* name) {
    wchar_t text[64]{};
    ::GetClassNameW(window, text, static_cast<int>(std::size(text)));
    return ::lstrcmpiW(text, name) == 0;
}

const wchar_t* NameOfIcon(HICON icon) {
    for (const wchar_t* const name : {IDI_ERROR, IDI_INFORMATION, IDI_QUESTION, IDI_WARNING}) {
        if (icon && ::LoadIconW(nullptr, name) == icon) {
            return name;
        }
    }
    return nullptr;
}

ShownBox ReadBox(HWND box) {
    ShownBox shown{TextOf(box), {}, nullptr, {}, ::GetWindow(box, GW_OWNER)};
    for (HWND child = ::GetWindow(box, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
        const auto style = ::GetWindowLongW(child, GWL_STYLE);
        if ((style & WS_VISIBLE) == 0) {
            continue;
        }
        if (IsOfClass(child, L"Button")) {
            Text text = TextOf(child);
            std::erase(text, u'&');
            shown.Buttons.push_back(std::move(text));
        } else if ((style & SS_TYPEMASK) == SS_ICON) {
            shown.Icon =
                NameOfIcon(reinterpret_cast<HICON>(::SendMessageW(child, STM_GETICON, 0, 0)));
        } else {
            shown.Message = TextOf(child);
        }
    }
    return shown;
}

} // namespace

MessageBoxes::MessageBoxes(std::function<void()> whileShown)
    : whileShown_(std::move(whileShown)),
      hook_(::SetWindowsHookExW(WH_CBT, OnHook, nullptr, ::GetCurrentThreadId())) {
    EXPECT_NE(hook_, nullptr);
    EXPECT_EQ(current, nullptr);
    current = this;
}

MessageBoxes::~MessageBoxes() {
    current = nullptr;
    ::UnhookWindowsHookEx(hook_);
}

LRESULT CALLBACK MessageBoxes::OnHook(int code, WPARAM window, LPARAM details) {
    const auto box = reinterpret_cast<HWND>(window);
    if (code == HCBT_ACTIVATE && current && box != current->box_ && IsOfClass(box, L"#32770")) {
        // A box may be activated before it has been given its text: it is read from its own loop.
        current->box_ = box;
        ::SetTimer(nullptr, 0, 0, OnTimer);
    }
    return ::CallNextHookEx(nullptr, code, window, details);
}

void CALLBACK MessageBoxes::OnTimer(HWND, UINT, UINT_PTR timer, DWORD) {
    ::KillTimer(nullptr, timer);
    if (current) {
        current->Answer();
    }
}

void MessageBoxes::Answer() {
    Shown.push_back(ReadBox(box_));
    if (whileShown_) {
        whileShown_();
    }
    ::PostMessageW(box_, WM_COMMAND, IDOK, 0);
}

} // namespace Quorvane
