// SPDX-License-Identifier: MIT
// Why a file is no fuzzy system, and where.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace Quorvane::Formats {

/// A place in a text, both counted from 1; 0 where the error is of the whole text or line.
struct Position {
    std::size_t Line = 0;
    /// In characters.
    std::size_t Column = 0;

    bool operator==(const Position&) const = default;
};

/// Its what() is the message alone, in UTF-8.
class FormatError : public std::runtime_error {
  public:
    FormatError(Position where, const std::string& message)
        : std::runtime_error(message), Where(where) {}

    Position Where;
};

} // namespace Quorvane::Formats
