// SPDX-License-Identifier: MIT
// Memory for a dictionary of tens of thousands of entries.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <memory_resource>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "shared/Text.h"

namespace Quorvane {

/// Takes small blocks from larger ones of the heap, and keeps them for the next of their size when
/// they are given back; it gives all of them back when it ends. What is larger, such as the table
/// of a hash index, it takes from the heap. When memory ends it throws bad_alloc and stays as it
/// was, which not every pool of a standard library does.
class NodePool final : public std::pmr::memory_resource {
  public:
    static constexpr std::size_t LargestNode = 2048;

  private:
    /// Sizes are rounded up to multiples of what the heap aligns its blocks to.
    static constexpr std::size_t Granule = __STDCPP_DEFAULT_NEW_ALIGNMENT__;
    /// The first block is of the lesser size, each further one twice as large, up to what the heap
    /// keeps when it is given back; larger ones it would get from the system each time.
    static constexpr std::size_t FirstBlock = 4096;
    static constexpr std::size_t LargestBlock = 65536;

    struct FreeNode {
        FreeNode* Next;
    };

    void* do_allocate(std::size_t size, std::size_t alignment) override {
        if (!IsNode(size, alignment)) {
            return std::pmr::new_delete_resource()->allocate(size, alignment);
        }
        FreeNode*& free = FreeOf(size);
        return free ? std::exchange(free, free->Next) : TakeNew(RoundedUp(size));
    }

    void do_deallocate(void* block, std::size_t size, std::size_t alignment) override {
        if (IsNode(size, alignment)) {
            FreeNode*& free = FreeOf(size);
            free = ::new (block) FreeNode{free};
        } else {
            std::pmr::new_delete_resource()->deallocate(block, size, alignment);
        }
    }

    bool do_is_equal(const std::pmr::memory_resource& other) const noexcept override {
        return this == &other;
    }

    static bool IsNode(std::size_t size, std::size_t alignment) noexcept {
        return size <= LargestNode && alignment <= Granule;
    }

    static std::size_t RoundedUp(std::size_t size) noexcept {
        return size == 0 ? Granule : (size + Granule - 1) / Granule * Granule;
    }

    FreeNode*& FreeOf(std::size_t size) noexcept { return free_[RoundedUp(size) / Granule - 1]; }

    void* TakeNew(std::size_t size) {
        if (left_ < size) {
            AddBlock();
        }
        left_ -= size;
        return std::exchange(next_, next_ + size);
    }

    void AddBlock() {
        blocks_.push_back(std::make_unique_for_overwrite<std::byte[]>(nextBlock_));
        next_ = blocks_.back().get();
        left_ = nextBlock_;
        nextBlock_ = std::min(2 * nextBlock_, LargestBlock);
    }

    std::vector<std::unique_ptr<std::byte[]>> blocks_;
    std::size_t nextBlock_ = FirstBlock;
    /// What of the last block is not taken yet.
    std::byte* next_ = nullptr;
    std::size_t left_ = 0;
    std::array<FreeNode*, LargestNode / Granule> free_{};
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
