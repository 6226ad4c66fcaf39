// SPDX-License-Identifier: MIT
// Mouse and keyboard in the control, by the messages that a person's hands make.
#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include "com/ErrorBoundary.h"
#include "shared/Definition.h"
#include "tests/com/support/HeldKey.h"
#include "tests/windows/support/Form.h"

namespace Quorvane {
namespace {

/// Gives a key to the focus as a host's loop does: first to the active object.
HRESULT Press(const Form& form, WPARAM key) {
    MSG message{};
    message.hwnd = ::GetFocus();
    message.message = WM_KEYDOWN;
    message.wParam = key;
    message.lParam = 1;
    const auto active = form.As<IOleInPlaceActiveObject>();
    const HRESULT result = active->TranslateAccelerator(&message);
    if (result != S_OK) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    HandleMessages();
    return result;
}

/// Handles what arrives for a while, as a host's loop does.
void RunHost(const Form& form) {
    const auto active = form.As<IOleInPlaceActiveObject>();
    for (int i = 0; i < 20; ++i) {
        MSG message;
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (active->TranslateAccelerator(&message) != S_OK) {
                ::TranslateMessage(&message);
                ::DispatchMessageW(&message);
            }
        }
        ::Sleep(5);
    }
}

/// Presses a key of the real keyboard: only that makes the window system ask for help.
void PressOnKeyboard(const Form& form, WORD key) {
    INPUT input[2]{};
    for (INPUT& event : input) {
        event.type = INPUT_KEYBOARD;
        event.ki.wVk = key;
    }
    input[1].ki.dwFlags = KEYEVENTF_KEYUP;
    ::SendInput(2, input, sizeof(INPUT));
    RunHost(form);
}

int SelectedRow(HWND list) {
    return ListView_GetNextItem(list, -1, LVNI_SELECTED);
}

void Click(HWND window, int x, int y) {
    POINT point{x, y};
    ::ClientToScreen(window, &point);
    ::SetCursorPos(point.x, point.y);
    INPUT input[2]{};
    input[0].type = INPUT_MOUSE;
    input[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    input[1].type = INPUT_MOUSE;
    input[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
    ::SendInput(2, input, sizeof(INPUT));
    for (int i = 0; i < 20; ++i) {
        HandleMessages();
        ::Sleep(5);
    }
}

class Keyboard : public testing::Test {
  protected:
    Keyboard() {
        form_.Place();
        EXPECT_TRUE(form_.WaitUntilSeen());
        form_.DoVerb(OLEIVERB_UIACTIVATE);
        HandleMessages();
        form_.Calls().Clear();
    }

    Form form_;
};

TEST_F(Keyboard, TabGoesFromListToListAndThenToTheHost) {
    ASSERT_EQ(::GetFocus(), form_.Input());
    EXPECT_EQ(Press(form_, VK_TAB), S_OK);
    EXPECT_EQ(::GetFocus(), form_.Output());
    EXPECT_EQ(form_.Calls().Count("TranslateAccelerator"), 0);
    form_.TheSite().Behaviour.TakesKeys = S_OK;
    EXPECT_EQ(Press(form_, VK_TAB), S_OK);
    EXPECT_EQ(form_.Calls().Count("TranslateAccelerator"), 1);
    EXPECT_EQ(::GetFocus(), form_.Output());
}

TEST_F(Keyboard, ShiftTabGoesBack) {
    ::SetFocus(form_.Output());
    const HeldKey shift(VK_SHIFT);
    EXPECT_EQ(Press(form_, VK_TAB), S_OK);
    EXPECT_EQ(::GetFocus(), form_.Input());
    EXPECT_EQ(Press(form_, VK_TAB), S_FALSE);
    EXPECT_EQ(form_.Calls().Count("TranslateAccelerator"), 1);
}

TEST_F(Keyboard, TabPassesADisabledListOver) {
    ::EnableWindow(form_.Output(), FALSE);
    EXPECT_EQ(Press(form_, VK_TAB), S_FALSE);
}

TEST_F(Keyboard, ShiftTabOfTheHostEntersAtTheEnd) {
    form_.As<IOleInPlaceObject>()->UIDeactivate();
    ::SetFocus(form_.Window());
    MSG message{};
    message.message = WM_KEYDOWN;
    message.wParam = VK_TAB;
    const HeldKey shift(VK_SHIFT);
    ASSERT_EQ(form_.DoVerb(OLEIVERB_UIACTIVATE, &message), S_OK);
    EXPECT_EQ(::GetFocus(), form_.Output());
}

TEST_F(Keyboard, ArrowsMoveInTheListAndNeverInTheHost) {
    EXPECT_EQ(Press(form_, VK_DOWN), S_OK);
    EXPECT_EQ(Press(form_, VK_DOWN), S_OK);
    EXPECT_EQ(SelectedRow(form_.Input()), 1);
    EXPECT_EQ(Press(form_, VK_HOME), S_OK);
    EXPECT_EQ(SelectedRow(form_.Input()), 0);
    EXPECT_EQ(Press(form_, VK_END), S_OK);
    EXPECT_EQ(SelectedRow(form_.Input()), 1);
    EXPECT_EQ(form_.Calls().Count("TranslateAccelerator"), 0);
}

TEST_F(Keyboard, OtherKeysAreOfferedToTheHostFirst) {
    EXPECT_EQ(Press(form_, VK_RETURN), S_FALSE);
    EXPECT_EQ(Press(form_, VK_ESCAPE), S_FALSE);
    EXPECT_EQ(form_.Calls().Count("TranslateAccelerator"), 2);
}

TEST_F(Keyboard, TypingFindsTheVariable) {
    ::SendMessageW(form_.Input(), WM_CHAR, L'r', 1);
    HandleMessages();
    EXPECT_EQ(SelectedRow(form_.Input()), 1);
}

TEST_F(Keyboard, FocusComesAndGoesOnceForTheWholeControl) {
    ::SetFocus(form_.Output());
    ::SetFocus(form_.Input());
    EXPECT_EQ(form_.Calls().Only({"OnFocus in", "OnFocus out"}), std::vector<std::string>{});
    ::SetFocus(form_.Window());
    EXPECT_EQ(form_.Calls().Count("OnFocus out"), 1);
    ::SetFocus(form_.Surface());
    EXPECT_EQ(::GetFocus(), form_.Input());
    EXPECT_EQ(form_.Calls().Count("OnFocus in"), 1);
}

TEST_F(Keyboard, AClickSelectsTheWholeRowAndActivates) {
    form_.As<IOleInPlaceObject>()->UIDeactivate();
    ::SetFocus(form_.Window());
    form_.Calls().Clear();
    RECT value{};
    ListView_GetSubItemRect(form_.Input(), 1, 1, LVIR_BOUNDS, &value);
    Click(form_.Input(), (value.left + value.right) / 2, (value.top + value.bottom) / 2);
    EXPECT_EQ(SelectedRow(form_.Input()), 1);
    EXPECT_EQ(::GetFocus(), form_.Input());
    EXPECT_EQ(form_.Calls().Count("OnUIActivate"), 1);
}

TEST_F(Keyboard, AClickOnTheCaptionGivesTheFocusToTheLists) {
    ::SetFocus(form_.Window());
    Click(form_.Strip(), 200, 5);
    EXPECT_EQ(::GetFocus(), form_.Input());
}

/// The form's window, subclassed to see what help its controls did not give.
int HelpRequests = 0;

LRESULT CALLBACK CountHelp(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR,
                           DWORD_PTR) {
    HelpRequests += message == WM_HELP ? 1 : 0;
    return ::DefSubclassProc(window, message, first, second);
}

TEST_F(Keyboard, F1IsTheHostsWhereThereIsNoHelpFile) {
    HelpRequests = 0;
    ::SetWindowSubclass(form_.Window(), &CountHelp, 1, 0);
    Definition::State().HelpFile = u"C:\\no such folder\\Help\\Quorvane_EN.chm";
    PressOnKeyboard(form_, VK_F1);
    EXPECT_EQ(HelpRequests, 1);
    Definition::State().HelpFile.clear();
    PressOnKeyboard(form_, VK_F1);
    EXPECT_EQ(HelpRequests, 2);
    ::RemoveWindowSubclass(form_.Window(), &CountHelp, 1);
}

TEST_F(Keyboard, F1LoadsTheHelpViewerOnlyForAFileThatIsThere) {
    // It stays, once it is there: a repetition in one process finds it loaded.
    HMODULE const before = ::GetModuleHandleW(L"hhctrl.ocx");
    PressOnKeyboard(form_, VK_F1);
    EXPECT_EQ(::GetModuleHandleW(L"hhctrl.ocx"), before);
    wchar_t folder[MAX_PATH];
    ::GetTempPathW(MAX_PATH, folder);
    const Text file = Com::ToText(folder) + u"quorvane help test.chm";
    HANDLE const handle =
        ::CreateFileW(Com::Wide(file), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(handle, INVALID_HANDLE_VALUE);
    ::CloseHandle(handle);
    // The platform would read this path as far as the zero.
    Definition::State().HelpFile = file + u'\0' + Text(u".chm");
    PressOnKeyboard(form_, VK_F1);
    EXPECT_EQ(::GetModuleHandleW(L"hhctrl.ocx"), before);
    Definition::State().HelpFile = file;
    PressOnKeyboard(form_, VK_F1);
    EXPECT_NE(::GetModuleHandleW(L"hhctrl.ocx"), nullptr);
    ::DeleteFileW(Com::Wide(file));
}

} // namespace
} // namespace Quorvane
