// SPDX-License-Identifier: MIT
// Operations on the nodes of the variable trees.
#include "editor/page/TreeNode.h"

#include <algorithm>

namespace Quorvane::Editor {
namespace {

auto PlaceOf(TreeNode& node) {
    return std::ranges::find(node.Parent->Children, &node, &std::unique_ptr<TreeNode>::get);
}

} // namespace

TreeNode& AddNode(TreeNode& parent, TreeNode node) {
    node.Parent = &parent;
    return *parent.Children.emplace_back(std::make_unique<TreeNode>(std::move(node)));
}

TextView LastPart(const TreeNode& node) {
    const TextView key = node.Key;
    const bool belowVariable = node.Parent && node.Parent->Tag != NodeTag::Root;
    // The parent's key and the "\" after it; looking for the last "\" would split odd loaded names.
    return belowVariable ? key.substr(node.Parent->Key.size() + 1) : key;
}

TreeNode& VariableNodeOf(TreeNode& node) {
    TreeNode* at = &node;
    while (at->Tag != NodeTag::Name) {
        at = at->Parent;
    }
    return *at;
}

void RekeyChildren(TreeNode& node, Text newKey) {
    for (const auto& child : node.Children) {
        RekeyChildren(*child, newKey + child->Key.substr(node.Key.size()));
    }
    node.Key = std::move(newKey);
}

TreeNode& NeighbourOf(TreeNode& node) {
    const auto place = PlaceOf(node);
    const auto sameKind = [&node](const auto& other) { return other->Tag == node.Tag; };
    auto& nodes = node.Parent->Children;
    if (const auto next = std::next(place); next != nodes.end() && sameKind(*next)) {
        return **next;
    }
    if (place != nodes.begin() && sameKind(*std::prev(place))) {
        return **std::prev(place);
    }
    return *node.Parent;
}

void RemoveNode(TreeNode& node) {
    node.Parent->Children.erase(PlaceOf(node));
}

} // namespace Quorvane::Editor
