// SPDX-License-Identifier: MIT
// Mouse and keyboard, as the system gets them from a person.
#include "tests/form/driving/Hands.h"

#include "tests/form/driving/Wait.h"

#include <cstdlib>

namespace Quorvane::Driving {

namespace {

/// Time for the driven program to take one event before the next: a drag of two points in one
/// moment would be none.
constexpr DWORD Pause = 20;

void Send(INPUT input) {
    if (SendInput(1, &input, sizeof input) != 1) {
        throw DriveError("the input was refused");
    }
}

void Button(DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    Send(input);
    Sleep(Pause);
}

void Key(WORD key, WORD character, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = key != 0 ? static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC)) : character;
    const bool isExtended =
        (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE;
    input.ki.dwFlags = flags | (isExtended ? KEYEVENTF_EXTENDEDKEY : 0U);
    Send(input);
}

void MoveTo(HWND window, POINT point) {
    ClientToScreen(window, &point);
    SetCursorPos(point.x, point.y);
    Sleep(Pause);
}

/// Two clicks at one point are two clicks only if time lies between them.
void WaitOutDoubleClick(HWND window, POINT point) {
    struct LastClick {
        HWND Window;
        POINT Point;
        DWORD Time;
    };
    static LastClick last{};
    const bool isNear = last.Window == window && std::abs(last.Point.x - point.x) < 8 &&
                        std::abs(last.Point.y - point.y) < 8;
    const DWORD passed = GetTickCount() - last.Time;
    const DWORD needed = GetDoubleClickTime() + Pause;
    if (isNear && passed < needed) {
        Sleep(needed - passed);
    }
    last = {window, point, GetTickCount()};
}

} // namespace

void Click(HWND window, POINT point) {
    WaitOutDoubleClick(window, point);
    MoveTo(window, point);
    Button(MOUSEEVENTF_LEFTDOWN);
    Button(MOUSEEVENTF_LEFTUP);
}

void Click(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    Click(window, {area.right / 2, area.bottom / 2});
}

void DoubleClick(HWND window, POINT point) {
    Click(window, point);
    Button(MOUSEEVENTF_LEFTDOWN);
    Button(MOUSEEVENTF_LEFTUP);
}

void Drag(HWND window, POINT from, POINT to) {
    constexpr int Steps = 4;
    MoveTo(window, from);
    Button(MOUSEEVENTF_LEFTDOWN);
    for (int step = 1; step <= Steps; ++step) {
        MoveTo(window,
               {from.x + (to.x - from.x) * step / Steps, from.y + (to.y - from.y) * step / Steps});
    }
    Button(MOUSEEVENTF_LEFTUP);
}

void Press(WORD key, std::initializer_list<WORD> held) {
    for (const WORD modifier : held) {
        Key(modifier, 0, 0);
    }
    Key(key, 0, 0);
    Key(key, 0, KEYEVENTF_KEYUP);
    for (const WORD modifier : held) {
        Key(modifier, 0, KEYEVENTF_KEYUP);
    }
    Sleep(Pause);
}

void Type(std::wstring_view text) {
    for (const wchar_t character : text) {
        Key(0, character, KEYEVENTF_UNICODE);
        Key(0, character, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
    }
    Sleep(Pause);
}

} // namespace Quorvane::Driving
