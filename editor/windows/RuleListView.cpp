// SPDX-License-Identifier: MIT
// `lvwRule`: the list of the rules, which asks for its cells when it shows them.
#include "editor/windows/RuleListView.h"

#include <algorithm>
#include <utility>

#include "text/GetText.h"
#include "text/TextIds.h"
#include "win/Dpi.h"
#include "win/Keyboard.h"
#include "win/Raised.h"
#include "win/WideText.h"

namespace Quorvane::Editor {
namespace {

/// What a list keeps free on both sides of the text in a cell, in dialog units.
constexpr int CellRoom = 8;

/// The background of the selected row while the focus is elsewhere: between that of the others and
/// a shadow, so that it is seen on every screen.
COLORREF FaintSelectionColor() {
    const COLORREF window = ::GetSysColor(COLOR_WINDOW);
    const COLORREF shadow = ::GetSysColor(COLOR_BTNSHADOW);
    const auto mix = [](int first, int second) {
        return static_cast<BYTE>((2 * first + second) / 3);
    };
    return RGB(mix(GetRValue(window), GetRValue(shadow)), mix(GetGValue(window), GetGValue(shadow)),
               mix(GetBValue(window), GetBValue(shadow)));
}

} // namespace

int CellWidth(const DialogFont& font, TextView text) {
    return font.TextWidth(text) + font.X(CellRoom);
}

RuleListView::RuleListView(HWND parent, UINT id, const RuleEditor& editor, const DialogFont& font,
                           const DialogFont& rowFont, const std::vector<RuleColumn>& columns,
                           int dpi, Events events)
    : editor_(editor), events_(std::move(events)), rowFont_(rowFont),
      window_(
          MakeControl(parent, WC_LISTVIEWW, Main::GetText(TextIds::RuleBase),
                      WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS,
                      id, font, WS_EX_CLIENTEDGE)) {
    ListView_SetExtendedListViewStyle(Window(), LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES |
                                                    LVS_EX_DOUBLEBUFFER);
    AddColumns(columns, dpi);
    keys_.emplace(Window(), [this](UINT message, WPARAM first, LPARAM) -> std::optional<LRESULT> {
        return message == WM_KEYDOWN && TakesKey(first) ? std::optional<LRESULT>(0) : std::nullopt;
    });
    tip_.emplace(Window(), [this](POINT point) { return TipAt(point); });
}

/// Ctrl with Left and Right sorts by the column beside, with Up and Down up and down. The list
/// itself has little use for them: it would move the focus away from the selected row.
bool RuleListView::TakesKey(WPARAM key) const {
    if (!Win::IsPressed(VK_CONTROL)) {
        return false;
    }
    RuleOrder order = editor_.Rows().Order().value_or(RuleOrder());
    switch (key) {
    case VK_LEFT:
        order.Column -= order.Column > 0 ? 1 : 0;
        break;
    case VK_RIGHT:
        order.Column += order.Column + 1 < editor_.Rows().ColumnCount() ? 1 : 0;
        break;
    case VK_UP:
        order.Descending = false;
        break;
    case VK_DOWN:
        order.Descending = true;
        break;
    default:
        return false;
    }
    events_.OrderChosen(order);
    ShowColumn(order.Column);
    return true;
}

void RuleListView::AddColumns(const std::vector<RuleColumn>& columns, int dpi) {
    int index = 0;
    for (const RuleColumn& column : columns) {
        LVCOLUMNW item{};
        item.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
        item.fmt = column.Alignment == ColumnAlignment::Right ? LVCFMT_RIGHT : LVCFMT_LEFT;
        item.cx = ::MulDiv(column.Width, dpi, Win::TwipsPerInch);
        item.pszText = const_cast<wchar_t*>(Win::Wide(column.Caption));
        ::SendMessageW(Window(), LVM_INSERTCOLUMNW, static_cast<WPARAM>(index++),
                       reinterpret_cast<LPARAM>(&item));
    }
}

void RuleListView::Place(const RECT& area) const {
    ::MoveWindow(Window(), area.left, area.top, area.right - area.left, area.bottom - area.top,
                 TRUE);
    // With frame and header, whose ends not every platform draws anew where they have moved.
    ::RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_ALLCHILDREN);
}

void RuleListView::Scale(int dpi, int formerDpi) const {
    const int count = Header_GetItemCount(ListView_GetHeader(Window()));
    for (int column = 0; column < count; ++column) {
        const int width = ListView_GetColumnWidth(Window(), column);
        ListView_SetColumnWidth(Window(), column, ::MulDiv(width, dpi, formerDpi));
    }
}

int RuleListView::NaturalWidth() const {
    int width = ::GetSystemMetrics(SM_CXVSCROLL) + 2 * ::GetSystemMetrics(SM_CXEDGE);
    const int count = Header_GetItemCount(ListView_GetHeader(Window()));
    for (int column = 0; column < count; ++column) {
        width += ListView_GetColumnWidth(Window(), column);
    }
    return width;
}

void RuleListView::Reflect() {
    const Win::Raised showing(isShowing_);
    // First, as the list may paint at once what it scrolls: then all of it, and once. The header
    // stays as it is.
    ::RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_NOCHILDREN);
    const auto count = static_cast<int>(editor_.Rows().Count());
    if (ListView_GetItemCount(Window()) != count) {
        ListView_SetItemCountEx(Window(), count, LVSICF_NOINVALIDATEALL | LVSICF_NOSCROLL);
    }
    ShowOrder();
    if (const auto row = editor_.SelectedRow()) {
        SelectRow(*row);
    } else if (HasSelection()) {
        ClearSelection();
    }
}

/// An arrow in the header of the column that the rows are sorted by.
void RuleListView::ShowOrder() const {
    HWND const header = ListView_GetHeader(Window());
    const auto& order = editor_.Rows().Order();
    const int count = Header_GetItemCount(header);
    for (int column = 0; column < count; ++column) {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        const auto index = static_cast<WPARAM>(column);
        ::SendMessageW(header, HDM_GETITEMW, index, reinterpret_cast<LPARAM>(&item));
        int format = item.fmt & ~(HDF_SORTUP | HDF_SORTDOWN);
        if (order && order->Column == index) {
            format |= order->Descending ? HDF_SORTDOWN : HDF_SORTUP;
        }
        if (std::exchange(item.fmt, format) != format) {
            ::SendMessageW(header, HDM_SETITEMW, index, reinterpret_cast<LPARAM>(&item));
        }
    }
}

void RuleListView::ShowColumn(std::size_t column) const {
    HWND const header = ListView_GetHeader(Window());
    RECT room{};
    RECT area{};
    ::GetClientRect(Window(), &room);
    ::SendMessageW(header, HDM_GETITEMRECT, column, reinterpret_cast<LPARAM>(&area));
    ::MapWindowPoints(header, Window(), reinterpret_cast<POINT*>(&area), 2);
    if (area.left < 0 || area.right - area.left > room.right) {
        ListView_Scroll(Window(), area.left, 0);
    } else if (area.right > room.right) {
        ListView_Scroll(Window(), area.right - room.right, 0);
    }
}

void RuleListView::SelectRow(std::size_t row) const {
    constexpr UINT Marks = LVIS_SELECTED | LVIS_FOCUSED;
    const auto index = static_cast<int>(row);
    // A list that is left to find the former row may go through tens of thousands for it.
    const int former = ListView_GetNextItem(Window(), -1, LVNI_FOCUSED);
    if (former >= 0 && former != index) {
        ListView_SetItemState(Window(), former, 0, Marks);
    }
    ListView_SetItemState(Window(), index, Marks, Marks);
    ListView_EnsureVisible(Window(), index, FALSE);
}

void RuleListView::ClearSelection() const {
    const int row = ListView_GetNextItem(Window(), -1, LVNI_SELECTED);
    ListView_SetItemState(Window(), row, 0, LVIS_SELECTED);
}

void RuleListView::OnItemChanged(const NMLISTVIEW& change) {
    const bool isSelected = (change.uNewState & LVIS_SELECTED) != 0;
    const bool wasSelected = (change.uOldState & LVIS_SELECTED) != 0;
    if (isShowing_ || isSelected == wasSelected) {
        return;
    }
    if (wasSelected) {
        events_.SelectionLeft();
    } else if (change.iItem >= 0) {
        events_.RowClicked(static_cast<std::size_t>(change.iItem));
    }
}

/// Typed digits go to the row with that number, other characters nowhere.
int RuleListView::FindTyped(const NMLVFINDITEMW& wanted) const {
    if ((wanted.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0) {
        return -1;
    }
    const TextView typed(reinterpret_cast<const char16_t*>(wanted.lvfi.psz));
    const auto from = static_cast<std::size_t>(std::max(0, wanted.iStart));
    const auto row = editor_.Rows().FindNumberFrom(from, typed);
    return row ? static_cast<int>(*row) : -1;
}

LRESULT RuleListView::OnNotify(NMHDR& header) {
    switch (header.code) {
    case LVN_GETDISPINFOW:
        FillCell(reinterpret_cast<NMLVDISPINFOW&>(header).item);
        return 0;
    case LVN_ITEMCHANGED:
        OnItemChanged(reinterpret_cast<const NMLISTVIEW&>(header));
        return 0;
    case LVN_ODFINDITEMW:
        return FindTyped(reinterpret_cast<const NMLVFINDITEMW&>(header));
    case NM_CLICK: {
        // A click on the selected row changes no selection, but shows its rule again.
        const auto& click = reinterpret_cast<const NMITEMACTIVATE&>(header);
        if (click.iItem >= 0) {
            events_.RowClicked(static_cast<std::size_t>(click.iItem));
        }
        return 0;
    }
    case LVN_COLUMNCLICK:
        events_.HeaderClicked(
            static_cast<std::size_t>(reinterpret_cast<const NMLISTVIEW&>(header).iSubItem));
        return 0;
    case LVN_KEYDOWN:
        if (reinterpret_cast<const NMLVKEYDOWN&>(header).wVKey == VK_DELETE) {
            events_.DeletePressed();
        }
        return 0;
    case NM_CUSTOMDRAW:
        return CustomDraw(reinterpret_cast<NMLVCUSTOMDRAW&>(header));
    default:
        return 0;
    }
}

void RuleListView::FillCell(LVITEMW& item) {
    const auto row = static_cast<std::size_t>(item.iItem);
    if ((item.mask & LVIF_TEXT) != 0 && row < editor_.Rows().Count()) {
        cell_ = editor_.Rows().CellText(row, static_cast<std::size_t>(item.iSubItem));
        item.pszText = const_cast<wchar_t*>(Win::Wide(cell_));
    }
}

/// The text of a cell that is cut off.
std::optional<Win::HoverTip::Tip> RuleListView::TipAt(POINT point) const {
    LVHITTESTINFO hit{};
    hit.pt = point;
    const int row = ListView_SubItemHitTest(Window(), &hit);
    if (row < 0 || static_cast<std::size_t>(row) >= editor_.Rows().Count()) {
        return std::nullopt;
    }
    RECT room{};
    RECT cell{};
    ::GetClientRect(Window(), &room);
    ListView_GetSubItemRect(Window(), row, hit.iSubItem, LVIR_LABEL, &cell);
    const Text text = editor_.Rows().CellText(static_cast<std::size_t>(row),
                                              static_cast<std::size_t>(hit.iSubItem));
    RECT seen{};
    ::IntersectRect(&seen, &cell, &room);
    if (CellWidth(rowFont_, text) <= seen.right - seen.left) {
        return std::nullopt;
    }
    return Win::HoverTip::Tip{text, seen};
}

LRESULT RuleListView::CustomDraw(NMLVCUSTOMDRAW& draw) const {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) {
        return CDRF_NOTIFYITEMDRAW;
    }
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) {
        return CDRF_DODEFAULT;
    }
    draw.clrText = RuleRowColor();
    if ((draw.nmcd.uItemState & CDIS_SELECTED) != 0 && ::GetFocus() != Window()) {
        // The list would give the selected row another colour of text. In the colours of the
        // selection it needs that; while the focus is elsewhere, the rule keeps its own.
        draw.nmcd.uItemState &= ~UINT{CDIS_SELECTED};
        const auto row = static_cast<int>(draw.nmcd.dwItemSpec);
        const bool isSelected =
            ListView_GetItemState(Window(), row, LVIS_SELECTED) == LVIS_SELECTED;
        draw.clrTextBk = isSelected ? FaintSelectionColor() : ::GetSysColor(COLOR_WINDOW);
    }
    ::SelectObject(draw.nmcd.hdc, rowFont_.Get());
    return CDRF_NEWFONT;
}

} // namespace Quorvane::Editor
