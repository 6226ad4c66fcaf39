// SPDX-License-Identifier: MIT
// Two numbers that are computed with at a time.
#pragma once

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace Quorvane::RunTime {

/// Each operation is done on both numbers, as on a double.
using DoublePair [[gnu::vector_size(16)]] = double;

/// The lesser of each, as left < right ? left : right: the right one where either is not a number.
inline DoublePair Lesser(DoublePair left, DoublePair right) {
#ifdef __SSE2__
    // One instruction, which not every compiler finds.
    return _mm_min_pd(left, right);
#else
    return left < right ? left : right;
#endif
}

/// The greater of each, as left > right ? left : right.
inline DoublePair Greater(DoublePair left, DoublePair right) {
#ifdef __SSE2__
    return _mm_max_pd(left, right);
#else
    return left > right ? left : right;
#endif
}

} // namespace Quorvane::RunTime
