// SPDX-License-Identifier: MIT
// Memory for a dictionary of tens of thousands of entries.
#pragma once

#include <cstddef>
#include <memory>
#include <memory_resource>
#include <string>

#include "shared/Text.h"

namespace Quorvane {

/// Takes small blocks from a pool and larger ones, such as the table of a hash index, from the
/// heap: a pool searches for them among all others of their kind.
class NodePool final : public std::pmr::memory_resource {
  public:
    static constexpr std::size_t LargestNode = 2048;

  private:
    void* do_allocate(std::size_t size, std::size_t alignment) override {
        return SourceOf(size).allocate(size, alignment);
    }
    void do_deallocate(void* block, std::size_t size, std::size_t alignment) override {
        SourceOf(size).deallocate(block, size, alignment);
    }
    bool do_is_equal(const std::pmr::memory_resource& other) const noexcept override {
        return this == &other;
    }

    std::pmr::memory_resource& SourceOf(std::size_t size) noexcept {
        return size <= LargestNode ? pool_ : *std::pmr::new_delete_resource();
    }

    // So many nodes, or texts of a rule, make a block that the heap keeps when it is given back;
    // larger ones it would get from the system each time.
    static constexpr std::size_t NodesInBlock = 1024;

    std::pmr::unsynchronized_pool_resource pool_{{NodesInBlock, LargestNode}};
};

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
    std::shared_ptr<std::pmr::memory_resource> pool_{std::pmr::new_delete_resource(), [](auto*) {}};
#else
    std::shared_ptr<std::pmr::memory_resource> pool_ = std::make_shared<NodePool>();
#endif
};

} // namespace Quorvane
