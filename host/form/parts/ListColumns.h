// SPDX-License-Identifier: MIT
// ListColumns: report lists by columns, rows and cells.
#pragma once

#include <windows.h>

#include <initializer_list>

#include "shared/Text.h"

namespace Quorvane::Host {

struct ListColumn {
    Text Title;
    /// In pixels at 96 dots per inch.
    int Width;
};

/// Gives a report list its columns and full-row selection.
void SetColumns(HWND list, std::initializer_list<ListColumn> columns);

/// Widens or narrows the last column, so that the columns fill the list.
void FillWidth(HWND list);

/// Appends a row and returns its index.
int AddRow(HWND list, std::initializer_list<Text> cells);

void SetCell(HWND list, int row, int column, const Text& text);

Text CellText(HWND list, int row, int column);

} // namespace Quorvane::Host
