#include "model/CHeapMemory.h"

#include <cstdlib>
#include <new>

CHeapMemory& CHeapMemory::Get() noexcept
{
    // Never destroyed: a host may free a library after the destructors of this module have run.
    alignas(CHeapMemory) static std::byte storage[sizeof(CHeapMemory)];
    static CHeapMemory& heap = *::new (static_cast<void*>(storage)) CHeapMemory();
    return heap;
}

void* CHeapMemory::Lengthen(void* block, std::size_t newBytes) noexcept
{
    return std::realloc(block, newBytes);
}

void* CHeapMemory::do_allocate(std::size_t bytes, std::size_t alignment)
{
    void* const block = alignment <= alignof(std::max_align_t) ? std::malloc(bytes > 0 ? bytes : 1) : nullptr;
    if (block == nullptr)
    {
        throw std::bad_alloc();
    }
    return block;
}

void CHeapMemory::do_deallocate(void* block, std::size_t, std::size_t)
{
    std::free(block);
}

bool CHeapMemory::do_is_equal(const std::pmr::memory_resource& other) const noexcept
{
    return this == &other;
}
