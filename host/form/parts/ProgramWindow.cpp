// SPDX-License-Identifier: MIT
// ProgramWindow: the base of the program's own windows, and small helpers for their children.
#include "host/form/parts/ProgramWindow.h"

#include <map>

#include "host/container/ErrorText.h"
#include "host/form/parts/Texts.h"
#include "win/Dpi.h"
#include "win/MemoryBitmap.h"
#include "win/MessageBox.h"
#include "win/WindowText.h"

namespace Quorvane::Host {
namespace {

constexpr int IconResource = 1;

/// Gives a window the program's icon in the system's size for `metric`, which all windows share.
void SetIcon(HWND window, WPARAM kind, int metric) noexcept {
    const int side = ::GetSystemMetrics(metric);
    HANDLE const icon = ::LoadImageW(Com::ModuleHandle(), MAKEINTRESOURCEW(IconResource),
                                     IMAGE_ICON, side, side, LR_SHARED);
    ::SendMessageW(window, WM_SETICON, kind, reinterpret_cast<LPARAM>(icon));
}

} // namespace

int ProgramWindow::Scaled(int length) const noexcept {
    return ::MulDiv(length, Win::DpiOf(Get()), USER_DEFAULT_SCREEN_DPI);
}

void ProgramWindow::Finish(const Text& title) noexcept {
    Win::ShowText(Get(), title);
    if ((::GetWindowLongW(Get(), GWL_STYLE) & WS_CHILD) == 0) {
        SetIcon(Get(), ICON_BIG, SM_CXICON);
        SetIcon(Get(), ICON_SMALL, SM_CXSMICON);
    }
}

LRESULT ProgramWindow::OnMessage(UINT message, WPARAM first, LPARAM second) {
    if (message == WM_ERASEBKGND) {
        Win::FillBackground(Get(), reinterpret_cast<HDC>(first));
        return TRUE;
    }
    return Window::OnMessage(message, first, second);
}

void ProgramWindow::OnFailure() noexcept {
    try {
        throw;
    } catch (const std::exception& error) {
        ShowError(Get(), error);
    } catch (...) {
        // Nothing else is thrown here, and there would be no words for it.
        return;
    }
}

Win::ChildWindow MakeChild(HWND parent, const wchar_t* className, const Text& text, DWORD style,
                           int id, DWORD extendedStyle) {
    Win::ChildWindow child(
        Win::MakeWindow(Com::ModuleHandle(), className,
                        {.Parent = parent,
                         .Position = {},
                         .Style = style | WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS,
                         .ExtendedStyle = extendedStyle,
                         .Id = static_cast<UINT>(id)}));
    HFONT const font = MessageFont(Win::DpiOf(parent));
    ::SendMessageW(child.Get(), WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    Win::ShowText(child.Get(), text);
    return child;
}

HFONT MessageFont(int dpi) {
    static std::map<int, Win::Font> fonts;
    Win::Font& font = fonts[dpi];
    if (!font) {
        NONCLIENTMETRICSW metrics{};
        metrics.cbSize = sizeof metrics;
        ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        font = Win::Font(::CreateFontIndirectW(&metrics.lfMessageFont));
    }
    return font.Get();
}

void MoveChild(const Win::ChildWindow& child, int left, int top, int width, int height) noexcept {
    ::MoveWindow(child.Get(), left, top, width, height, TRUE);
}

void ShowError(HWND owner, const std::exception& error) noexcept {
    try {
        Win::ShowMessage(owner, WordsOf(error), GetText(TextId::ProgramName), MB_OK | MB_ICONERROR);
    } catch (...) {
        // Without the memory for a message there is no telling anybody.
        return;
    }
}

} // namespace Quorvane::Host
