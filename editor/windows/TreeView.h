// SPDX-License-Identifier: MIT
// A tree view over the page's nodes: `treInput` or `treOutput`.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <optional>
#include <unordered_map>

#include "editor/page/TreeControl.h"
#include "editor/windows/Controls.h"
#include "win/HoverTip.h"

namespace Quorvane::Editor {

/// What the user does in a tree.
class TreeEvents {
  public:
    /// A node has been selected, or the selected one clicked.
    virtual void OnNodeClick(TreeNode& node) = 0;

    /// The tree has the keyboard now.
    virtual void OnFocus() = 0;

    /// A key that moves in the tree has been typed, and is about to do so.
    virtual void OnMoveKey() = 0;

    /// A label is about to be edited: whether it may be.
    virtual bool OnBeforeLabelEdit(TreeNode& node) = 0;

    /// The edit of a label has ended with a text: whether it was accepted. It may be told twice.
    virtual bool OnAfterLabelEdit(TreeNode& node, TextView label) = 0;

    /// The mouse rests on a node: what it tells, empty for nothing.
    virtual Text OnTip(TreeNode& node) = 0;

  protected:
    ~TreeEvents() = default;
};

/// Nodes can be shown before there is a window. Whoever hands it
/// notifications keeps it alive while it handles one.
class TreeView final : public TreeControl {
  public:
    explicit TreeView(TreeEvents& events) noexcept : events_(events) {}

    /// Makes the window, which shows nothing yet. The images outlive it. Throws std::system_error.
    void Create(HWND parent, UINT id, const DialogFont& font, HIMAGELIST images);
    void Destroy() noexcept;

    /// Shows the nodes that it was given before there was a window. The window has its place: one
    /// without a size would scroll to whatever it shows.
    void ShowNodes();

    HWND Window() const noexcept { return window_.Get(); }

    /// Shows other images in place of those it has; they outlive the window.
    void ShowImages(HIMAGELIST images) const noexcept;

    /// Ends an edit of a label as if the user had pressed Enter. False where it was refused, true
    /// where it was accepted or there was none.
    bool EndEdit();

    /// Ends an edit of a label as if the user had pressed Esc.
    void CancelEdit();
    bool IsEditing() const noexcept;

    /// Handles a notification of the tree view.
    LRESULT OnNotify(NMHDR& header);

    // TreeControl
    void Show(TreeNode& root) override;
    void Insert(TreeNode& node) override;
    void Remove(TreeNode& node) override;
    void UpdateCaption(TreeNode& node) override;
    void Select(const TreeNode& node) override;
    void EditLabel(TreeNode& node) override;

  private:
    void InsertItem(TreeNode& node, HTREEITEM parent);
    HTREEITEM ItemOf(const TreeNode& node) const;
    TreeNode* NodeOf(HTREEITEM item) const;
    TreeNode* ClickedNode() const;
    bool IsOutdatedEdit(const TreeNode& node);
    RECT LabelArea(HTREEITEM item) const;
    std::optional<Win::HoverTip::Tip> TipAt(POINT point) const;
    static LRESULT CustomDraw(NMTVCUSTOMDRAW& draw);

    TreeEvents& events_;
    Win::ChildWindow window_;
    std::optional<Win::HoverTip> tip_;
    TreeNode* root_ = nullptr;
    std::unordered_map<const TreeNode*, HTREEITEM> items_;
    /// Whether what the tree reports now comes from the page and not from the user.
    bool isShowing_ = false;
    bool isCancelling_ = false;
    bool isEditAsked_ = false;
    bool isEditAccepted_ = false;
    /// A second click on the selected node has the tree begin an edit after a while, of whatever is
    /// selected then.
    bool awaitsTimedEdit_ = false;
    /// The node of that click; null once something else has happened.
    const TreeNode* clickedAgain_ = nullptr;
};

} // namespace Quorvane::Editor
