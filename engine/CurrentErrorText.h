// SPDX-License-Identifier: MIT
// What the engine says of a cycle that failed.
#pragma once

#include "shared/Text.h"

namespace Quorvane::RunTime {

/// The message of the engine routine that last started, in the current language; empty before any
/// has.
Text CurrentErrorText();

} // namespace Quorvane::RunTime
