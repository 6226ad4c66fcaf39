// SPDX-License-Identifier: MIT
// Random choices that are the same in every run and on every platform.
#pragma once

#include <cstddef>
#include <cstdint>

namespace Quorvane::Check {

/// The sequence of SplitMix64 from a fixed seed.
class Draw {
  public:
    /// A number from 0 to limit - 1; 0 for a limit of 0.
    std::size_t Below(std::size_t limit) {
        return limit == 0 ? 0 : static_cast<std::size_t>((Bits() >> 32) % limit);
    }

    /// A number from 0 to below 1.
    double Share() {
        constexpr double Unit = 0x1p-53;
        return static_cast<double>(Bits() >> 11) * Unit;
    }

  private:
    std::uint64_t Bits() {
        state_ += 0x9E3779B97F4A7C15;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
        return mixed ^ (mixed >> 31);
    }

    std::uint64_t state_ = 1;
};

} // namespace Quorvane::Check
