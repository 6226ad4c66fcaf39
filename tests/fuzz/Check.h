// SPDX-License-Identifier: MIT
// What the fuzzers have in common.
#pragma once

#include <bit>
#include <concepts>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <span>

#include "shared/Definition.h"

namespace Quorvane::Fuzz {

/// Ends the fuzzer, which then keeps the input, unless the condition holds.
inline void Check(bool condition, const char* broken) {
    if (!condition) {
        std::fprintf(stderr, "broken: %s\n", broken);
        std::abort();
    }
}

/// The number of the error that an action raises; none when it returns.
std::optional<std::uint32_t> Raised(const std::invocable auto& action) {
    try {
        action();
    } catch (const FisError& error) {
        return error.Number;
    }
    return std::nullopt;
}

inline bool IsPlatformError(std::uint32_t number, RuntimeError error) {
    return number == static_cast<std::uint32_t>(error);
}

inline bool SameBits(double left, double right) {
    return std::bit_cast<std::uint64_t>(left) == std::bit_cast<std::uint64_t>(right);
}

/// Bytes as a text of characters below 0x100.
inline Text BytesAsText(std::span<const std::uint8_t> bytes) {
    return {bytes.begin(), bytes.end()};
}

} // namespace Quorvane::Fuzz
