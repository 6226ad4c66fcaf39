// SPDX-License-Identifier: MIT
// Window: the base of the program's own windows, and small helpers for their children.
#include "host/form/parts/Window.h"

#include "host/container/HResult.h"
#include "host/container/Wide.h"
#include "host/form/parts/Texts.h"
#include "host/formfile/Utf8.h"

#include <exception>
#include <map>
#include <memory>
#include <type_traits>

namespace Quorvane::Host {

namespace {

constexpr int IconResource = 1;

/// The program's icon in the system's size for `metric`, shared by all that ask for it.
HICON OwnIcon(int metric) {
    const int side = GetSystemMetrics(metric);
    return static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IconResource),
                                         IMAGE_ICON, side, side, LR_SHARED));
}

} // namespace

Window::~Window() {
    if (handle_) {
        DestroyWindow(handle_);
    }
}

int Window::Scaled(int length) const {
    return MulDiv(length, DpiOf(handle_), USER_DEFAULT_SCREEN_DPI);
}

void Window::Create(const wchar_t* className, const wchar_t* title, DWORD style, HWND parent,
                    HMENU menu, DWORD extendedStyle) {
    const HINSTANCE module = GetModuleHandleW(nullptr);
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    if (!GetClassInfoExW(module, className, &windowClass)) {
        windowClass.style = CS_DBLCLKS;
        windowClass.lpfnWndProc = Procedure;
        windowClass.hInstance = module;
        windowClass.hIcon = OwnIcon(SM_CXICON);
        windowClass.hIconSm = OwnIcon(SM_CXSMICON);
        windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
        windowClass.lpszClassName = className;
        RegisterClassExW(&windowClass);
    }
    // Siblings that are moved over each other do not take each other's pixels along.
    CreateWindowExW(extendedStyle, className, title, style | WS_CLIPSIBLINGS, CW_USEDEFAULT,
                    CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, parent, menu, module, this);
    if (!handle_) {
        Fail(HRESULT_FROM_WIN32(GetLastError()), L"create a window", title);
    }
}

LRESULT Window::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcW(handle_, message, wParam, lParam);
}

LRESULT CALLBACK Window::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* const create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        auto* const created = static_cast<Window*>(create->lpCreateParams);
        created->handle_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto* const self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) {
        return DefWindowProcW(window, message, wParam, lParam);
    }
    if (message == WM_NCDESTROY) {
        self->handle_ = nullptr;
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        return DefWindowProcW(window, message, wParam, lParam);
    }
    try {
        return self->OnMessage(message, wParam, lParam);
    } catch (const std::exception& error) {
        ShowError(window, error.what());
        return 0;
    }
}

int DpiOf(HWND window) {
    const HDC screen = GetDC(window);
    const int dpi = screen ? GetDeviceCaps(screen, LOGPIXELSX) : USER_DEFAULT_SCREEN_DPI;
    ReleaseDC(window, screen);
    return dpi;
}

RECT WorkAreaOf(HWND window) {
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &screen);
    return screen.rcWork;
}

HWND CreateChild(HWND parent, const wchar_t* className, const wchar_t* text, DWORD style, int id,
                 DWORD extendedStyle) {
    const HWND child = CreateWindowExW(extendedStyle, className, text,
                                       style | WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 0, 0, 0, 0,
                                       parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                       GetModuleHandleW(nullptr), nullptr);
    if (!child) {
        Fail(HRESULT_FROM_WIN32(GetLastError()), L"create a window", className);
    }
    SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(MessageFont(DpiOf(parent))), FALSE);
    return child;
}

HFONT MessageFont(int dpi) {
    struct Deleter {
        void operator()(HFONT font) const { DeleteObject(font); }
    };
    using Font = std::unique_ptr<std::remove_pointer_t<HFONT>, Deleter>;
    static std::map<int, Font> fonts;
    Font& font = fonts[dpi];
    if (!font) {
        NONCLIENTMETRICSW metrics{};
        metrics.cbSize = sizeof metrics;
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        font.reset(CreateFontIndirectW(&metrics.lfMessageFont));
    }
    return font.get();
}

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    const int size = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(size));
    return text;
}

void ShowError(HWND owner, const std::string& utf8) {
    MessageBoxW(owner, ToWide(DecodeUtf8(utf8)).c_str(), GetText(TextId::ProgramName),
                MB_OK | MB_ICONERROR);
}

} // namespace Quorvane::Host
