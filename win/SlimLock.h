// SPDX-License-Identifier: MIT
// A mutex of the system.
#pragma once

#include <windows.h>

namespace Quorvane::Win {

/// For std::lock_guard. It needs no memory and cannot fail; std::mutex takes some when it is locked
/// for the first time.
class SlimLock {
  public:
    void lock() noexcept { ::AcquireSRWLockExclusive(&lock_); }
    void unlock() noexcept { ::ReleaseSRWLockExclusive(&lock_); }

  private:
    SRWLOCK lock_ = SRWLOCK_INIT;
};

} // namespace Quorvane::Win
