#include "model/CArena.h"
#include "model/CCompactArray.h"
#include "model/CCompactText.h"
#include "tests/CountingResource.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <numeric>

namespace
{
TEST(CArena, BlocksAreAlignedDisjointAndAllComeBack)
{
    CountingResource upstream;
    CArena arena(&upstream);
    struct Block
    {
        unsigned char* start;
        std::size_t bytes;
    };
    std::vector<Block> blocks;
    for (std::size_t i = 0; i < 3000; ++i)
    {
        const std::size_t bytes = i % 500 == 499 ? 100'000 : 1 + i * 7 % 300;
        const std::size_t alignment = std::size_t{1} << (i % 5);
        auto* const start = static_cast<unsigned char*>(arena.allocate(bytes, alignment));
        ASSERT_EQ(reinterpret_cast<std::uintptr_t>(start) % alignment, 0u);
        std::memset(start, static_cast<int>(i % 251), bytes);
        blocks.push_back({start, bytes});
    }
    for (std::size_t i = 0; i < blocks.size(); ++i)
    {
        ASSERT_EQ(blocks[i].start[0], i % 251);
        ASSERT_EQ(blocks[i].start[blocks[i].bytes - 1], i % 251);
    }
    EXPECT_EQ(upstream.bytes, arena.GetReservedBytes());
    arena.Release();
    EXPECT_EQ(upstream.bytes, 0u);
    EXPECT_EQ(arena.GetReservedBytes(), 0u);
    EXPECT_NE(arena.allocate(8, 8), nullptr); // usable again
}

TEST(CArena, OnlyTheLastBlockExtendsAndOnlyWithinItsChunk)
{
    CArena arena;
    void* const first = arena.allocate(100, 1);
    EXPECT_EQ(arena.TryExtend(first, 100, 120), first);
    void* const second = arena.allocate(50, 1);
    EXPECT_EQ(arena.TryExtend(first, 120, 121), nullptr);
    EXPECT_EQ(arena.TryExtend(second, 50, 1'000'000), nullptr);
    EXPECT_EQ(arena.TryExtend(second, 50, 60'000), nullptr);
    arena.deallocate(second, 50, 1); // the last block goes back and is cut again
    EXPECT_EQ(arena.allocate(20, 1), second);
}

TEST(CArena, LargeBlocksGoBackAtOnceInAnyOrder)
{
    CountingResource upstream;
    CArena arena(&upstream);
    void* blocks[4] = {};
    for (void*& block : blocks)
    {
        block = arena.allocate(200'000, 8);
    }
    for (const std::size_t i : {1U, 3U, 0U, 2U})
    {
        const std::size_t before = upstream.bytes;
        arena.deallocate(blocks[i], 200'000, 8);
        EXPECT_LT(upstream.bytes, before);
    }
    EXPECT_EQ(upstream.bytes, 0u);
}

// Blocks before and after one that moves are still found, freed and lengthened.
TEST(CArena, LargeBlocksOfTheHeapLengthenWithTheirContent)
{
    CArena arena;
    std::array<unsigned char*, 3> blocks = {};
    for (std::size_t i = 0; i < blocks.size(); ++i)
    {
        blocks[i] = static_cast<unsigned char*>(arena.allocate(100'000, 8));
        std::memset(blocks[i], static_cast<int>(i + 1), 100'000);
    }
    for (std::size_t bytes = 100'000; bytes < 20'000'000; bytes *= 2)
    {
        for (unsigned char*& block : blocks)
        {
            block = static_cast<unsigned char*>(arena.TryExtend(block, bytes, 2 * bytes));
            ASSERT_NE(block, nullptr);
            std::memset(block + bytes, block[0], bytes);
        }
    }
    for (std::size_t i = 0; i < blocks.size(); ++i)
    {
        EXPECT_EQ(std::count(blocks[i], blocks[i] + 25'600'000, i + 1), 25'600'000);
    }
    arena.deallocate(blocks[1], 25'600'000, 8);
    EXPECT_LT(arena.GetReservedBytes(), 52'000'000u);
    arena.Release();
    EXPECT_EQ(arena.GetReservedBytes(), 0u);
}

TEST(CArena, AbsurdRequestsAreMemoryExhaustion)
{
    CArena arena;
    for (const std::size_t absurd : {SIZE_MAX - 8, SIZE_MAX / 2 + 1})
    {
        EXPECT_THROW((void)arena.allocate(absurd, 1), std::bad_alloc);
    }
    EXPECT_THROW((void)arena.allocate(64, 4096), std::bad_alloc);
}

TEST(CCompactArray, GrowsWithItsContentInArenaAndHeap)
{
    CountingResource heap;
    CArena arena(&heap);
    for (std::pmr::memory_resource* resource :
         {static_cast<std::pmr::memory_resource*>(&heap), static_cast<std::pmr::memory_resource*>(&arena)})
    {
        CCompactArray<int> interrupted;
        CCompactArray<int> numbers;
        for (int i = 0; i < 100'000; ++i)
        {
            if (i % 1000 == 0)
            {
                interrupted.Append(*resource, i); // ends the run of extensions in place
            }
            numbers.Append(*resource, i);
        }
        numbers.Append(*resource, numbers[0]);
        ASSERT_EQ(numbers.GetCount(), 100'001);
        ASSERT_EQ(numbers[100'000], 0);
        const auto all = numbers.GetAll();
        EXPECT_EQ(std::accumulate(all.begin(), all.end(), 0LL), 4'999'950'000LL);
        EXPECT_EQ(numbers.RemoveLast(), 0);
        numbers.Release(*resource);
        interrupted.Release(*resource);
        EXPECT_EQ(numbers.GetCount(), 0);
    }
    arena.Release();
    EXPECT_EQ(heap.bytes, 0u);
}

TEST(CCompactArray, InAnArenaLeavesHardlyAnyRoomBehind)
{
    CArena arena;
    constexpr int tables = 2000;
    constexpr int rows = 40;
    for (int table = 0; table < tables; ++table)
    {
        CCompactArray<double> values;
        for (int row = 0; row < rows; ++row)
        {
            values.Append(arena, row);
        }
    }
    EXPECT_LT(arena.GetReservedBytes(), std::size_t{tables} * rows * sizeof(double) * 14 / 10);
}

TEST(CCompactText, CopiesReplacesAndGivesBack)
{
    CountingResource heap;
    CCompactText text;
    EXPECT_STREQ(text.Get(), "");
    text.Set(heap, "copper");
    text.Set(heap, text.Get()); // its own text
    EXPECT_STREQ(text.Get(), "copper");
    text.Set(heap, nullptr);
    EXPECT_STREQ(text.Get(), "");
    EXPECT_EQ(heap.bytes, 0u);
}
} // namespace
