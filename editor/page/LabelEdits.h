// SPDX-License-Identifier: MIT
// What an edited label of a tree does to the model.
#pragma once

#include <optional>

#include "editor/checks/Prompt.h"
#include "editor/checks/Side.h"
#include "editor/page/TreeNode.h"

namespace Quorvane::Editor {

/// Checks the new label of a node and carries it into the model, the rule base and the node's key
/// and caption: an edit is applied whole or not at all. A refusal shows its message, once, and
/// returns false. The node is not a root. Raises MissingKey or ObjectNotSet where the model has
/// been replaced behind the tree.
bool ApplyLabelEdit(Side side, TreeNode& node, TextView label, Prompt& prompt);

/// The numbers that a bound or a point may be given, inclusive; a limit that there is none of is
/// missing.
struct NumberRange {
    std::optional<double> Lower;
    std::optional<double> Upper;
};

/// The range of a node's number; nothing for a node that is no bound and no point. Raises
/// MissingKey or ObjectNotSet where the model has been replaced behind the tree.
std::optional<NumberRange> AllowedRange(Side side, TreeNode& node);

} // namespace Quorvane::Editor
