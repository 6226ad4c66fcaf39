// SPDX-License-Identifier: MIT
// Memory for the nodes of containers.
#pragma once

#include <cstddef>
#include <memory>
#include <memory_resource>
#include <type_traits>

namespace Quorvane {

/// Puts the nodes of a large container side by side, in a few blocks of the heap. Tens of thousands
/// with a block each would be slow to get and to give back, and would lie far apart. For a few it
/// would be a waste. Copies of an allocator share its pool, which lives as long as one of them: a
/// container that moves leaves the other one usable.
template <class T>
class PoolAllocator {
  public:
    using value_type = T;
    using propagate_on_container_move_assignment = std::true_type;
    using propagate_on_container_swap = std::true_type;

    PoolAllocator() : pool_(MakePool()) {}
    PoolAllocator(const PoolAllocator&) noexcept = default;
    PoolAllocator& operator=(const PoolAllocator&) noexcept = default;
    template <class Other>
    PoolAllocator(const PoolAllocator<Other>& other) noexcept : pool_(other.pool_) {}
    ~PoolAllocator() = default;

    T* allocate(std::size_t count) {
        return std::pmr::polymorphic_allocator<T>(pool_.get()).allocate(count);
    }
    void deallocate(T* first, std::size_t count) noexcept {
        std::pmr::polymorphic_allocator<T>(pool_.get()).deallocate(first, count);
    }

    template <class Other>
    bool operator==(const PoolAllocator<Other>& other) const noexcept {
        return pool_ == other.pool_;
    }

  private:
    template <class Other>
    friend class PoolAllocator;

    static std::shared_ptr<std::pmr::memory_resource> MakePool() {
#ifdef QUORVANE_CHECKS_MEMORY
        // A block for each node, so that no use of one that is gone goes unseen.
        return {std::pmr::new_delete_resource(), [](auto*) {}};
#else
        // What is larger, such as the table of a hash index, comes from the heap.
        constexpr std::size_t LargestNode = 256;
        return std::make_shared<std::pmr::unsynchronized_pool_resource>(
            std::pmr::pool_options{0, LargestNode});
#endif
    }

    std::shared_ptr<std::pmr::memory_resource> pool_;
};

} // namespace Quorvane
