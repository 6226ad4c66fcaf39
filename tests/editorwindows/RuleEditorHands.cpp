// SPDX-License-Identifier: MIT
// The hands of a person in the rule editor.
#include "tests/editorwindows/RuleEditorHands.h"

#include <commctrl.h>

#include <gtest/gtest.h>

#include "com/Scoped.h"
#include "tests/editorwindows/PageTest.h"

namespace Quorvane {
namespace {

void ClickAt(HWND window, LONG x, LONG y) {
    const LPARAM place = MAKELPARAM(x, y);
    const WPARAM held = ::GetKeyState(VK_CONTROL) < 0 ? MK_CONTROL : 0;
    ::PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON | held, place);
    ::PostMessageW(window, WM_LBUTTONUP, 0, place);
    Pump();
}

struct Search {
    Text Wanted;
    HWND Found;
};

BOOL CALLBACK Look(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    if (WindowText(window) == search.Wanted) {
        search.Found = window;
    }
    return search.Found == nullptr;
}

} // namespace

HWND RuleEditorHands::Find(TextView text) const {
    Search search{Text(text), nullptr};
    ::EnumChildWindows(window_, Look, reinterpret_cast<LPARAM>(&search));
    return search.Found;
}

int RuleEditorHands::RowCount() const {
    return ListView_GetItemCount(Rules());
}

int RuleEditorHands::SelectedRow() const {
    return ListView_GetNextItem(Rules(), -1, LVNI_SELECTED);
}

bool RuleEditorHands::IsRowInView(int row) const {
    RECT room{};
    RECT header{};
    RECT area{};
    ::GetClientRect(Rules(), &room);
    ::GetClientRect(ListView_GetHeader(Rules()), &header);
    return ListView_GetItemRect(Rules(), row, &area, LVIR_BOUNDS) && area.top >= header.bottom &&
           area.bottom <= room.bottom;
}

Text RuleEditorHands::Cell(int row, int column) const {
    wchar_t text[64]{};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = static_cast<int>(std::size(text));
    ::SendMessageW(Rules(), LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&item));
    return Com::ToText(text);
}

std::vector<Text> RuleEditorHands::Row(int row, int columns) const {
    std::vector<Text> cells;
    for (int column = 0; column < columns; ++column) {
        cells.push_back(Cell(row, column));
    }
    return cells;
}

std::vector<Text> RuleEditorHands::Column(int column) const {
    std::vector<Text> cells;
    for (int row = 0; row < RowCount(); ++row) {
        cells.push_back(Cell(row, column));
    }
    return cells;
}

void RuleEditorHands::ClickRow(int row) const {
    RECT area{};
    ListView_GetItemRect(Rules(), row, &area, LVIR_LABEL);
    ClickAt(Rules(), area.left + 4, (area.top + area.bottom) / 2);
}

void RuleEditorHands::ClickHeader(int column) const {
    HWND const header = ListView_GetHeader(Rules());
    RECT area{};
    ASSERT_TRUE(Header_GetItemRect(header, column, &area));
    ClickAt(header, (area.left + area.right) / 2, (area.top + area.bottom) / 2);
}

void RuleEditorHands::ClickBelowRows() const {
    RECT room{};
    ::GetClientRect(Rules(), &room);
    ClickAt(Rules(), 20, room.bottom - 10);
}

void RuleEditorHands::Choose(TextView list, TextView term) const {
    HWND const box = Find(list);
    ASSERT_NE(box, nullptr);
    const auto index = ::SendMessageW(box, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                      reinterpret_cast<LPARAM>(Com::Wide(Text(term))));
    ASSERT_GE(index, 0);
    ::SetFocus(box);
    ::SendMessageW(box, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
    ::SendMessageW(::GetParent(box), WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(box), LBN_SELCHANGE),
                   reinterpret_cast<LPARAM>(box));
}

Text RuleEditorHands::Chosen(TextView list) const {
    HWND const box = Find(list);
    wchar_t text[64]{};
    ::SendMessageW(box, LB_GETTEXT, static_cast<WPARAM>(::SendMessageW(box, LB_GETCURSEL, 0, 0)),
                   reinterpret_cast<LPARAM>(text));
    return Com::ToText(text);
}

void RuleEditorHands::TypeWeight(TextView weight) const {
    ::SetFocus(Weight());
    ::SendMessageW(Weight(), EM_SETSEL, 0, -1);
    ::SendMessageW(Weight(), EM_REPLACESEL, FALSE,
                   reinterpret_cast<LPARAM>(Com::Wide(Text(weight))));
}

void RuleEditorHands::Push(int id) const {
    ClickAt(Part(id), 5, 5);
}

void RuleEditorHands::AddRule(std::initializer_list<std::pair<TextView, TextView>> choices,
                              TextView weight) const {
    for (const auto& [list, term] : choices) {
        Choose(list, term);
    }
    TypeWeight(weight);
    Push(CmdAdd);
}

void RuleEditorHands::TypeCharacter(wchar_t character) const {
    ::PostMessageW(::GetFocus(), WM_CHAR, character, 1);
    Pump();
}

void RuleEditorHands::Type(WPARAM key) const {
    MSG message{};
    message.hwnd = ::GetFocus();
    message.message = WM_KEYDOWN;
    message.wParam = key;
    if (!::IsDialogMessageW(window_, &message)) {
        ::DispatchMessageW(&message);
    }
    Pump();
}

} // namespace Quorvane
