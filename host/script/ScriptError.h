// SPDX-License-Identifier: MIT
// ScriptError: what went wrong in a script, and where.
#pragma once

#include <windows.h>

#include <activscp.h>

#include "shared/Text.h"

namespace Quorvane::Host {

/// An error of a script. `Line` and `Column` are counted from 1; 0 means not known.
struct ScriptError {
    Text Source;
    Text Description;
    Text LineText;
    HRESULT Number = S_OK;
    unsigned Line = 0;
    unsigned Column = 0;
};

/// Reads what the engine tells of `error`; `code` is the script's text.
/// Throws std::bad_alloc only.
ScriptError ReadScriptError(IActiveScriptError& error, TextView code);

/// "Form.vbs(12,5): Microsoft VBScript runtime error 13: Type mismatch", and the line below it.
/// A number of the automation range 0x800A.... is given as the script sees it.
Text DescribeScriptError(const ScriptError& error, TextView fileName);

} // namespace Quorvane::Host
