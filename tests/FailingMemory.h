#pragma once

// Replaces the heap by one that can run out at a given allocation. For one file of a program; not for the
// Windows build, whose runtime needs memory of its own to throw that there is none.

#include "framework/CModuleState.h"

#include <cstddef>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <new>

namespace
{
constexpr long never = -1;
long allocationsLeft = never;
long liveAllocations = 0;

// Whether memory is exhausted at this allocation.
bool RunsOut()
{
    if (allocationsLeft == 0)
    {
        return true;
    }
    allocationsLeft -= allocationsLeft > 0 ? 1 : 0;
    return false;
}
} // namespace

void* operator new(std::size_t bytes)
{
    void* const block = RunsOut() ? nullptr : std::malloc(bytes > 0 ? bytes : 1);
    if (block == nullptr)
    {
        throw std::bad_alloc();
    }
    ++liveAllocations;
    return block;
}

void* operator new(std::size_t bytes, std::align_val_t)
{
    return operator new(bytes); // nothing here wants more than any block has
}

void operator delete(void* block) noexcept
{
    liveAllocations -= block != nullptr ? 1 : 0;
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    operator delete(block);
}

void operator delete(void* block, std::align_val_t) noexcept
{
    operator delete(block);
}

void operator delete(void* block, std::size_t, std::align_val_t) noexcept
{
    operator delete(block);
}

namespace
{
// Runs `action` with the n-th allocation failing, for n = 0, 1, ... until it needs no more than n. Each
// time it succeeds or std::bad_alloc comes out, and nothing is left behind.
int FailEveryAllocation(const std::function<void()>& action)
{
    for (int n = 0;; ++n)
    {
        const long before = liveAllocations;
        bool failed = false;
        allocationsLeft = n;
        try
        {
            action();
        }
        catch (const std::bad_alloc&)
        {
            failed = true;
        }
        const bool ranOut = allocationsLeft == 0;
        allocationsLeft = never;
        EXPECT_EQ(liveAllocations, before) << n;
        EXPECT_EQ(CurrentModuleState(), nullptr);
        if (!failed && !ranOut)
        {
            return n;
        }
        if (n > 5000)
        {
            ADD_FAILURE() << "no end of allocations";
            return n;
        }
    }
}
} // namespace
