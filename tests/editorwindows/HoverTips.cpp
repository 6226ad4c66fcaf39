// SPDX-License-Identifier: MIT
// The tips that windows of this thread show under a resting mouse.
#include "tests/editorwindows/HoverTips.h"

#include <commctrl.h>

#include "com/Scoped.h"
#include "tests/editorwindows/PageTest.h"

namespace Quorvane {
namespace {

/// Longer than a tip waits for the mouse to rest.
constexpr int WaitSteps = 60;
constexpr DWORD WaitStep = 20;

BOOL CALLBACK FindShown(HWND window, LPARAM found) {
    wchar_t name[32]{};
    ::GetClassNameW(window, name, static_cast<int>(std::size(name)));
    if (::IsWindowVisible(window) && Com::ToText(name) == u"tooltips_class32") {
        *reinterpret_cast<HWND*>(found) = window;
    }
    return TRUE;
}

HWND ShownTip() {
    HWND tip = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), FindShown, reinterpret_cast<LPARAM>(&tip));
    return tip;
}

Text TextOfTip(HWND tip) {
    wchar_t text[256]{};
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.lpszText = text;
    ::SendMessageW(tip, TTM_GETCURRENTTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    return Com::ToText(text);
}

} // namespace

Text TipAt(HWND window, POINT point) {
    const LPARAM place = MAKELPARAM(point.x, point.y);
    ::ClientToScreen(window, &point);
    ::SetCursorPos(point.x, point.y);
    ::PostMessageW(window, WM_MOUSEMOVE, 0, place);
    Pump();
    for (int i = 0; i < WaitSteps && !ShownTip(); ++i) {
        ::Sleep(WaitStep);
        Pump();
    }
    HWND const tip = ShownTip();
    return tip ? TextOfTip(tip) : Text();
}

} // namespace Quorvane
