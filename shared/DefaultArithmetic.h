// SPDX-License-Identifier: MIT
// Arithmetic that does not depend on what a host has set up for its own.
#pragma once

#include <cstdint>

#if defined(__x86_64__) || defined(__i386__)
#include <xmmintrin.h>
#endif

namespace Quorvane {

/// While it lives, Doubles are rounded to the nearest, tiny ones are kept, and nothing traps: an
/// overflow is infinite, whatever the host's thread has chosen. Hosts of some languages trap by
/// default; others round otherwise. What they have chosen comes back at the end.
///
/// The 32-bit standard library computes on the x87 unit, which then rounds to Doubles as well.
class DefaultArithmetic {
  public:
#if defined(__x86_64__) || defined(__i386__)
    DefaultArithmetic() noexcept : vectorState_(_mm_getcsr()) {
        constexpr unsigned nothingTraps = 0x1F80;
        _mm_setcsr(nothingTraps);
#if defined(__i386__)
        asm volatile("fnstcw %0" : "=m"(x87State_) : : "memory");
        constexpr std::uint16_t nothingTrapsAndDoubles = 0x027F;
        asm volatile("fldcw %0" : : "m"(nothingTrapsAndDoubles) : "memory");
#endif
    }
    ~DefaultArithmetic() {
#if defined(__i386__)
        // What has happened meanwhile must not trap as soon as it may again.
        asm volatile("fnclex\n\tfldcw %0" : : "m"(x87State_) : "memory");
#endif
        _mm_setcsr(vectorState_);
    }
#else
    DefaultArithmetic() noexcept {}
    ~DefaultArithmetic() {}
#endif
    DefaultArithmetic(const DefaultArithmetic&) = delete;
    DefaultArithmetic& operator=(const DefaultArithmetic&) = delete;

#if defined(__x86_64__) || defined(__i386__)
  private:
    unsigned vectorState_;
#if defined(__i386__)
    std::uint16_t x87State_ = 0;
#endif
#endif
};

} // namespace Quorvane
