// SPDX-License-Identifier: MIT
// Counts what is taken from the heaps of the process, whoever takes it.
#pragma once

#include <windows.h>

#include <vector>

namespace Quorvane {

/// While it lives, counts every block that this thread takes from a heap of the process, in
/// whatever module that happens: memory of the C++ and C libraries, of tasks and of the platform
/// all comes from there. It also counts every BSTR that the control asks for, as the platform keeps
/// some to use again. One at a time; modules that are loaded during its life are not watched.
class HeapWatch {
  public:
    HeapWatch();
    ~HeapWatch();
    HeapWatch(const HeapWatch&) = delete;
    HeapWatch& operator=(const HeapWatch&) = delete;

    /// How many blocks have been taken, or made another size, and how many bytes asked for.
    static std::size_t Count() noexcept;
    static std::size_t Bytes() noexcept;

    /// How many calls of how many modules are watched.
    std::size_t WatchedCalls() const noexcept { return replaced_.size(); }

  private:
    /// An entry of a module's import table, and what stood there.
    struct Replaced {
        void** Entry;
        void* Former;
    };

    void WatchModule(HMODULE module);
    void WatchEntry(void** entry);

    std::vector<Replaced> replaced_;
};

} // namespace Quorvane
