// SPDX-License-Identifier: MIT
// What an edited label of a tree does to the model.
#pragma once

#include "editor/checks/Prompt.h"
#include "editor/checks/Side.h"
#include "editor/page/TreeNode.h"

namespace Quorvane::Editor {

/// Checks the new label of a node and carries it into the model, the rule base and the node's key
/// and caption: an edit is applied whole or not at all. A refusal shows its message, once, and
/// returns false. The node is not a root. Raises MissingKey or ObjectNotSet where the model has
/// been replaced behind the tree.
bool ApplyLabelEdit(Side side, TreeNode& node, TextView label, Prompt& prompt);

} // namespace Quorvane::Editor
