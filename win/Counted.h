// SPDX-License-Identifier: MIT
// How many of the platform's objects the owners of this folder hold.
#pragma once

#include <windows.h>

#include <atomic>

namespace Quorvane::Win {

/// Counts the objects of one kind that are owned at the moment. The platform's own counters tell
/// nothing of who owns what, so leaks are looked for here.
template <class Kind>
class LiveCount {
  public:
    static void Add(LONG difference) noexcept { count_ += difference; }
    static LONG Get() noexcept { return count_; }

  private:
    // NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): one count per process
    static inline std::atomic<LONG> count_ = 0;
};

} // namespace Quorvane::Win
