#include "model/CArena.h"

#include <algorithm>
#include <cstdint>
#include <new>

namespace
{
constexpr std::size_t largeBlockBytes = std::size_t{64} * 1024;
constexpr std::size_t firstChunkBytes = std::size_t{4} * 1024;
constexpr std::size_t largestChunkBytes = std::size_t{1024} * 1024;
constexpr std::size_t headerBytes = 32; // a chunk's header, rounded up to the alignment of its blocks

std::byte* AlignUp(std::byte* address, std::size_t alignment)
{
    const auto misaligned = reinterpret_cast<std::uintptr_t>(address) & (alignment - 1);
    return misaligned == 0 ? address : address + (alignment - misaligned);
}
} // namespace

CArena::CArena(std::pmr::memory_resource* upstreamResource) noexcept
    : upstream(upstreamResource), heap(dynamic_cast<CHeapMemory*>(upstreamResource))
{
    static_assert(sizeof(Chunk) <= headerBytes);
}

CArena::~CArena()
{
    Release();
}

CArena::Chunk* CArena::AddChunk(Chunk*& list, std::size_t bytes)
{
    void* const memory = upstream->allocate(bytes, alignof(std::max_align_t));
    auto* const chunk = ::new (memory) Chunk{nullptr, list, bytes};
    if (list != nullptr)
    {
        list->previous = chunk;
    }
    list = chunk;
    reservedBytes += bytes;
    return chunk;
}

void CArena::FreeChunk(Chunk*& list, Chunk* chunk) noexcept
{
    (chunk->previous != nullptr ? chunk->previous->next : list) = chunk->next;
    if (chunk->next != nullptr)
    {
        chunk->next->previous = chunk->previous;
    }
    reservedBytes -= chunk->bytes;
    upstream->deallocate(chunk, chunk->bytes, alignof(std::max_align_t));
}

void CArena::Release() noexcept
{
    while (chunks != nullptr)
    {
        FreeChunk(chunks, chunks);
    }
    while (largeBlocks != nullptr)
    {
        FreeChunk(largeBlocks, largeBlocks);
    }
    cursor = nullptr;
    end = nullptr;
}

void CArena::StartChunk(std::size_t leastBytes)
{
    // A part of what is there already: few chunks for a large library, little waste for a small one.
    const std::size_t bytes =
        std::max(leastBytes + headerBytes, std::clamp(reservedBytes / 4, firstChunkBytes, largestChunkBytes));
    Chunk* const chunk = AddChunk(chunks, bytes);
    cursor = reinterpret_cast<std::byte*>(chunk) + headerBytes;
    end = reinterpret_cast<std::byte*>(chunk) + bytes;
}

void* CArena::do_allocate(std::size_t bytes, std::size_t alignment)
{
    if (alignment > alignof(std::max_align_t) || bytes > SIZE_MAX / 2)
    {
        throw std::bad_alloc();
    }
    if (bytes >= largeBlockBytes)
    {
        return reinterpret_cast<std::byte*>(AddChunk(largeBlocks, bytes + headerBytes)) + headerBytes;
    }
    std::byte* block = AlignUp(cursor, alignment);
    if (cursor == nullptr || block > end || static_cast<std::size_t>(end - block) < bytes)
    {
        StartChunk(bytes);
        block = cursor; // a chunk's start suits every alignment
    }
    cursor = block + bytes;
    return block;
}

void CArena::do_deallocate(void* block, std::size_t bytes, std::size_t)
{
    auto* const address = static_cast<std::byte*>(block);
    if (bytes >= largeBlockBytes)
    {
        FreeChunk(largeBlocks, reinterpret_cast<Chunk*>(address - headerBytes));
    }
    else if (address + bytes == cursor)
    {
        cursor = address;
    }
}

bool CArena::do_is_equal(const std::pmr::memory_resource& other) const noexcept
{
    return this == &other;
}

void* CArena::TryExtend(void* block, std::size_t oldBytes, std::size_t newBytes) noexcept
{
    if (oldBytes >= largeBlockBytes)
    {
        return heap != nullptr ? LengthenLargeBlock(block, newBytes) : nullptr;
    }
    const auto* const address = static_cast<const std::byte*>(block);
    // A block that grows beyond the limit moves into a chunk of its own, from where it can go back.
    if (newBytes >= largeBlockBytes || address + oldBytes != cursor ||
        static_cast<std::size_t>(end - cursor) < newBytes - oldBytes)
    {
        return nullptr;
    }
    cursor += newBytes - oldBytes;
    return block;
}

void* CArena::LengthenLargeBlock(void* block, std::size_t newBytes) noexcept
{
    auto* const chunk = reinterpret_cast<Chunk*>(static_cast<std::byte*>(block) - headerBytes);
    auto* const longer = static_cast<Chunk*>(heap->Lengthen(chunk, newBytes + headerBytes));
    if (longer == nullptr)
    {
        return nullptr;
    }
    reservedBytes += newBytes + headerBytes - longer->bytes;
    longer->bytes = newBytes + headerBytes;
    (longer->previous != nullptr ? longer->previous->next : largeBlocks) = longer;
    if (longer->next != nullptr)
    {
        longer->next->previous = longer;
    }
    return reinterpret_cast<std::byte*>(longer) + headerBytes;
}
