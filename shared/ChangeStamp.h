// SPDX-License-Identifier: MIT
// Tells whoever keeps copies or addresses that it is time to look again.
#pragma once

#include <cstdint>

namespace Quorvane {

/// A number that is never the same again once any dictionary of the process has gained or lost an
/// entry, given one another key, or ended, or any StampedNumber has been set. Whoever keeps the
/// address of an entry's value, or copies of such numbers, may use them as long as the stamp stays:
/// looking again costs one comparison.
class ChangeStamp {
  public:
    static std::uint64_t Current() noexcept { return current_; }
    static void Advance() noexcept { ++current_; }

  private:
    // NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): one count per process
    static inline std::uint64_t current_ = 1;
};

/// A number of which others keep copies: setting it advances the stamp.
class StampedNumber {
  public:
    constexpr StampedNumber() = default;
    constexpr StampedNumber(double value) : value_(value) {}
    constexpr StampedNumber(const StampedNumber&) = default;
    StampedNumber& operator=(const StampedNumber& other) noexcept {
        ChangeStamp::Advance();
        value_ = other.value_;
        return *this;
    }
    ~StampedNumber() = default;

    constexpr operator double() const { return value_; }

  private:
    double value_ = 0;
};

} // namespace Quorvane
