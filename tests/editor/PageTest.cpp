// SPDX-License-Identifier: MIT
// The property page with recorded trees and a recorded control.
#include "tests/editor/PageTest.h"

namespace Quorvane::Editor {
namespace {

void AppendKeys(const TreeNode& node, std::vector<Text>& keys) {
    for (const auto& child : node.Children) {
        keys.push_back(child->Key);
        AppendKeys(*child, keys);
    }
}

} // namespace

TreeNode* FindNode(TreeNode& from, TextView key) {
    if (from.Key == key) {
        return &from;
    }
    for (const auto& child : from.Children) {
        if (TreeNode* const found = FindNode(*child, key)) {
            return found;
        }
    }
    return nullptr;
}

std::vector<Text> KeysBelow(const TreeNode& node) {
    std::vector<Text> keys;
    AppendKeys(node, keys);
    return keys;
}

std::vector<Text> ButtonTexts(const FisPage& page) {
    std::vector<Text> texts;
    const PageButtons& buttons = page.Buttons();
    for (const PageButton* const button : {&buttons.Add, &buttons.Modify, &buttons.Delete}) {
        texts.push_back(button->Caption + (button->Enabled ? u"*" : u""));
    }
    return texts;
}

void PageTest::Load(TextView inputs, TextView outputs, TextView rules, bool readOnly) {
    StoreTexts(inputs, outputs, rules);
    Page.SelectionChanged(readOnly);
    InputTree.Take();
    OutputTree.Take();
}

TreeNode& PageTest::Node(Side side, TextView key) {
    TreeNode* const node = FindNode(*Tree(side).Root, key);
    if (!node) {
        throw std::runtime_error("no node " + Narrow(key));
    }
    return *node;
}

TreeNode& PageTest::Click(Side side, TextView key) {
    TreeNode& node = Node(side, key);
    Page.NodeClick(side, node);
    return node;
}

bool PageTest::Edit(Side side, TextView key, TextView label) {
    TreeNode& node = Node(side, key);
    return Page.BeforeLabelEdit(side, node) && Page.AfterLabelEdit(side, node, label);
}

} // namespace Quorvane::Editor
