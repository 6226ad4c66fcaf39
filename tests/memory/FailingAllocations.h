// SPDX-License-Identifier: MIT
// Lets a module run out of memory.
#pragma once

#include <windows.h>

#include <cstddef>
#include <vector>

namespace Quorvane {

/// Which allocations fail, counted from 1 once they are armed.
struct Shortage {
    std::size_t First;
    /// Whether all after the first one fail, too.
    bool AndAllAfter;
};

/// Stands between a module and everything that it imports to get memory: of the C library, of
/// tasks, texts and values of automation, and of the window system's global memory. One at a time;
/// other modules get memory as ever.
class FailingAllocations {
  public:
    /// From here on the blocks of the module are counted.
    explicit FailingAllocations(HMODULE module);
    ~FailingAllocations();
    FailingAllocations(const FailingAllocations&) = delete;
    FailingAllocations& operator=(const FailingAllocations&) = delete;

    /// Counts from now on, and fails what the shortage says.
    void Arm(const Shortage& shortage);

    /// Ends the shortage. Gives the number of allocations asked for since Arm.
    std::size_t Disarm();

    /// How many blocks of the C library the module has more than at the beginning.
    static std::ptrdiff_t Blocks() noexcept;

  private:
    void Replace(HMODULE module);

    struct Entry {
        void** Place;
        void* Original;
    };
    std::vector<Entry> replaced_;
};

} // namespace Quorvane
