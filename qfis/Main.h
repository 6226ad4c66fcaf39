// SPDX-License-Identifier: MIT
// The program without its surroundings.
#pragma once

#include <string>
#include <vector>

#include "qfis/Console.h"

namespace Quorvane::Qfis {

/// Runs the command that the arguments, in UTF-8 and without the program's name, ask for. Returns
/// its ExitCode.
int Main(std::vector<std::string> arguments, const Console& console);

} // namespace Quorvane::Qfis
