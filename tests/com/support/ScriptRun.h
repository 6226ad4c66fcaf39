// SPDX-License-Identifier: MIT
// Scripts on a placed control, run by the host's script engine as a form's code-behind is.
#pragma once

#include <string>
#include <vector>

#include "tests/com/support/ControlTest.h"

namespace Quorvane {

/// What a script did.
struct ScriptRun {
    /// What it printed, the mark of its end left out.
    std::vector<std::string> Lines;
    /// Its errors, as the host words them.
    std::vector<std::string> Errors;
    /// Whether its very last line was reached.
    bool ReachedEnd = false;
};

/// Runs a script that knows the control as FIS and the host as Host, whose folder is `folder`. Its
/// procedure FIS_InferComplate is called at each event. `engine` is "VBScript" or "JScript".
ScriptRun RunScript(const Placed& placed, const std::string& engine, const std::string& code,
                    TextView folder = {});

/// Runs a script that must reach its end and print these lines.
void ExpectLines(const Placed& placed, const std::string& engine, const std::string& code,
                 const std::vector<std::string>& lines, TextView folder = {});

} // namespace Quorvane
