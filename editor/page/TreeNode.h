// SPDX-License-Identifier: MIT
// The nodes of the variable trees, as plain values.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "shared/Text.h"

namespace Quorvane::Editor {

/// What a node stands for: the root of a tree (tag "[Input]" or "[Output]"), a variable ("Name"),
/// one of its bounds, a term ("MF") or a point of a term.
enum class NodeTag { Root, Name, UBound, LBound, MF, Point };

/// A node and the nodes below it. A node stays where it is in memory until it is removed.
struct TreeNode {
    NodeTag Tag;
    /// The names on the way from the variable to this node, joined by "\". A root's key is its
    /// tag. Two nodes may share a key: equal bounds of an output variable do.
    Text Key;
    Text Caption;
    /// The key of the node's picture in the image list.
    TextView Image;
    bool Bold = false;
    /// Whether the node shows its children when it is new.
    bool Expanded = false;
    /// 0x00BBGGRR; the tree's own colour where there is none.
    std::optional<std::uint32_t> Color{};
    /// Not owned; null for a root.
    TreeNode* Parent = nullptr;
    std::vector<std::unique_ptr<TreeNode>> Children{};
};

/// Adds a node as the last one below a parent.
TreeNode& AddNode(TreeNode& parent, TreeNode node);

/// The last part of a node's key: the name of a variable or term, the "Point:1" of a point.
TextView LastPart(const TreeNode& node);

/// The variable's node above a node, or the node itself. The node is not a root.
TreeNode& VariableNodeOf(TreeNode& node);

/// Gives a node another key and rewrites the keys of all nodes below it, which begin with it.
void RekeyChildren(TreeNode& node, Text newKey);

/// The node that is to be selected when a node goes: the next one of its kind below the same
/// parent, or else the one before it, or else the parent. The node is not a root.
TreeNode& NeighbourOf(TreeNode& node);

/// Removes a node with all below it. The node is not a root.
void RemoveNode(TreeNode& node);

} // namespace Quorvane::Editor
