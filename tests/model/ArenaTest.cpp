#include "model/CArena.h"
#include "model/CCompactArray.h"
#include "model/CCompactText.h"
#include "model/CValueCache.h"
#include "tests/CountingResource.h"

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
        auto* const start = static_cast<unsigned char*>(arena.Allocate(bytes, alignment));
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
    EXPECT_NE(arena.Allocate(8, 8), nullptr); // usable again
}

TEST(CArena, OnlyTheLastBlockExtendsAndOnlyWithinItsChunk)
{
    CArena arena;
    void* const first = arena.Allocate(100, 1);
    EXPECT_TRUE(arena.TryExtend(first, 100, 120));
    void* const second = arena.Allocate(50, 1);
    EXPECT_FALSE(arena.TryExtend(first, 120, 121));
    EXPECT_FALSE(arena.TryExtend(second, 50, 1'000'000));
    EXPECT_FALSE(arena.TryExtend(second, 50, 60'000));
    arena.TakeBack(second, 50); // the last block goes back and is cut again
    EXPECT_EQ(arena.Allocate(20, 1), second);
}

TEST(CArena, LargeBlocksGoBackAtOnceInAnyOrder)
{
    CountingResource upstream;
    CArena arena(&upstream);
    void* blocks[4] = {};
    for (void*& block : blocks)
    {
        block = arena.Allocate(200'000, 8);
    }
    for (const std::size_t i : {1U, 3U, 0U, 2U})
    {
        const std::size_t before = upstream.bytes;
        arena.TakeBack(blocks[i], 200'000);
        EXPECT_LT(upstream.bytes, before);
    }
    EXPECT_EQ(upstream.bytes, 0u);
}

// Alone the array grows in place; another one that grows in between makes it move.
TEST(CCompactArray, KeepsItsContentWhileItGrowsOneByOneOrByMany)
{
    CArena arena;
    CCompactArray<int> other;
    CCompactArray<int> numbers;
    for (int i = 0; i < 100'000; i += 4)
    {
        if (i % 1000 == 0)
        {
            other.Append(arena, i);
        }
        numbers.Append(arena, i);
        const int more[] = {i + 1, i + 2, i + 3};
        numbers.Append(arena, more);
    }
    numbers.Append(arena, numbers[7]);
    ASSERT_EQ(numbers.GetCount(), 100'001);
    EXPECT_EQ(numbers[100'000], 7);
    const auto all = numbers.GetAll();
    EXPECT_EQ(std::accumulate(all.begin(), all.end(), 0LL), 4'999'950'007LL);
    EXPECT_EQ(other[99], 99'000);
    numbers.Release(arena);
    EXPECT_EQ(numbers.GetCount(), 0);
}

TEST(CCompactArray, LeavesHardlyAnyRoomBehind)
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

TEST(CCompactText, CopiesAndReplaces)
{
    CArena arena;
    CCompactText text;
    EXPECT_STREQ(text.Get(), "");
    text.Set(arena, "copper");
    text.Set(arena, text.Get()); // its own text
    EXPECT_STREQ(text.Get(), "copper");
    text.Set(arena, "");
    EXPECT_STREQ(text.Get(), "");
}
TEST(CValueCache, KeepsTheLastValueOfEachFrequencyInLittleMemory)
{
    CArena arena;
    CValueCache cache;
    EXPECT_EQ(cache.Find(1e9), std::nullopt);
    constexpr int count = 20'000;
    for (int round = 0; round < 3; ++round)
    {
        for (int i = 0; i < count; ++i)
        {
            cache.Keep(arena, i * 1e6, round + i);
            ASSERT_EQ(cache.Find(i * 1e6), round + i);
            ASSERT_EQ(cache.Find(i * 1e6 + 1.0), std::nullopt);
        }
        EXPECT_LE(arena.GetReservedBytes(), 24u * count);
    }
    for (int i = 0; i < count; ++i)
    {
        ASSERT_EQ(cache.Find(i * 1e6), 2 + i);
    }
    cache.Keep(arena, -0.0, 5.0);
    EXPECT_EQ(cache.Find(0.0), 5.0);
    cache.Keep(arena, NAN, 5.0);
    EXPECT_EQ(cache.Find(NAN), std::nullopt);
}
} // namespace
