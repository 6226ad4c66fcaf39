// SPDX-License-Identifier: MIT
// The parts of the rule editor's window, and where they are.
#pragma once

#include <windows.h>

#include <memory>

#include "editor/rules/RuleEditor.h"
#include "editor/windows/Controls.h"
#include "editor/windows/PanelWindow.h"
#include "editor/windows/RuleListView.h"

namespace Quorvane::Editor {

/// The controls of `frmRuleEditor`, named as they are known.
class RuleEditorParts {
  public:
    enum ChildId : UINT {
        PicInputId = 100,
        PicOutputId,
        LvwRuleId,
        TxtWeightId,
        CmdAddId,
        CmdDeleteId,
        CmdCloseId = IDCANCEL,
    };

    /// Makes the controls of a window for an editor, which outlives them; the terms that the user
    /// chooses go to it directly. Throws std::system_error.
    RuleEditorParts(HWND window, RuleEditor& editor, RuleListView::Events events);

    /// Lays the controls out in the window's client area: the panels on the left, the list in the
    /// room that is left.
    void Arrange() const;

    /// The client size that the window opens with: no column of the list is cut off.
    static SIZE UsualSize(const DialogFont& font);
    SIZE NaturalSize() const;

    /// The smallest size of the window in which everything can be used.
    SIZE SmallestSize() const;

    /// Scales the controls to another resolution. The layout is left to the caller.
    void UseDpi(int dpi);

    /// Shows terms, weight, rules and buttons as the editor has them.
    void Reflect() const;

    /// Shows the editor's weight alone.
    void ReflectWeight() const;

    /// Enables the buttons as the editor says. A button that is disabled hands the focus on.
    void ReflectButtons() const;

    /// Marks the button that Enter presses: the one that has the focus, else `cmdAdd`.
    void ShowDefaultButton() const;

    /// Takes the focus to the weight, all of it selected.
    void GoToWeight() const;

    HWND TxtWeight() const noexcept { return txtWeight_.Get(); }
    HWND CmdAdd() const noexcept { return cmdAdd_.Get(); }
    HWND CmdClose() const noexcept { return cmdClose_.Get(); }
    RuleListView& LvwRule() noexcept { return *lvwRule_; }

  private:
    void MakePanel(Side side);
    void MakeList(RuleListView::Events events);
    int SidePanelsWidth() const;
    void ArrangePanels(const RECT& room) const;
    void ArrangeBelow(const RECT& room) const;

    HWND window_;
    RuleEditor& editor_;
    int dpi_;
    DialogFont font_;
    /// The font of the rows. That in which `picRule` measures the columns follows from it.
    DialogFont rowFont_;
    Win::ChildWindow lblAntecedent_;
    std::unique_ptr<PanelWindow> picInput_;
    Win::ChildWindow lblConsequent_;
    std::unique_ptr<PanelWindow> picOutput_;
    Win::ChildWindow lblWeight_;
    Win::ChildWindow txtWeight_;
    Win::ChildWindow cmdAdd_;
    Win::ChildWindow cmdDelete_;
    Win::ChildWindow cmdClose_;
    std::unique_ptr<RuleListView> lvwRule_;
};

} // namespace Quorvane::Editor
