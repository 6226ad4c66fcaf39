// SPDX-License-Identifier: MIT
// The property page as plain values: its trees, buttons, graph and changed flag.
#pragma once

#include "editor/checks/Prompt.h"
#include "editor/checks/Side.h"
#include "editor/page/GraphSurface.h"
#include "editor/page/TreeControl.h"

namespace Quorvane::Editor {

/// The control whose definition the page edits.
class SelectedControl {
  public:
    virtual ~SelectedControl() = default;

    /// Assigns a property by its name. Raises the control's error where it refuses.
    virtual void Put(TextView property, const Text& value) = 0;
};

struct PageButton {
    Text Caption;
    bool Enabled = false;
};

/// `cmdAdd`, `cmdModify`, `cmdDelete` and `cmdRule`.
struct PageButtons {
    PageButton Add;
    PageButton Modify;
    PageButton Delete;
    PageButton Rule;
};

/// All that the page decides. Its window forwards events, has the trees do what they are asked, and
/// after each call shows Buttons, reports Changed to the frame and has the graph drawn anew.
///
/// The page keeps no copy of the fuzzy system: it edits the model of the process in place.
class FisPage {
  public:
    /// The page before it has a control: captions, nothing enabled, empty trees. All three
    /// references outlive the page.
    FisPage(Prompt& prompt, TreeControl& treInput, TreeControl& treOutput);

    /// The frame has given the page its control. Parses the definition texts anew, which drops all
    /// edits that were not applied, and fills both trees; the user must click a node to act. A
    /// read-only page shows the model of a running control as it is. Errors of the parser go to the
    /// caller; the page then shows what there is and is read-only.
    void SelectionChanged(bool readOnly);

    /// Builds the definition texts and assigns them to the control. An empty rule base is refused
    /// with a message, and a read-only page applies nothing: false is returned, nothing is written
    /// and the edits stay pending. Errors of the control go to the caller and leave them pending,
    /// too.
    bool ApplyChanges(SelectedControl& control);

    /// The user has selected a node, or clicked the selected one.
    void NodeClick(Side side, TreeNode& node);

    /// The user works in a tree by keyboard: its selected node counts as clicked, unless it is the
    /// current tree's already.
    void EnterTree(Side side);

    /// Whether no node has been clicked since the trees were filled.
    bool WaitsForClick() const { return waitsForClick_; }

    /// The user or the tree begins to edit a label. Returns whether it may be edited.
    bool BeforeLabelEdit(Side side, const TreeNode& node);

    /// The user has ended the edit of a label in any way but Esc. Returns whether the edit was
    /// accepted; the node has its new caption then, and the tree has been asked to show it.
    /// A second report of the same edit does nothing.
    bool AfterLabelEdit(Side side, TreeNode& node, TextView label);

    /// What a node tells when the mouse rests on it: the numbers that it may be given, "0 ... 80",
    /// or "80 ..." and "... 0" where there is one limit. Empty for all other nodes, and where
    /// nothing can be edited. Raises as AllowedRange does.
    Text TipOf(Side side, TreeNode& node) const;

    /// The buttons have been pressed, or their keys. A disabled one does nothing. `cmdAdd` raises
    /// Overflow for a term between bounds that lie too far apart.
    void Add();
    void Modify();
    void Delete();

    const PageButtons& Buttons() const { return buttons_; }
    bool ReadOnly() const { return readOnly_; }

    /// Whether there are edits that were not applied. The rule editor takes it on and hands it
    /// back.
    bool Changed() const { return changed_; }
    void SetChanged(bool changed) { changed_ = changed; }

    /// The root and the selected node of a tree; null before the first SelectionChanged.
    const TreeNode* Root(Side side) const { return tree(side).Root.get(); }
    const TreeNode* Selected(Side side) const { return tree(side).Selected; }

    /// The tree that the buttons act on.
    Side CurrentTree() const { return currentTree_; }

    /// Draws the graph of the variable that was clicked or edited last, or clears the surface where
    /// that was a root or the model has lost the variable.
    void DrawGraph(GraphSurface& surface) const;

  private:
    struct Tree {
        TreeControl& Control;
        std::unique_ptr<TreeNode> Root;
        TreeNode* Selected = nullptr;
    };

    struct Graph {
        Side Of;
        Text Variable;
    };

    Tree& tree(Side side) { return side == Side::Input ? input_ : output_; }
    const Tree& tree(Side side) const { return side == Side::Input ? input_ : output_; }

    void FillTrees();
    void FillTree(Side side);
    void DisableButtons();
    void ShowGraphOf(Side side, TreeNode& node);
    void ShowNewNode(TreeNode& node);
    void AddVariable();
    void AddTerm();
    void RemoveSelected();

    Prompt& prompt_;
    Tree input_;
    Tree output_;
    /// The tree that was clicked last; the buttons act on it.
    Side currentTree_ = Side::Input;
    bool waitsForClick_ = true;
    const TreeNode* edited_ = nullptr;
    std::optional<Graph> graph_;
    PageButtons buttons_;
    bool changed_ = false;
    bool readOnly_ = true;
};

} // namespace Quorvane::Editor
