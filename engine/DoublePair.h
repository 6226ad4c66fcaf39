// SPDX-License-Identifier: MIT
// Two numbers that are computed with at a time.
#pragma once

namespace Quorvane::RunTime {

/// Each operation is done on both numbers, as on a double.
using DoublePair [[gnu::vector_size(16)]] = double;

} // namespace Quorvane::RunTime
