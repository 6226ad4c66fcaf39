// SPDX-License-Identifier: MIT
// A tip for what the mouse rests on in a window.
#include "win/HoverTip.h"

#include <commctrl.h>

#include <utility>

#include "win/WideText.h"

namespace Quorvane::Win {
namespace {

/// The tool of a window's tip. Its size is that of the first version, which every platform takes.
TTTOOLINFOW ToolOf(HWND window) {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.hwnd = window;
    return tool;
}

void Tell(HWND tip, UINT message, TTTOOLINFOW& tool) noexcept {
    ::SendMessageW(tip, message, 0, reinterpret_cast<LPARAM>(&tool));
}

} // namespace

HoverTip::HoverTip(HWND window, Ask ask)
    : window_(window), ask_(std::move(ask)),
      tip_(MakeWindow(nullptr, TOOLTIPS_CLASSW,
                      {.Parent = window,
                       .Position = {},
                       .Style = WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                       .ExtendedStyle = WS_EX_TOPMOST,
                       .Id = 0})) {
    TTTOOLINFOW tool = ToolOf(window_);
    wchar_t none[] = L"";
    tool.lpszText = none;
    Tell(tip_.Get(), TTM_ADDTOOLW, tool);
    mouse_.emplace(window_,
                   [this](UINT message, WPARAM first, LPARAM second) -> std::optional<LRESULT> {
                       OnMessage(message, first, second);
                       return std::nullopt;
                   });
}

void HoverTip::OnMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_MOUSEMOVE: {
        const auto tip =
            ask_({static_cast<short>(LOWORD(second)), static_cast<short>(HIWORD(second))});
        if (tip && !tip->Content.empty()) {
            Show(*tip);
        } else {
            Hide();
        }
        break;
    }
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
        break;
    // What the tip tells of may go from under the mouse.
    case WM_KEYDOWN:
    case WM_VSCROLL:
    case WM_HSCROLL:
    case WM_MOUSEWHEEL:
        Hide();
        return;
    default:
        return;
    }
    MSG relayed{};
    relayed.hwnd = window_;
    relayed.message = message;
    relayed.wParam = first;
    relayed.lParam = second;
    ::SendMessageW(tip_.Get(), TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
}

void HoverTip::Show(const Tip& tip) {
    if (tip.Content == content_ && ::EqualRect(&tip.Area, &area_)) {
        return;
    }
    Hide();
    content_ = tip.Content;
    area_ = tip.Area;
    TTTOOLINFOW tool = ToolOf(window_);
    tool.rect = area_;
    tool.lpszText = const_cast<wchar_t*>(Wide(content_));
    Tell(tip_.Get(), TTM_UPDATETIPTEXTW, tool);
    Tell(tip_.Get(), TTM_NEWTOOLRECTW, tool);
}

/// The tool takes no room then, and the mouse is on nothing.
void HoverTip::Hide() noexcept {
    if (::IsRectEmpty(&area_)) {
        return;
    }
    area_ = {};
    TTTOOLINFOW tool = ToolOf(window_);
    ::SendMessageW(tip_.Get(), TTM_POP, 0, 0);
    Tell(tip_.Get(), TTM_NEWTOOLRECTW, tool);
}

} // namespace Quorvane::Win
