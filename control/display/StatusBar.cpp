// SPDX-License-Identifier: MIT
// The status bar.
#include "control/display/StatusBar.h"

#include <commctrl.h>

#include <algorithm>

#include "com/Fonts.h"
#include "com/Module.h"
#include "win/WideText.h"

namespace Quorvane {
namespace {

/// The display places the bar; the bar is not to place itself.
constexpr DWORD BarStyle =
    WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | CCS_NORESIZE | CCS_NOPARENTALIGN | CCS_NODIVIDER;

constexpr WPARAM FirstPanel = 0;

// Right edges of the panel: that of the bar, or one that leaves it no width.
constexpr int WholeBar = -1;
constexpr int NoWidth = 0;

} // namespace

StatusBar::StatusBar(HWND parent, UINT id, const StatusPanel& panel)
    : panel_(panel),
      window_(Win::MakeWindow(Com::ModuleHandle(), STATUSCLASSNAMEW,
                              {.Parent = parent, .Position = {}, .Style = BarStyle, .Id = id})) {}

void StatusBar::SetDpi(int dpi, const Win::ImageList& images) {
    Win::Font font = StatusFont(dpi);
    ::SendMessageW(Get(), WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), TRUE);
    font_ = std::move(font);
    Win::Icon picture = images.Get(u"Error");
    ::SendMessageW(Get(), SB_SETICON, FirstPanel, 0);
    errorPicture_ = std::move(picture);
}

void StatusBar::Reflect() noexcept {
    // A panel cannot be invisible; one without a width shows neither picture nor text.
    const int wanted = panel_.Visible ? WholeBar : NoWidth;
    int current = WholeBar;
    ::SendMessageW(Get(), SB_GETPARTS, 1, reinterpret_cast<LPARAM>(&current));
    if (current != wanted) {
        ::SendMessageW(Get(), SB_SETPARTS, 1, reinterpret_cast<LPARAM>(&wanted));
    }
    HICON const picture = panel_.HasErrorPicture ? errorPicture_.Get() : nullptr;
    ::SendMessageW(Get(), SB_SETICON, FirstPanel, reinterpret_cast<LPARAM>(picture));
    ::SendMessageW(Get(), SB_SETTEXTW, FirstPanel,
                   reinterpret_cast<LPARAM>(Win::Wide(panel_.Message)));
}

} // namespace Quorvane
