// SPDX-License-Identifier: MIT
// A flag that is set for a while.
#pragma once

#include <utility>

namespace Quorvane::Win {

/// Sets a flag for as long as it lives, then gives it its former value back. The flag outlives it.
class Raised {
  public:
    explicit Raised(bool& flag) noexcept : flag_(flag), former_(std::exchange(flag, true)) {}
    ~Raised() { flag_ = former_; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

  private:
    bool& flag_;
    bool former_;
};

} // namespace Quorvane::Win
