// SPDX-License-Identifier: MIT
// `frmRuleEditor`: the window in which rules are designed.
#pragma once

#include <windows.h>

namespace Quorvane::Editor {

/// Shows the rule editor over the model of the process, modally over a window, until the user
/// closes it or the owner is destroyed. Gives the changed flag back: true where it was or where a
/// rule has been added, changed or deleted. Raises ObjectNotSet without a model.
bool ShowRuleEditor(HWND owner, bool changed);

} // namespace Quorvane::Editor
