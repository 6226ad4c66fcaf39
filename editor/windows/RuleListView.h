// SPDX-License-Identifier: MIT
// `lvwRule`: the list of the rules, which asks for its cells when it shows them.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <optional>
#include <vector>

#include "editor/rules/RuleColumns.h"
#include "editor/rules/RuleEditor.h"
#include "editor/windows/Controls.h"
#include "win/HoverTip.h"
#include "win/Subclass.h"

namespace Quorvane::Editor {

/// What a text takes in a cell of the list, in pixels.
int CellWidth(const DialogFont& font, TextView text);

/// The list asks the editor for the texts of the rows that it shows, so that no number of rules is
/// too many.
class RuleListView {
  public:
    /// What the user does in the list.
    struct Events {
        std::function<void(std::size_t row)> RowClicked;
        /// A row has lost the selection, it may be for another one.
        std::function<void()> SelectionLeft;
        std::function<void(std::size_t column)> HeaderClicked;
        /// By keyboard: Ctrl with an arrow key.
        std::function<void(RuleOrder order)> OrderChosen;
        std::function<void()> DeletePressed;
    };

    /// The headings are in one font, the rows in another. Editor and fonts outlive the list. Throws
    /// std::system_error.
    RuleListView(HWND parent, UINT id, const RuleEditor& editor, const DialogFont& font,
                 const DialogFont& rowFont, const std::vector<RuleColumn>& columns, int dpi,
                 Events events);

    HWND Window() const noexcept { return window_.Get(); }

    /// The width in which no column is cut off, with room for a scroll bar.
    int NaturalWidth() const;

    /// Moves the list in its window, in pixels.
    void Place(const RECT& area) const;

    /// Scales the columns, which the user may have changed, from one resolution to another.
    void Scale(int dpi, int formerDpi) const;

    /// Shows the rows as the editor has them, the selected one in view.
    void Reflect();

    /// Whether a row is highlighted.
    bool HasSelection() const noexcept { return ListView_GetSelectedCount(Window()) != 0; }

    /// Handles a notification of the list.
    LRESULT OnNotify(NMHDR& header);

  private:
    void AddColumns(const std::vector<RuleColumn>& columns, int dpi);
    void ShowOrder() const;
    void ShowColumn(std::size_t column) const;
    bool TakesKey(WPARAM key) const;
    void SelectRow(std::size_t row) const;
    void ClearSelection() const;
    void OnItemChanged(const NMLISTVIEW& change);
    int FindTyped(const NMLVFINDITEMW& wanted) const;
    void FillCell(LVITEMW& item);
    std::optional<Win::HoverTip::Tip> TipAt(POINT point) const;
    LRESULT CustomDraw(NMLVCUSTOMDRAW& draw) const;

    const RuleEditor& editor_;
    Events events_;
    const DialogFont& rowFont_;
    Win::ChildWindow window_;
    std::optional<Win::Subclass> keys_;
    std::optional<Win::HoverTip> tip_;
    /// The text of the cell that was asked for last; the list copies it.
    Text cell_;
    /// Whether what the list reports now comes from the editor and not from the user.
    bool isShowing_ = false;
};

} // namespace Quorvane::Editor
