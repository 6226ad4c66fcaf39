// SPDX-License-Identifier: MIT
// Arithmetic that does not depend on what a host has set up for its own.
#pragma once

#include <cstdint>
#include <utility>

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
    DefaultArithmetic() noexcept
        : outer_(std::exchange(innermost_, this)),
          host_(outer_ ? outer_->host_ : Choice::Current()) {
        Choice().Set();
    }
    ~DefaultArithmetic() {
        innermost_ = outer_;
        if (outer_) {
            outer_->host_ = host_;
        } else {
            host_.Set();
        }
    }
    DefaultArithmetic(const DefaultArithmetic&) = delete;
    DefaultArithmetic& operator=(const DefaultArithmetic&) = delete;

    /// While it lives, the thread computes as the host has chosen: for every call of the host's
    /// code in the middle of work of ours. Another choice that the host makes meanwhile is kept.
    /// Nothing happens where no work of ours is going on.
    class Pause {
      public:
        Pause() noexcept : paused_(std::exchange(innermost_, nullptr)) {
            if (paused_) {
                paused_->host_.Set();
            }
        }
        ~Pause() {
            if (paused_) {
                paused_->host_ = Choice::Current();
                innermost_ = paused_;
                Choice().Set();
            }
        }
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

      private:
        DefaultArithmetic* paused_;
    };

  private:
    /// How the units of a thread compute; at first as this class promises.
    struct Choice {
#if defined(__i386__)
        unsigned Vector = 0x1F80;
        std::uint16_t X87 = 0x027F;

        static Choice Current() noexcept {
            Choice current{_mm_getcsr(), 0};
            asm volatile("fnstcw %0" : "=m"(current.X87) : : "memory");
            return current;
        }
        void Set() const noexcept {
            // What has happened meanwhile must not trap as soon as it may again.
            asm volatile("fnclex\n\tfldcw %0" : : "m"(X87) : "memory");
            _mm_setcsr(Vector);
        }
#elif defined(__x86_64__)
        unsigned Vector = 0x1F80;

        static Choice Current() noexcept {
            return {_mm_getcsr()};
        }
        void Set() const noexcept {
            _mm_setcsr(Vector);
        }
#else
        static Choice Current() noexcept {
            return {};
        }
        void Set() const noexcept {}
#endif
    };

    /// What code of ours is at work on the one thread of the controls; null for none, and while the
    /// host's code runs.
    // NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): one thread, one state
    static inline DefaultArithmetic* innermost_ = nullptr;

    DefaultArithmetic* outer_;
    Choice host_;
};

} // namespace Quorvane
