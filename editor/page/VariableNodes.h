// SPDX-License-Identifier: MIT
// From the variables of one side to the nodes of its tree.
#pragma once

#include "editor/checks/Side.h"
#include "editor/page/TreeNode.h"

namespace Quorvane::Editor {

/// The root of a side's tree with the subtrees of all its variables, in the order of the model; the
/// root alone without a model.
std::unique_ptr<TreeNode> MakeTree(Side side);

/// Adds the subtree of a variable below the root: the upper bound, the lower bound, the terms.
TreeNode& AddVariableNode(TreeNode& root, Side side, const LinguisticVariable& variable);

/// Adds a term and its points below the variable's node.
TreeNode& AddTermNode(TreeNode& variableNode, Side side, const LinguisticTerm& term);

} // namespace Quorvane::Editor
