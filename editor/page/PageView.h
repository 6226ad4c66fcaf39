// SPDX-License-Identifier: MIT
// The windows of the property page over its logic.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "editor/Controls.h"
#include "editor/MessagePrompt.h"
#include "editor/page/FisPage.h"
#include "editor/page/GraphWindow.h"
#include "editor/page/TreeView.h"
#include "win/ActivationContext.h"
#include "win/Window.h"

namespace Quorvane::Editor {

/// The property page as its frame sees it. It can be loaded and applied with or without windows.
class PageView final : private Win::Window {
  public:
    static constexpr const wchar_t* ClassName = L"QuorvaneFisIO";

    /// `changed` is called when there are edits that were not applied; `keepAlive` gives something
    /// that keeps the page alive while it exists, for the time that the rule editor is open.
    PageView(std::function<void()> changed, std::function<std::shared_ptr<void>()> keepAlive);
    ~PageView() override;

    /// See FisPage::SelectionChanged.
    void Load(bool readOnly);

    /// Ends an edit of a label, then see FisPage::ApplyChanges.
    bool Apply(SelectedControl& control);

    bool Changed() const { return page_.Changed(); }

    /// The size that the page is laid out for, in pixels of the main screen.
    static SIZE NaturalSize();

    /// Makes the windows as children of the frame. Throws std::system_error.
    void Create(HWND frame, const RECT& position);
    void Destroy() noexcept;
    bool HasWindow() const noexcept { return Get() != nullptr; }
    void Move(const RECT& position) noexcept;
    void Show(UINT command) noexcept;

    /// Handles a key that belongs to the page: whether it did.
    bool TranslateKey(MSG& message);

  protected:
    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

  private:
    /// The events of one tree, with its side.
    class SideEvents final : public TreeEvents {
      public:
        SideEvents(PageView& view, Side side) noexcept : view_(view), side_(side) {}
        void OnNodeClick(TreeNode& node) override;
        bool OnBeforeLabelEdit(TreeNode& node) override;
        bool OnAfterLabelEdit(TreeNode& node, TextView label) override;

      private:
        PageView& view_;
        Side side_;
    };

    /// What exists while there is a window.
    struct Controls {
        explicit Controls(int dpi) : Font(dpi) {}

        DialogFont Font;
        Win::Handle<Win::ImageListKind> imgIO;
        std::unique_ptr<GraphWindow> picMF;
        Win::ChildWindow cmdAdd;
        Win::ChildWindow cmdModify;
        Win::ChildWindow cmdDelete;
        Win::ChildWindow cmdRule;
    };

    void MakeControls();
    void Arrange();
    void OnCommand(UINT id);
    void OpenRuleEditor();

    /// Shows buttons and graph as the logic has them, and reports pending edits.
    void Reflect();

    TreeView* EditedTree();
    bool TranslateTreeKey(const MSG& message);

    std::function<void()> changed_;
    std::function<std::shared_ptr<void>()> keepAlive_;
    Win::ActivationContext visualStyles_;
    MessagePrompt prompt_;
    SideEvents inputEvents_{*this, Side::Input};
    SideEvents outputEvents_{*this, Side::Output};
    TreeView treInput_{inputEvents_};
    TreeView treOutput_{outputEvents_};
    FisPage page_{prompt_, treInput_, treOutput_};
    std::optional<Controls> controls_;
};

} // namespace Quorvane::Editor
