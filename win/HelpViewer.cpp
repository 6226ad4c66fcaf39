// SPDX-License-Identifier: MIT
// Help files in the viewer of the platform.
#include "win/HelpViewer.h"

#include <htmlhelp.h>

#include <string_view>

#include "win/WideText.h"

namespace Quorvane::Win {
namespace {

using HtmlHelpFunction = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);

/// The viewer's one function, null where the system has no viewer. The viewer stays loaded, as it
/// must once it has a window.
HtmlHelpFunction FindViewer() noexcept {
    // By its full path: a name alone would be looked for beside the host's program first.
    wchar_t path[MAX_PATH];
    constexpr std::wstring_view File = L"\\hhctrl.ocx";
    const UINT length = ::GetSystemDirectoryW(path, MAX_PATH);
    if (length == 0 || length + File.size() >= MAX_PATH) {
        return nullptr;
    }
    path[length + File.copy(path + length, File.size())] = L'\0';
    HMODULE const viewer = ::LoadLibraryW(path);
    if (!viewer) {
        return nullptr;
    }
    const FARPROC found = ::GetProcAddress(viewer, "HtmlHelpW");
    return reinterpret_cast<HtmlHelpFunction>(reinterpret_cast<void*>(found));
}

bool IsFile(const Text& path) noexcept {
    const DWORD attributes = ::GetFileAttributesW(Wide(path));
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

} // namespace

bool ShowHelpFile(HWND owner, const Text& file) noexcept {
    if (!IsWholeWide(file) || !IsFile(file)) {
        return false;
    }
    static const HtmlHelpFunction show = FindViewer();
    return show && show(owner, Wide(file), HH_DISPLAY_TOPIC, 0) != nullptr;
}

} // namespace Quorvane::Win
