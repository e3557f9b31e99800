#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <iterator>

// How many GDI objects the process has. GetGuiResources answers 0 under Wine; the system's table of GDI
// handles, which every process sees, tells the same on Windows and under Wine.
inline std::size_t CountGdiHandles()
{
    struct Entry
    {
        std::uint64_t object;
        std::uint16_t process;
        std::uint16_t counts;
        std::uint16_t unique;
        std::uint8_t type;
        std::uint8_t flags;
        std::uint64_t userPointer;
    };
    constexpr std::size_t tableInProcessBlock = 0xF8;
    constexpr std::size_t tableSize = 0x4000;
    std::uint64_t block = 0;
    asm("movq %%gs:0x60, %0" : "=r"(block));
    const auto* const table = *reinterpret_cast<const Entry* const*>(block + tableInProcessBlock);
    std::size_t count = 0;
    for (std::size_t i = 0; i < tableSize; ++i)
    {
        count += table[i].type != 0 ? 1 : 0;
    }
    return count;
}

// How many windows the calling thread has, the children among them.
inline std::size_t CountWindows()
{
    std::size_t count = 0;
    static const auto countOne = [](HWND, LPARAM result) -> BOOL
    {
        ++*reinterpret_cast<std::size_t*>(result);
        return TRUE;
    };
    static const auto countTree = [](HWND window, LPARAM result) -> BOOL
    {
        ++*reinterpret_cast<std::size_t*>(result);
        EnumChildWindows(window, countOne, result);
        return TRUE;
    };
    EnumThreadWindows(GetCurrentThreadId(), countTree, reinterpret_cast<LPARAM>(&count));
    return count;
}

// The bytes that the process has allocated from its heaps.
inline std::size_t CountHeapBytes()
{
    HANDLE heaps[32];
    const DWORD found = GetProcessHeaps(static_cast<DWORD>(std::size(heaps)), heaps);
    std::size_t bytes = 0;
    for (DWORD i = 0; i < std::min<DWORD>(found, static_cast<DWORD>(std::size(heaps))); ++i)
    {
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heaps[i], &entry) != FALSE)
        {
            bytes += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? entry.cbData : 0;
        }
    }
    return bytes;
}

// Goes through so many rounds and expects that the process then has no more handles and windows than it had
// after the first ones, and hardly more memory.
template <class Round>
void ExpectRoundsLeaveNothingBehind(int firstRounds, int rounds, Round round, std::size_t heapSlack = 50'000,
                                    std::size_t gdiSlack = 0)
{
    for (int i = 0; i < firstRounds; ++i) // the system keeps some objects of its own from then on
    {
        round(i);
    }
    const std::size_t gdi = CountGdiHandles();
    const std::size_t windows = CountWindows();
    const std::size_t heap = CountHeapBytes();
    for (int i = 0; i < rounds; ++i)
    {
        round(i);
    }
    EXPECT_GT(gdi, 0U);
    EXPECT_LE(CountGdiHandles(), gdi + gdiSlack);
    EXPECT_EQ(CountWindows(), windows);
    EXPECT_LT(CountHeapBytes(), heap + heapSlack);
}
