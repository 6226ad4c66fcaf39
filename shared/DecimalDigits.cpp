// SPDX-License-Identifier: MIT
// The significant digits of everyday numbers, by exact integer arithmetic.
#include "shared/DecimalDigits.h"

#include <array>
#include <bit>

namespace Quorvane {
namespace {

constexpr int FractionBits = 52;
constexpr int ExponentBias = 1023;
constexpr std::uint64_t HiddenBit = std::uint64_t{1} << FractionBits;

/// The exponent of the last of 15 digits, where that of the first is 0.
constexpr int LastDigit = 14;

constexpr std::array<std::uint64_t, 19> PowersOfTen = [] {
    std::array<std::uint64_t, 19> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i) {
        powers[i] = 10 * powers[i - 1];
    }
    return powers;
}();

/// The least Doubles that are not below the powers of ten from 10^-3 on.
constexpr std::array<double, 18> Decades = {1e-3, 1e-2, 1e-1, 1e0, 1e1,  1e2,  1e3,  1e4,  1e5,
                                            1e6,  1e7,  1e8,  1e9, 1e10, 1e11, 1e12, 1e13, 1e14};
constexpr int FirstDecade = -3;

/// An unsigned number of 128 bits.
struct Wide {
    std::uint64_t High;
    std::uint64_t Low;
};

Wide Multiply(std::uint64_t left, std::uint64_t right) noexcept {
    constexpr std::uint64_t Half = 0xFFFFFFFF;
    const std::uint64_t low = (left & Half) * (right & Half);
    const std::uint64_t middle = (left >> 32U) * (right & Half) + (low >> 32U);
    const std::uint64_t other = (left & Half) * (right >> 32U) + (middle & Half);
    return {(left >> 32U) * (right >> 32U) + (middle >> 32U) + (other >> 32U),
            other << 32U | (low & Half)};
}

/// The product divided by 2^shift, a shift of 1 to 63, and rounded; it fits into 64 bits.
std::uint64_t RoundedShift(const Wide& product, unsigned shift) noexcept {
    const std::uint64_t quotient = product.High << (64 - shift) | product.Low >> shift;
    const std::uint64_t rest = product.Low << (64 - shift);
    constexpr std::uint64_t Tie = std::uint64_t{1} << 63U;
    const bool isUp = rest > Tie || (rest == Tie && (quotient & 1U) != 0);
    return quotient + (isUp ? 1 : 0);
}

/// The decimal exponent of an everyday number whose binary one is known.
int DecimalExponent(double everyday, int binary) noexcept {
    // 1233 / 4096 is the logarithm of 2: what the binary exponent leaves open is one decade.
    const int lower = (binary * 1233) >> 12U;
    return lower + (everyday >= Decades[static_cast<std::size_t>(lower + 1 - FirstDecade)] ? 1 : 0);
}

} // namespace

DecimalDigits DigitsOf(double everyday) noexcept {
    const auto bits = std::bit_cast<std::uint64_t>(everyday);
    const std::uint64_t significand = (bits & (HiddenBit - 1)) | HiddenBit;
    const int binary = static_cast<int>(bits >> FractionBits) - ExponentBias;
    const int exponent = DecimalExponent(everyday, binary);
    const Wide product =
        Multiply(significand, PowersOfTen[static_cast<std::size_t>(LastDigit - exponent)]);
    const std::uint64_t digits =
        RoundedShift(product, static_cast<unsigned>(FractionBits - binary));
    // Nines that were rounded up have become a one in the next place.
    return digits == PowersOfTen[LastDigit + 1] ? DecimalDigits{digits / 10, exponent + 1}
                                                : DecimalDigits{digits, exponent};
}

} // namespace Quorvane
