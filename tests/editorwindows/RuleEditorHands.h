// SPDX-License-Identifier: MIT
// The hands of a person in the rule editor.
#pragma once

#include <windows.h>

#include <initializer_list>
#include <utility>
#include <vector>

#include "shared/Text.h"

namespace Quorvane {

/// Works the rule editor with mouse and keyboard, and reads what it shows.
class RuleEditorHands {
  public:
    enum Id {
        PicInput = 100,
        PicOutput,
        LvwRule,
        TxtWeight,
        CmdAdd,
        CmdDelete,
        CmdClose = IDCANCEL
    };

    explicit RuleEditorHands(HWND window) : window_(window) {}

    HWND Part(int id) const { return ::GetDlgItem(window_, id); }
    HWND Rules() const { return Part(LvwRule); }
    HWND Weight() const { return Part(TxtWeight); }

    /// The window with a text below the editor, such as the list box of a variable; null for none.
    HWND Find(TextView text) const;

    int RowCount() const;
    int SelectedRow() const;

    /// Whether all of a row's height is in view.
    bool IsRowInView(int row) const;

    Text Cell(int row, int column) const;

    /// The first so many cells of a row.
    std::vector<Text> Row(int row, int columns) const;

    /// The cells of a column, from the first row to the last.
    std::vector<Text> Column(int column) const;

    void ClickRow(int row) const;
    void ClickHeader(int column) const;

    /// Clicks the list where there is no row.
    void ClickBelowRows() const;

    /// Chooses a term by its name in the list box with a name.
    void Choose(TextView list, TextView term) const;
    Text Chosen(TextView list) const;

    void TypeWeight(TextView weight) const;

    /// Presses a button with the mouse.
    void Push(int id) const;

    void AddRule(std::initializer_list<std::pair<TextView, TextView>> choices,
                 TextView weight) const;

    /// Types a key where the focus is, as the window's own message loop brings it.
    void Type(WPARAM key) const;

    /// Types a character into what has the focus.
    void TypeCharacter(wchar_t character) const;

    /// Esc, which closes the editor once the caller has returned.
    void Escape() const { ::PostMessageW(Rules(), WM_KEYDOWN, VK_ESCAPE, 0); }

  private:
    HWND window_;
};

} // namespace Quorvane
