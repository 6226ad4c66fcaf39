// SPDX-License-Identifier: MIT
// Windows of another program: finding them and reading what they show.
#include "tests/form/driving/Windows.h"

#include "tests/form/driving/Hands.h"
#include "tests/form/driving/RemoteMemory.h"
#include "tests/form/driving/Wait.h"

#include <array>

namespace Quorvane::Driving {

namespace {

/// What EnumWindows and EnumChildWindows look for and find.
struct Search {
    DWORD Process = 0;
    const wchar_t* ClassName = nullptr;
    std::vector<HWND> Found;
};

BOOL CALLBACK AddTopWindow(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == search.Process && IsWindowVisible(window) &&
        (!search.ClassName || ClassOf(window) == search.ClassName)) {
        search.Found.push_back(window);
    }
    return TRUE;
}

BOOL CALLBACK AddChild(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    if (ClassOf(window) == search.ClassName) {
        search.Found.push_back(window);
    }
    return TRUE;
}

constexpr std::size_t TextLength = 256;

} // namespace

std::wstring ClassOf(HWND window) {
    std::array<wchar_t, TextLength> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return name.data();
}

std::wstring TextOf(HWND window) {
    // GetWindowText reads no text of another program's controls.
    std::array<wchar_t, 2048> text{};
    SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    return text.data();
}

std::vector<HWND> TopWindows(DWORD process, const wchar_t* className) {
    Search search{process, className, {}};
    EnumWindows(AddTopWindow, reinterpret_cast<LPARAM>(&search));
    return search.Found;
}

HWND ChildOfClass(HWND parent, const wchar_t* className) {
    Search search{0, className, {}};
    EnumChildWindows(parent, AddChild, reinterpret_cast<LPARAM>(&search));
    return search.Found.empty() ? nullptr : search.Found.front();
}

HWND Child(HWND parent, int id) {
    HWND const child = GetDlgItem(parent, id);
    if (!child) {
        throw DriveError("there is no child window " + std::to_string(id));
    }
    return child;
}

HWND FocusOf(HWND window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
    return info.hwndFocus;
}

void FocusByClick(HWND window) {
    // A click that comes while a window is still being brought to the front can get lost.
    constexpr int Attempts = 10;
    constexpr DWORD TimeForOne = 1500;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        Click(window);
        if (WaitFor([window] { return FocusOf(window) == window; }, TimeForOne)) {
            return;
        }
    }
    throw DriveError("a window does not take the keyboard");
}

void Activate(HWND window) {
    Expect("a window comes to the front", [window] {
        if (GetForegroundWindow() != window) {
            SetForegroundWindow(window);
            return false;
        }
        return true;
    });
}

int RowCount(HWND list) {
    return static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
}

std::wstring Cell(HWND list, int row, int column) {
    const RemoteMemory text(list, TextLength * sizeof(wchar_t));
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = static_cast<wchar_t*>(text.Address());
    item.cchTextMax = TextLength;
    const RemoteMemory argument(list, item);
    SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), argument.Parameter());
    // An owner-data list may point to a text of its own.
    return argument.Read<LVITEMW>().pszText == text.Address()
               ? text.Read<std::array<wchar_t, TextLength>>().data()
               : std::wstring();
}

POINT RowPoint(HWND list, int row) {
    SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
    RECT area{};
    area.left = LVIR_LABEL;
    const RemoteMemory argument(list, area);
    SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), argument.Parameter());
    area = argument.Read<RECT>();
    return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

int RowOf(HWND list, const std::wstring& text) {
    for (int row = 0; row < RowCount(list); ++row) {
        if (Cell(list, row, 0) == text) {
            return row;
        }
    }
    throw DriveError("the list has no such row");
}

std::wstring ItemText(HWND tree, HTREEITEM item) {
    const RemoteMemory text(tree, TextLength * sizeof(wchar_t));
    TVITEMW asked{};
    asked.mask = TVIF_TEXT;
    asked.hItem = item;
    asked.pszText = static_cast<wchar_t*>(text.Address());
    asked.cchTextMax = TextLength;
    const RemoteMemory argument(tree, asked);
    SendMessageW(tree, TVM_GETITEMW, 0, argument.Parameter());
    return text.Read<std::array<wchar_t, TextLength>>().data();
}

HTREEITEM TreeItem(HWND tree, const std::vector<std::wstring>& path) {
    HTREEITEM item = TreeView_GetRoot(tree);
    for (const std::wstring& part : path) {
        item = TreeView_GetChild(tree, item);
        while (item && ItemText(tree, item) != part) {
            item = TreeView_GetNextSibling(tree, item);
        }
    }
    return item;
}

std::vector<std::wstring> ChildTexts(HWND tree, HTREEITEM item) {
    std::vector<std::wstring> texts;
    for (HTREEITEM child = TreeView_GetChild(tree, item); child;
         child = TreeView_GetNextSibling(tree, child)) {
        texts.push_back(ItemText(tree, child));
    }
    return texts;
}

POINT ItemPoint(HWND tree, HTREEITEM item) {
    TreeView_EnsureVisible(tree, item);
    RECT area{};
    *reinterpret_cast<HTREEITEM*>(&area) = item;
    const RemoteMemory argument(tree, area);
    if (SendMessageW(tree, TVM_GETITEMRECT, TRUE, argument.Parameter()) == 0) {
        throw DriveError("a node of the tree cannot be seen");
    }
    area = argument.Read<RECT>();
    RECT client{};
    GetClientRect(tree, &client);
    return {std::min((area.left + area.right) / 2, client.right - 2), (area.top + area.bottom) / 2};
}

} // namespace Quorvane::Driving
