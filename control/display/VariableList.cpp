// SPDX-License-Identifier: MIT
// A list view of variables and their values.
#include "control/display/VariableList.h"

#include <algorithm>
#include <cwchar>

#include "com/Fonts.h"
#include "com/Module.h"
#include "control/display/CellDrawing.h"
#include "win/WideText.h"
#include "win/WindowText.h"

namespace Quorvane {
namespace {

constexpr DWORD ListStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPSIBLINGS | WS_BORDER |
                            LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_OWNERDATA |
                            LVS_NOSORTHEADER;
constexpr DWORD ExtendedListStyle =
    LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP;

} // namespace

VariableList::VariableList(HWND parent, UINT id, const RECT& position, const ListFace& face,
                           FocusHandler focusHandler)
    : face_(face), focusHandler_(std::move(focusHandler)),
      window_(
          Win::MakeWindow(Com::ModuleHandle(), WC_LISTVIEWW,
                          {.Parent = parent, .Position = position, .Style = ListStyle, .Id = id})) {
    ListView_SetExtendedListViewStyle(Get(), ExtendedListStyle);
    // The notifications are in Unicode whatever the host's windows are.
    ListView_SetUnicodeFormat(Get(), TRUE);
    subclass_.emplace(Get(), [this](UINT message, WPARAM first, LPARAM second) {
        return OnMessage(message, first, second);
    });
}

void VariableList::SetFont(int dpi) noexcept {
    dpi_ = dpi;
    Win::Font font = DrawingFont(face_.Font.Get().Get(), dpi);
    ::SendMessageW(Get(), WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), TRUE);
    font_ = std::move(font);
}

void VariableList::Reflect() const noexcept {
    const COLORREF back = ToColorRef(face_.BackColor, DefaultBackColor);
    const COLORREF fore = ToColorRef(face_.ForeColor, DefaultForeColor);
    if (back != ListView_GetBkColor(Get()) || fore != ListView_GetTextColor(Get())) {
        ListView_SetBkColor(Get(), back);
        ListView_SetTextBkColor(Get(), back);
        ListView_SetTextColor(Get(), fore);
        ::InvalidateRect(Get(), nullptr, TRUE);
    }
    if (Win::Enable(Get(), face_.Enabled)) {
        ::InvalidateRect(Get(), nullptr, TRUE);
    }
}

void VariableList::ShowRows() noexcept {
    // Down to none first, so that no row stays selected or focused.
    if (ListView_GetItemCount(Get()) > 0) {
        ListView_SetItemCountEx(Get(), 0, 0);
    }
    if (!face_.Rows.empty()) {
        ListView_SetItemCountEx(Get(), static_cast<int>(face_.Rows.size()), 0);
    }
}

void VariableList::ShowValues() const noexcept {
    ::RedrawWindow(Get(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

void VariableList::ShowColumn(int index, const Text& header, int width) noexcept {
    LVCOLUMNW column{};
    column.mask = LVCF_FMT | LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
    column.fmt = LVCFMT_LEFT;
    column.pszText = const_cast<wchar_t*>(Win::Wide(header));
    column.cx = width;
    column.iSubItem = index;
    // A column that is there is changed: taking it away first would show.
    if (!ListView_SetColumn(Get(), index, &column)) {
        ListView_InsertColumn(Get(), index, &column);
    }
}

void VariableList::ShowColumns(int width) noexcept {
    int index = 0;
    for (const ListColumn& column : face_.Columns) {
        ShowColumn(index++, column.Header, width);
    }
    // In a list that has become narrower, the columns of before have brought a scroll bar.
    if (::GetWindowLongW(Get(), GWL_STYLE) & WS_HSCROLL) {
        ::SetWindowPos(Get(), nullptr, 0, 0, 0, 0,
                       SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    }
}

void VariableList::TellText(NMLVDISPINFOW& question) const noexcept {
    LVITEMW& item = question.item;
    if (!(item.mask & LVIF_TEXT) || item.cchTextMax <= 0) {
        return;
    }
    const auto row = static_cast<std::size_t>(item.iItem);
    TextView text;
    if (row < face_.Rows.size()) {
        text = item.iSubItem == 0 ? face_.Rows[row].Label : face_.Rows[row].Value;
    }
    const std::size_t length = text.copy(reinterpret_cast<char16_t*>(item.pszText),
                                         static_cast<std::size_t>(item.cchTextMax) - 1);
    item.pszText[length] = L'\0';
}

/// The row whose label begins with what the user types.
LRESULT VariableList::FindRow(const NMLVFINDITEMW& question) const noexcept {
    constexpr LRESULT None = -1;
    const bool byText = (question.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) != 0;
    if (!byText || !question.lvfi.psz || face_.Rows.empty()) {
        return None;
    }
    const int length = static_cast<int>(std::wcslen(question.lvfi.psz));
    const auto count = static_cast<int>(face_.Rows.size());
    for (int step = 0; step < count; ++step) {
        const int row = (std::max(question.iStart, 0) + step) % count;
        const Text& label = face_.Rows[static_cast<std::size_t>(row)].Label;
        if (static_cast<int>(label.size()) >= length &&
            ::CompareStringOrdinal(Win::Wide(label), length, question.lvfi.psz, length, TRUE) ==
                CSTR_EQUAL) {
            return row;
        }
    }
    return None;
}

/// Not every version of the platform shows that a list is disabled.
LRESULT VariableList::ColourRow(NMLVCUSTOMDRAW& drawing) const noexcept {
    if (drawing.nmcd.dwDrawStage == CDDS_PREPAINT) {
        FillGapAboveRows(drawing.nmcd.hdc);
        return face_.Enabled ? CDRF_DODEFAULT : CDRF_NOTIFYITEMDRAW;
    }
    if (!face_.Enabled) {
        drawing.clrText = ::GetSysColor(COLOR_GRAYTEXT);
    }
    return CDRF_DODEFAULT;
}

/// Headers look as in the drawing without windows, and are drawn in half the time that visual
/// styles take.
LRESULT VariableList::DrawHeader(const NMCUSTOMDRAW& drawing) const noexcept {
    if (drawing.dwDrawStage == CDDS_PREPAINT) {
        return CDRF_NOTIFYITEMDRAW;
    }
    if (drawing.dwDrawStage != CDDS_ITEMPREPAINT || drawing.dwItemSpec >= face_.Columns.size()) {
        return CDRF_DODEFAULT;
    }
    const Win::SavedDc saved(drawing.hdc);
    DrawHeaderCell(drawing.hdc, drawing.rc, face_.Columns[drawing.dwItemSpec].Header, font_.Get(),
                   dpi_);
    return CDRF_SKIPDEFAULT;
}

LRESULT VariableList::OnNotify(NMHDR& notification) const noexcept {
    switch (notification.code) {
    case LVN_GETDISPINFOW:
        TellText(reinterpret_cast<NMLVDISPINFOW&>(notification));
        return 0;
    case LVN_ODFINDITEMW:
        return FindRow(reinterpret_cast<const NMLVFINDITEMW&>(notification));
    case NM_CUSTOMDRAW:
        return ColourRow(reinterpret_cast<NMLVCUSTOMDRAW&>(notification));
    default:
        return 0;
    }
}

/// The two columns together are as wide as the list with its frame, which alone is no reason for a
/// horizontal scroll bar. It appears when the user makes a column wider.
void VariableList::HideScrollBarOfWholeColumns() const noexcept {
    const LONG style = ::GetWindowLongW(Get(), GWL_STYLE);
    if (!(style & WS_HSCROLL)) {
        return;
    }
    RECT frame{};
    ::GetWindowRect(Get(), &frame);
    const int columns = ListView_GetColumnWidth(Get(), 0) + ListView_GetColumnWidth(Get(), 1);
    // Each column is rounded to a pixel by itself.
    if (columns <= frame.right - frame.left + 1) {
        ::SetWindowLongW(Get(), GWL_STYLE, style & ~WS_HSCROLL);
    }
}

/// Under Wine, a list with a grid leaves a gap between header and rows, and black if it is
/// buffered.
void VariableList::FillGapAboveRows(HDC context) const noexcept {
    constexpr LONG GapOfEmptyList = 2;
    RECT header{};
    RECT client{};
    ::GetWindowRect(ListView_GetHeader(Get()), &header);
    ::MapWindowPoints(nullptr, Get(), reinterpret_cast<POINT*>(&header), 2);
    ::GetClientRect(Get(), &client);
    RECT row{};
    const bool hasRow =
        ListView_GetItemRect(Get(), ListView_GetTopIndex(Get()), &row, LVIR_BOUNDS) != FALSE;
    const RECT gap{0, header.bottom, client.right,
                   hasRow ? row.top : header.bottom + GapOfEmptyList};
    if (gap.top < gap.bottom) {
        FillArea(context, gap, ListView_GetBkColor(Get()));
    }
}

std::optional<LRESULT> VariableList::OnMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_NOTIFY: {
        const auto& notification = *reinterpret_cast<const NMHDR*>(second);
        if (notification.code == NM_CUSTOMDRAW &&
            notification.hwndFrom == ListView_GetHeader(Get())) {
            return DrawHeader(reinterpret_cast<const NMCUSTOMDRAW&>(notification));
        }
        break;
    }
    case WM_NCCALCSIZE:
        HideScrollBarOfWholeColumns();
        break;
    case WM_SETFOCUS:
    case WM_KILLFOCUS: {
        // The list draws its focus first, as the handler may be the end of it.
        HWND const other = reinterpret_cast<HWND>(first);
        const FocusHandler handler = focusHandler_;
        const LRESULT result = Win::Subclass::Default(Get(), message, first, 0);
        handler(message == WM_SETFOCUS, other);
        return result;
    }
    default:
        break;
    }
    return std::nullopt;
}

} // namespace Quorvane
