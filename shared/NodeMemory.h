// SPDX-License-Identifier: MIT
// Memory for the nodes of containers.
#pragma once

#include <cstddef>
#include <memory>
#include <memory_resource>
#include <type_traits>

namespace Quorvane {

/// Takes memory from a pool that another allocator owns.
template <class T>
class PoolBorrower {
  public:
    using value_type = T;
    using propagate_on_container_move_assignment = std::true_type;
    using propagate_on_container_swap = std::true_type;

    explicit PoolBorrower(std::pmr::memory_resource* pool) noexcept : pool_(pool) {}
    template <class Other>
    PoolBorrower(const PoolBorrower<Other>& other) noexcept : pool_(other.Pool()) {}

    std::pmr::memory_resource* Pool() const noexcept { return pool_; }

    T* allocate(std::size_t count) {
        return std::pmr::polymorphic_allocator<T>(pool_).allocate(count);
    }
    void deallocate(T* first, std::size_t count) noexcept {
        std::pmr::polymorphic_allocator<T>(pool_).deallocate(first, count);
    }

    template <class Other>
    bool operator==(const PoolBorrower<Other>& other) const noexcept {
        return pool_ == other.Pool();
    }

  private:
    std::pmr::memory_resource* pool_;
};

/// Takes memory from a pool that copies of the allocator share. The pool lives as long as one of
/// them: a container that moves leaves the other one usable.
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
    PoolAllocator(const PoolAllocator<Other>& other) noexcept : pool_(other.Pool()) {}
    ~PoolAllocator() = default;

    template <class Other>
    operator PoolBorrower<Other>() const noexcept {
        return PoolBorrower<Other>(pool_.get());
    }

    const std::shared_ptr<std::pmr::memory_resource>& Pool() const noexcept { return pool_; }

    T* allocate(std::size_t count) { return PoolBorrower<T>(*this).allocate(count); }
    void deallocate(T* first, std::size_t count) noexcept {
        PoolBorrower<T>(*this).deallocate(first, count);
    }

    template <class Other>
    bool operator==(const PoolAllocator<Other>& other) const noexcept {
        return pool_ == other.Pool();
    }

  private:
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

/// Each node is a block of the heap.
struct HeapNodes {
    template <class T>
    using Allocator = std::allocator<T>;
    template <class T>
    using Borrower = std::allocator<T>;
};

/// Nodes lie side by side, in a few blocks of the heap. Tens of thousands with a block each would
/// be slow to get and to give back, and would lie far apart. For a few, a pool would be a waste.
struct PooledNodes {
    template <class T>
    using Allocator = PoolAllocator<T>;
    template <class T>
    using Borrower = PoolBorrower<T>;
};

} // namespace Quorvane
