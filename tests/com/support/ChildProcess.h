// SPDX-License-Identifier: MIT
// Programs that a test starts.
#pragma once

#include <windows.h>

#include <string>

#include "shared/Text.h"

namespace Quorvane {

/// What a program did.
struct ChildResult {
    DWORD ExitCode = 0;
    /// What it wrote to its standard output and errors, lines ended by "\n".
    std::string Output;
};

/// Runs a program to its end. One that cannot be started, or takes longer than so many
/// milliseconds, fails the test; the latter is ended.
ChildResult RunChild(const Text& commandLine, DWORD longest = 30000);

} // namespace Quorvane
