// SPDX-License-Identifier: MIT
// ListColumns: report lists by columns, rows and cells.
#pragma once

#include <windows.h>

#include <initializer_list>
#include <string>

namespace Quorvane::Host {

struct ListColumn {
    const wchar_t* Title;
    /// In pixels at 96 dots per inch.
    int Width;
};

/// Gives a report list its columns and full-row selection.
void SetColumns(HWND list, std::initializer_list<ListColumn> columns);

/// Widens or narrows the last column, so that the columns fill the list.
void FillWidth(HWND list);

/// Appends a row and returns its index.
int AddRow(HWND list, std::initializer_list<std::wstring> cells);

void SetCell(HWND list, int row, int column, const std::wstring& text);

std::wstring CellText(HWND list, int row, int column);

} // namespace Quorvane::Host
