// SPDX-License-Identifier: MIT
// Memory for a dictionary of tens of thousands of entries.
#pragma once

#include <cstddef>
#include <memory>
#include <memory_resource>
#include <string>

#include "shared/Text.h"

namespace Quorvane {

/// Nodes of a dictionary lie side by side, with their keys, in a few blocks of the heap. Tens of
/// thousands with blocks of their own would be slow to get and to give back, and would lie far
/// apart; for a few, a pool would be a waste. Copies share the pool, which lives as long as one of
/// them.
class PooledNodes {
  public:
    template <class T>
    using Allocator = std::pmr::polymorphic_allocator<T>;
    using Key = std::pmr::u16string;
    using NewKey = TextView;

    PooledNodes() = default;
    // Where a dictionary moves, the pool is shared, too: the other one stays usable.
    PooledNodes(const PooledNodes&) = default;
    PooledNodes& operator=(const PooledNodes&) = default;
    ~PooledNodes() = default;

    Allocator<std::byte> Get() const noexcept { return pool_.get(); }

  private:
#ifdef QUORVANE_CHECKS_MEMORY
    // A block for each node, so that no use of one that is gone goes unseen.
    using Pool = std::pmr::memory_resource;

    std::shared_ptr<Pool> pool_{std::pmr::new_delete_resource(), [](Pool*) {}};
#else
    using Pool = std::pmr::unsynchronized_pool_resource;

    // The heap keeps blocks of this size; larger ones it would get from the system each time.
    static constexpr std::size_t NodesInBlock = 1024;
    // What is larger, such as the table of a hash index, comes from the heap.
    static constexpr std::size_t LargestNode = 4096;

    std::shared_ptr<Pool> pool_ =
        std::make_shared<Pool>(std::pmr::pool_options{NodesInBlock, LargestNode});
#endif
};

} // namespace Quorvane
