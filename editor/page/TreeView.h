// SPDX-License-Identifier: MIT
// A tree view over the page's nodes: `treInput` or `treOutput`.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <optional>
#include <unordered_map>

#include "editor/Controls.h"
#include "editor/page/TreeControl.h"

namespace Quorvane::Editor {

/// The icons of the trees as an image list in the order of TreeIconKeys.
Win::Handle<Win::ImageListKind> MakeTreeImages(int side);

/// What the user does in a tree.
class TreeEvents {
  public:
    virtual void OnNodeClick(TreeNode& node) = 0;
    virtual bool OnBeforeLabelEdit(TreeNode& node) = 0;
    virtual bool OnAfterLabelEdit(TreeNode& node, TextView label) = 0;

  protected:
    ~TreeEvents() = default;
};

/// Nodes can be shown before there is a window; it shows them when it is made.
class TreeView final : public TreeControl {
  public:
    explicit TreeView(TreeEvents& events) noexcept : events_(events) {}

    /// Makes the window. The images outlive it. Throws std::system_error.
    void Create(HWND parent, UINT id, const DialogFont& font, HIMAGELIST images);
    void Destroy() noexcept;

    HWND Window() const noexcept { return window_.Get(); }

    /// Ends an edit of a label as if the user had pressed Enter; whether there was one.
    bool EndEdit();
    void CancelEdit();
    bool IsEditing() const noexcept;

    /// Handles a notification of the tree view.
    LRESULT OnNotify(NMHDR& header);

    // TreeControl
    void Show(TreeNode& root) override;
    void Insert(TreeNode& node) override;
    void Remove(TreeNode& node) override;
    void UpdateCaption(TreeNode& node) override;
    void Select(TreeNode& node) override;
    void EditLabel(TreeNode& node) override;

  private:
    void InsertItem(TreeNode& node, HTREEITEM parent);
    HTREEITEM ItemOf(const TreeNode& node) const;
    TreeNode* NodeOf(HTREEITEM item) const;
    TreeNode* ClickedNode() const;
    bool IsOutdatedEdit(const TreeNode& node);
    LRESULT CustomDraw(NMTVCUSTOMDRAW& draw) const;

    TreeEvents& events_;
    Win::ChildWindow window_;
    TreeNode* root_ = nullptr;
    std::unordered_map<const TreeNode*, HTREEITEM> items_;
    /// Whether what the tree reports now comes from the page and not from the user.
    bool isShowing_ = false;
    bool isCancelling_ = false;
    bool isEditAsked_ = false;
    /// The selected node that was clicked again: after a while, the tree edits whatever is selected
    /// then. A null pointer inside: the user has done something else meanwhile.
    std::optional<const TreeNode*> clickedAgain_;
};

} // namespace Quorvane::Editor
