// SPDX-License-Identifier: MIT
// The windows of the property page over its logic.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <optional>

#include "editor/page/FisPage.h"
#include "editor/page/PageLayout.h"
#include "editor/windows/Controls.h"
#include "editor/windows/GraphWindow.h"
#include "editor/windows/MessagePrompt.h"
#include "editor/windows/TreeView.h"
#include "win/ActivationContext.h"
#include "win/Subclass.h"
#include "win/Window.h"

namespace Quorvane::Editor {

/// The property page as its frame sees it. It can be loaded and applied with or without windows.
class PageView final : private Win::Window {
  public:
    static constexpr const wchar_t* ClassName = L"QuorvaneFisIO";

    /// `changed` is called when there are edits that were not applied; `keepAlive` gives something
    /// that keeps the page alive while it exists, for the time that the page handles what the user
    /// does: a message box or the rule editor lets the frame release the page meanwhile.
    PageView(std::function<void()> changed, std::function<std::shared_ptr<void>()> keepAlive);
    ~PageView() override;

    /// See FisPage::SelectionChanged.
    void Load(bool readOnly);

    /// Ends an edit of a label, then see FisPage::ApplyChanges. Where the edit is refused, its
    /// message has been shown, nothing is applied, and false is returned.
    bool Apply(SelectedControl& control);

    /// Called inside a catch block: shows the current exception to the user.
    void ShowFailure() noexcept;

    bool Changed() const { return page_.Changed(); }

    /// The size that the page is laid out for, in pixels of the screen that it is on, or that the
    /// host's active window is on, over which frames open.
    SIZE NaturalSize() const;

    /// Makes the windows as children of the frame. Throws std::system_error.
    void Create(HWND frame, const RECT& position);

    /// Destroys the windows if there are any; an open edit of a label is dropped.
    void Destroy() noexcept;

    /// Moves the page in its frame, in pixels.
    void Move(const RECT& position) noexcept;

    /// Shows the page with the focus in its first tree, or hides it, with a command of ShowWindow.
    void Show(UINT command) noexcept;

    /// Opens the help file of the control; false where there is none.
    bool ShowHelp() const noexcept;

    /// Handles a key that belongs to the page: whether it did.
    bool TranslateKey(MSG& message);

  protected:
    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

  private:
    enum ChildId : WORD {
        TreInputId = 100,
        TreOutputId,
        CmdAddId,
        CmdModifyId,
        CmdDeleteId,
        CmdRuleId,
        PicMFId
    };

    /// The code with which the window system marks the command of an accelerator.
    static constexpr WORD FromAccelerator = 1;

    /// The events of one tree, with its side.
    class SideEvents final : public TreeEvents {
      public:
        SideEvents(PageView& view, Side side) noexcept : view_(view), side_(side) {}
        void OnNodeClick(TreeNode& node) override;
        void OnFocus() override;
        void OnMoveKey() override;
        bool OnBeforeLabelEdit(TreeNode& node) override;
        bool OnAfterLabelEdit(TreeNode& node, TextView label) override;
        Text OnTip(TreeNode& node) override;

      private:
        PageView& view_;
        Side side_;
    };

    /// What exists while there is a window.
    struct Controls {
        explicit Controls(int dpi);

        DialogFont Font;
        Win::Handle<Win::ImageListKind> imgIO;
        std::unique_ptr<GraphWindow> picMF;
        Win::ChildWindow cmdAdd;
        Win::ChildWindow cmdModify;
        Win::ChildWindow cmdDelete;
        Win::ChildWindow cmdRule;
    };

    static RECT InFrame(HWND frame, const RECT& position) noexcept;
    void FitIntoFrame() noexcept;
    void FollowFrame(HWND frame);
    static Win::Handle<Win::AcceleratorKind> MakeAccelerators();

    TreeView& tree(Side side) { return side == Side::Input ? treInput_ : treOutput_; }

    void MakeControls();
    void ShowNodes();
    void UseDpi();
    std::array<HWND, PageLayout::ButtonCount> Buttons() const;
    void Arrange();
    LRESULT OnNotify(NMHDR& header);
    void OnCommand(UINT id);
    void OpenRuleEditor();

    /// Does what the user has asked of the logic, then reflects it. Errors are shown.
    template <class Action>
    void Act(Action&& action) noexcept;

    /// Shows buttons and graph as the logic has them, and reports pending edits.
    void Reflect();

    TreeView* EditedTree();
    bool EndEdits();
    void TranslateEditKey(TreeView& edited, const MSG& message);
    bool TranslateEnter(const MSG& message);
    bool LeavesPage(const MSG& tab) const;

    std::function<void()> changed_;
    std::function<std::shared_ptr<void>()> keepAlive_;
    Win::ActivationContext visualStyles_;
    Win::Handle<Win::AcceleratorKind> accelerators_;
    MessagePrompt prompt_;
    SideEvents inputEvents_{*this, Side::Input};
    SideEvents outputEvents_{*this, Side::Output};
    TreeView treInput_{inputEvents_};
    TreeView treOutput_{outputEvents_};
    FisPage page_{prompt_, treInput_, treOutput_};
    std::optional<Controls> controls_;
    /// The place that the frame has given the page, which may be more than the frame has.
    RECT given_{};
    std::optional<Win::Subclass> frame_;
};

} // namespace Quorvane::Editor
