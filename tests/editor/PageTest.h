// SPDX-License-Identifier: MIT
// The property page with recorded trees and a recorded control.
#pragma once

#include "editor/page/FisPage.h"
#include "tests/editor/EditorTest.h"

namespace Quorvane::Editor {

/// Records what a tree is asked to do, each as a word and the node's key, and keeps its selection.
class TreeRecorder final : public TreeControl {
  public:
    void Show(TreeNode& root) override {
        Root = &root;
        Note(u"Show", root);
        Selection = &root;
    }
    void Insert(TreeNode& node) override { Note(u"Insert", node); }
    void Remove(TreeNode& node) override { Note(u"Remove", node); }
    void UpdateCaption(TreeNode& node) override { Note(u"UpdateCaption", node); }
    void Select(const TreeNode& node) override {
        Note(u"Select", node);
        Selection = &node;
    }
    void EditLabel(TreeNode& node) override { Note(u"EditLabel", node); }

    TreeNode* Root = nullptr;
    const TreeNode* Selection = nullptr;

    /// What was asked since the last call.
    std::vector<Text> Take() { return std::exchange(requests_, {}); }

  private:
    void Note(TextView request, const TreeNode& node) {
        requests_.push_back(Text(request) + u' ' + node.Key);
    }

    std::vector<Text> requests_;
};

/// Records the properties that are assigned.
class ControlRecorder final : public SelectedControl {
  public:
    using Assignments = std::vector<std::pair<Text, Text>>;

    void Put(TextView property, const Text& value) override {
        if (property == Refused) {
            throw FisError(RuntimeError::InvalidCall);
        }
        Assigned.emplace_back(property, value);
        if (OnPut) {
            OnPut();
        }
    }

    Assignments Assigned;
    /// The property that the control does not take.
    Text Refused;
    std::function<void()> OnPut;
};

/// The node with a key in the subtree below a node, the node itself included, or null.
TreeNode* FindNode(TreeNode& from, TextView key);

/// The keys of the nodes below a node, in the order of the tree.
std::vector<Text> KeysBelow(const TreeNode& node);

/// The state of `cmdAdd`, `cmdModify` and `cmdDelete`: caption, and "*" behind it when enabled.
std::vector<Text> ButtonTexts(const FisPage& page);

/// A page on a system of two inputs, two outputs and two rules.
class PageTest : public EditorTest {
  protected:
    static constexpr TextView Inputs = u"A/1/-1/MF_1,-1,-0.6,-0.2,0.2;MF_2,-0.2,0.2,0.6,1"
                                       u"|B/10/0/LO,0,0,2,5;HI,4,6,9,9";
    static constexpr TextView Outputs = u"C/1/-1/MF_1,-0.5;MF_2,0.5|D/100/0/P,50;Q,75";
    static constexpr TextView Rules = u"A>MF_1;B>LO/C<MF_1;D<P:1|A>MF_2;B>HI/C<MF_2;D<Q:0.5";

    /// Gives the page a control with the plain texts.
    void Load(TextView inputs = Inputs, TextView outputs = Outputs, TextView rules = Rules,
              bool readOnly = false);

    TreeRecorder& Tree(Side side) { return side == Side::Input ? InputTree : OutputTree; }
    TreeNode& Node(Side side, TextView key);

    /// The user selects a node.
    TreeNode& Click(Side side, TextView key);

    /// The user gives a node a new label, without a click before. Returns whether it was accepted.
    bool Edit(Side side, TextView key, TextView label);

    TreeRecorder InputTree;
    TreeRecorder OutputTree;
    FisPage Page{Prompts, InputTree, OutputTree};
};

} // namespace Quorvane::Editor
