// SPDX-License-Identifier: MIT
// The numbered error that travels from the core to a host.
#pragma once

#include <cstdint>
#include <exception>
#include <utility>

#include "shared/Text.h"

namespace Quorvane {

/// The number from which the system's own errors count: an error's number is this base plus the
/// id of its message in the text table.
inline constexpr std::uint32_t ObjectErrorBase = 0x80040000;

/// The platform's run-time errors that the core raises, in the form in which hosts receive them.
enum class RuntimeError : std::uint32_t {
    InvalidCall = 0x800A0005,
    Overflow = 0x800A0006,
    SubscriptOutOfRange = 0x800A0009,
    TypeMismatch = 0x800A000D,
    ObjectNotSet = 0x800A005B,
    DuplicateKey = 0x800A01C9,
    MissingKey = 0x800A802B,
};

/// An error with the number, source and description that a host sees. A platform error carries
/// neither source nor description: the host words it.
class FisError : public std::exception {
  public:
    FisError(std::uint32_t number, Text source, Text description)
        : Number(number), Source(std::move(source)), Description(std::move(description)) {}

    explicit FisError(RuntimeError error) : Number(static_cast<std::uint32_t>(error)) {}

    const char* what() const noexcept override { return "Quorvane error"; }

    std::uint32_t Number;
    Text Source;
    Text Description;
};

} // namespace Quorvane
