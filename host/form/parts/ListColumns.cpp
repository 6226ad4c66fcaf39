// SPDX-License-Identifier: MIT
// ListColumns: report lists by columns, rows and cells.
#include "host/form/parts/ListColumns.h"

#include <commctrl.h>

#include <algorithm>
#include <array>

#include "win/Dpi.h"
#include "win/WideText.h"
#include "win/Window.h"

namespace Quorvane::Host {

void SetColumns(HWND list, std::initializer_list<ListColumn> columns) {
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES |
                                                LVS_EX_DOUBLEBUFFER);
    int index = 0;
    for (const ListColumn& column : columns) {
        LVCOLUMNW item{};
        item.mask = LVCF_TEXT | LVCF_WIDTH;
        item.pszText = const_cast<wchar_t*>(Win::Wide(column.Title));
        item.cx = ::MulDiv(column.Width, Win::DpiOf(list), USER_DEFAULT_SCREEN_DPI);
        ::SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index++),
                       reinterpret_cast<LPARAM>(&item));
    }
}

void FillWidth(HWND list) {
    const RECT area = Win::ClientArea(list);
    const int last = Header_GetItemCount(ListView_GetHeader(list)) - 1;
    int others = 0;
    for (int column = 0; column < last; ++column) {
        others += ListView_GetColumnWidth(list, column);
    }
    // One that is too long for the room gets a scroll bar, which takes its room from the columns.
    ListView_SetColumnWidth(list, last, std::max(0, static_cast<int>(area.right) - others));
}

int AddRow(HWND list, std::initializer_list<Text> cells) {
    LVITEMW item{};
    item.iItem = ListView_GetItemCount(list);
    const auto row =
        static_cast<int>(::SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
    int column = 0;
    for (const Text& cell : cells) {
        SetCell(list, row, column++, cell);
    }
    return row;
}

void SetCell(HWND list, int row, int column, const Text& text) {
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = const_cast<wchar_t*>(Win::Wide(text));
    ::SendMessageW(list, LVM_SETITEMTEXTW, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&item));
}

Text CellText(HWND list, int row, int column) {
    std::array<wchar_t, 512> text{};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    ::SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&item));
    return Text(reinterpret_cast<const char16_t*>(text.data()));
}

} // namespace Quorvane::Host
