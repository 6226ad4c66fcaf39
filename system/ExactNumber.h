// SPDX-License-Identifier: MIT
// Numbers as texts that lose nothing.
#pragma once

#include "shared/Text.h"

namespace Quorvane::System {

/// The shortest text that reads back to the same bits of a finite number, with "." and of the form
/// that definition texts have: at most 15 digits where these do, else 17; -0.0 is "-0".
Text ExactNumberText(double value);

} // namespace Quorvane::System
