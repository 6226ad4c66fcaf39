// SPDX-License-Identifier: MIT
// The pool of the rules' nodes: reuse, and what it does when memory ends.
#include "shared/PooledNodes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>
#include <vector>

#include "shared/StringKeyedDictionary.h"
#include "tests/core/Allocations.h"

namespace Quorvane {
namespace {

using Pooled = StringKeyedDictionary<std::size_t, PooledNodes>;

/// Some keys are short enough for their nodes, some lie in the pool, some are too long for it.
Text KeyOf(std::size_t i) {
    return Widen(std::to_string(i)) + Text(12 * (i % 3) * i, u'.');
}

constexpr std::size_t Count = 200;

void FillUp(Pooled& dictionary) {
    while (dictionary.Count() < Count) {
        const std::size_t i = dictionary.Count();
        dictionary.Add(KeyOf(i), i);
    }
}

void ExpectWhole(const Pooled& dictionary) {
    std::size_t i = 0;
    for (const auto& [key, item] : dictionary) {
        EXPECT_EQ(TextView(key), KeyOf(i));
        EXPECT_EQ(item, i);
        EXPECT_EQ(dictionary.Find(KeyOf(i)), &item);
        ++i;
    }
    EXPECT_EQ(i, dictionary.Count());
}

/// False where the allocation that was to fail was never asked for.
bool FillsUpAfterTheFailureOf(std::size_t allocation) {
    std::optional<Pooled> dictionary;
    bool failed = false;
    try {
        const Allocations::FailingOne failing(allocation);
        dictionary.emplace(KeyComparison::Exact);
        FillUp(*dictionary);
    } catch (const std::bad_alloc&) {
        failed = true;
    }
    if (!dictionary) {
        dictionary.emplace(KeyComparison::Exact);
    }
    ExpectWhole(*dictionary);
    FillUp(*dictionary);
    ExpectWhole(*dictionary);
    return failed;
}

TEST(PooledNodes, PassOnThatMemoryHasEndedAndGoOn) {
    const std::size_t before = Allocations::InUse();
    std::size_t allocation = 0;
    while (FillsUpAfterTheFailureOf(allocation)) {
        ASSERT_EQ(Allocations::InUse(), before) << allocation;
        ++allocation;
    }
    EXPECT_GT(allocation, 4u);
    EXPECT_EQ(Allocations::InUse(), before);
}

TEST(PooledNodes, TakeWhatWasGivenBack) {
    NodePool pool;
    const auto take = [&pool] { return pool.allocate(100, 8); };
    std::vector<void*> nodes(10000);
    std::ranges::generate(nodes, take);
    const std::size_t before = Allocations::InUse();
    for (int round = 0; round < 10; ++round) {
        for (void* const node : nodes) {
            std::memset(node, round, 100);
            pool.deallocate(node, 100, 8);
        }
        std::ranges::generate(nodes, take);
    }
    EXPECT_EQ(Allocations::InUse(), before);
    std::ranges::sort(nodes);
    EXPECT_EQ(std::ranges::adjacent_find(nodes), nodes.end());
}

TEST(PooledNodes, GiveEverySizeItsOwnRoomAndAlignment) {
    struct Node {
        unsigned char* Place;
        std::size_t Size;
        unsigned char Filling;
    };
    constexpr std::size_t Alignments[] = {1, 2, 4, 8, 16, 64};
    NodePool pool;
    std::vector<Node> nodes;
    for (std::size_t size = 0; size <= NodePool::LargestNode + 100; size += 7) {
        const std::size_t alignment = Alignments[size % std::size(Alignments)];
        auto* const place = static_cast<unsigned char*>(pool.allocate(size, alignment));
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(place) % alignment, 0u);
        nodes.push_back({place, size, static_cast<unsigned char>(size)});
        std::memset(place, nodes.back().Filling, size);
    }
    for (const auto& [place, size, filling] : nodes) {
        EXPECT_EQ(std::count(place, place + size, filling), static_cast<std::ptrdiff_t>(size));
        pool.deallocate(place, size, Alignments[size % std::size(Alignments)]);
    }
}

} // namespace
} // namespace Quorvane
