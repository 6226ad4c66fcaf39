// SPDX-License-Identifier: MIT
// The significant digits of everyday numbers, by exact integer arithmetic.
#pragma once

#include <cstdint>

namespace Quorvane {

/// A number of 15 significant digits: Digits x 10^(Exponent - 14).
struct DecimalDigits {
    /// 10^14 and more, below 10^15.
    std::uint64_t Digits;
    std::int32_t Exponent;
};

/// Whether DigitsOf takes a number. These are those whose product with the power of ten that makes
/// 15 digits of them is exact in 128 bits, and that are written without an exponent.
inline bool IsEveryday(double magnitude) {
    return magnitude >= 1e-3 && magnitude < 1e14;
}

/// The number rounded to 15 significant digits, a tie to the even digit, as the general conversion
/// of the standard library rounds. That one takes any number, but on a processor of 32 bits almost
/// three times as long.
DecimalDigits DigitsOf(double everyday) noexcept;

} // namespace Quorvane
