// SPDX-License-Identifier: MIT
// What the page's logic asks of a tree view.
#pragma once

#include "editor/page/TreeNode.h"

namespace Quorvane::Editor {

/// A tree view that shows nodes of the page. It may keep a node's address with its item until the
/// node is removed or another root is shown. What it is asked to do is no click of the user: while
/// it does it, it reports nothing back but that the edit of a label begins.
class TreeControl {
  public:
    virtual ~TreeControl() = default;

    /// Shows a root with all below it in place of whatever was shown, and selects it. The nodes
    /// that were shown live until this returns.
    virtual void Show(TreeNode& root) = 0;

    /// Shows a new node, with all below it, as the last one of its parent.
    virtual void Insert(TreeNode& node) = 0;

    /// Takes a node away, with all below it. The node lives until this returns.
    virtual void Remove(TreeNode& node) = 0;

    /// Shows a node's caption anew.
    virtual void UpdateCaption(TreeNode& node) = 0;

    /// Selects a node and scrolls it into view.
    virtual void Select(const TreeNode& node) = 0;

    /// Takes the focus and starts the in-place editing of a node's label.
    virtual void EditLabel(TreeNode& node) = 0;
};

} // namespace Quorvane::Editor
