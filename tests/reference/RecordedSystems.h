// SPDX-License-Identifier: MIT
// The systems and cycles of the recorded data, computed by the plain evaluator.
#pragma once

#include <vector>

#include "tests/support/CycleFile.h"

namespace Quorvane::Reference {

/// Runs the plain evaluator on named systems and on random ones, with inputs at points, at bounds,
/// next to them, outside and not finite. Uses the state of the process and resets it.
std::vector<TestSupport::RecordedSystem> RecordSystems();

} // namespace Quorvane::Reference
