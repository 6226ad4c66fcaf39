// SPDX-License-Identifier: MIT
// The status bar.
#include "control/display/StatusBar.h"

#include <commctrl.h>

#include <exception>

#include "com/Fonts.h"
#include "com/Module.h"
#include "control/display/Resource.h"
#include "win/Dpi.h"
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

/// The side of a status picture in pixels: 16 at 96 dots per inch.
int PictureSide(int dpi) noexcept {
    constexpr int SideInTwips = 240;
    return ::MulDiv(SideInTwips, dpi, Win::TwipsPerInch);
}

} // namespace

StatusBar::StatusBar(HWND parent, UINT id, const RECT& position, const StatusPanel& panel)
    : panel_(panel), window_(Win::MakeWindow(
                         Com::ModuleHandle(), STATUSCLASSNAMEW,
                         {.Parent = parent, .Position = position, .Style = BarStyle, .Id = id})),
      subclass_(Get(), [this](UINT message, WPARAM, LPARAM) { return OnMessage(message); }) {}

/// A bar with nothing in it is plain, as in the drawing without windows.
std::optional<LRESULT> StatusBar::OnMessage(UINT message) {
    const bool isEmpty = !panel_.Visible || (panel_.Message.empty() && !panel_.HasErrorPicture);
    if (!isEmpty) {
        return std::nullopt;
    }
    switch (message) {
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT: {
        const Win::PaintDc paint(Get());
        RECT area{};
        ::GetClientRect(Get(), &area);
        ::FillRect(paint.Get(), &area, ::GetSysColorBrush(COLOR_BTNFACE));
        return 0;
    }
    default:
        return std::nullopt;
    }
}

void StatusBar::SetDpi(int dpi) noexcept {
    dpi_ = dpi;
    Win::Font font = StatusFont(dpi);
    ::SendMessageW(Get(), WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), TRUE);
    font_ = std::move(font);
    if (errorPicture_) {
        ::SendMessageW(Get(), SB_SETICON, FirstPanel, 0);
        errorPicture_.Reset();
        imgStatus_ = {};
    }
}

HICON StatusBar::ErrorPicture() noexcept {
    if (!errorPicture_) {
        try {
            Win::ImageList images(PictureSide(dpi_));
            images.Add(u"Error", Com::ModuleHandle(), QUORVANE_ERROR_ICON);
            errorPicture_ = images.Get(u"Error");
            imgStatus_ = std::move(images);
        } catch (const std::exception&) {
            return nullptr;
        }
    }
    return errorPicture_.Get();
}

void StatusBar::Reflect() noexcept {
    // A panel cannot be invisible; one without a width shows neither picture nor text.
    const int wanted = panel_.Visible ? WholeBar : NoWidth;
    int current = WholeBar;
    ::SendMessageW(Get(), SB_GETPARTS, 1, reinterpret_cast<LPARAM>(&current));
    if (current != wanted) {
        ::SendMessageW(Get(), SB_SETPARTS, 1, reinterpret_cast<LPARAM>(&wanted));
    }
    if (panel_.Message.empty() && !panel_.HasErrorPicture && !errorPicture_) {
        return; // as it was made
    }
    HICON const picture = panel_.HasErrorPicture ? ErrorPicture() : nullptr;
    ::SendMessageW(Get(), SB_SETICON, FirstPanel, reinterpret_cast<LPARAM>(picture));
    ::SendMessageW(Get(), SB_SETTEXTW, FirstPanel,
                   reinterpret_cast<LPARAM>(Win::Wide(panel_.Message)));
}

} // namespace Quorvane
