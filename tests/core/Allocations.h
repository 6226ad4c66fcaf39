// SPDX-License-Identifier: MIT
// Counts what the test program allocates, and lets it run out of memory.
#pragma once

#include <cstddef>

namespace Quorvane::Allocations {

/// How many blocks operator new has been asked for since the program began.
std::size_t Made() noexcept;

/// How many blocks of operator new are in use.
std::size_t InUse() noexcept;

/// Lets so many more blocks be had and the next one fail, once, while it lives. One at a time.
class FailingOne {
  public:
    explicit FailingOne(std::size_t before) noexcept;
    ~FailingOne();
    FailingOne(const FailingOne&) = delete;
    FailingOne& operator=(const FailingOne&) = delete;
};

} // namespace Quorvane::Allocations
