// SPDX-License-Identifier: MIT
// The resolutions of windows and device contexts.
#include "win/Dpi.h"

#include "win/Handle.h"

namespace Quorvane::Win {
namespace {

constexpr int UsualDpi = 96;

using GetDpiForWindowFunction = UINT(WINAPI*)(HWND);

/// The platform's function, null on a system from before it.
GetDpiForWindowFunction FindGetDpiForWindow() noexcept {
    const FARPROC found = ::GetProcAddress(::GetModuleHandleW(L"user32.dll"), "GetDpiForWindow");
    return reinterpret_cast<GetDpiForWindowFunction>(reinterpret_cast<void*>(found));
}

} // namespace

int DpiOf(HWND window) noexcept {
    static const GetDpiForWindowFunction getDpiForWindow = FindGetDpiForWindow();
    const UINT dpi = getDpiForWindow && window ? getDpiForWindow(window) : 0;
    return dpi != 0 ? static_cast<int>(dpi) : DpiOf(WindowDc(nullptr).Get());
}

int DpiOf(HDC context) noexcept {
    const int dpi = context ? ::GetDeviceCaps(context, LOGPIXELSY) : 0;
    return dpi > 0 ? dpi : UsualDpi;
}

} // namespace Quorvane::Win
