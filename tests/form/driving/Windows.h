// SPDX-License-Identifier: MIT
// Windows of another program: finding them and reading what they show.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace Quorvane::Driving {

std::wstring ClassOf(HWND window);
std::wstring TextOf(HWND window);

/// The visible top-level windows of a process that have this class; all, for no class.
std::vector<HWND> TopWindows(DWORD process, const wchar_t* className);

/// A child window, at any depth, by its class; null for none.
HWND ChildOfClass(HWND parent, const wchar_t* className);

/// A child window by its id; throws DriveError for none.
HWND Child(HWND parent, int id);

/// What has the keyboard in the thread of a window.
HWND FocusOf(HWND window);

/// Gives a window the keyboard by clicking it.
void FocusByClick(HWND window);

/// Brings a top-level window to the front and waits until the keyboard is its own.
void Activate(HWND window);

/// Reads a list view.
int RowCount(HWND list);
std::wstring Cell(HWND list, int row, int column);
/// The middle of a row's label in the list's client area.
POINT RowPoint(HWND list, int row);
/// The row that shows this text in its first column; throws DriveError for none.
int RowOf(HWND list, const std::wstring& text);

/// An item of a tree by the texts below its root; the root itself for none. Null where there is no
/// such item.
HTREEITEM TreeItem(HWND tree, const std::vector<std::wstring>& path);
std::wstring ItemText(HWND tree, HTREEITEM item);
std::vector<std::wstring> ChildTexts(HWND tree, HTREEITEM item);
/// Scrolls to the item; the middle of its label in the tree's client area.
POINT ItemPoint(HWND tree, HTREEITEM item);

} // namespace Quorvane::Driving
