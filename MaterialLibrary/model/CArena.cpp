#include "model/CArena.h"

#include <algorithm>

namespace
{
constexpr std::size_t firstChunkBytes = std::size_t{4} * 1024;
constexpr std::size_t largestChunkBytes = std::size_t{1024} * 1024;
constexpr std::size_t headerBytes = 32; // a chunk's header, rounded up to the alignment of its blocks
} // namespace

CArena::Chunk* CArena::AddChunk(Chunk*& list, std::size_t bytes)
{
    static_assert(sizeof(Chunk) <= headerBytes);
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

// The block is a chunk of its own or the first of a new one, whose start suits every alignment.
void* CArena::AllocateBeyondChunk(std::size_t bytes)
{
    if (bytes >= largeBlockBytes)
    {
        return AllocateApart(bytes);
    }
    // A part of what is there already: few chunks for a large library, little waste for a small one.
    const std::size_t chunkBytes =
        std::max(bytes + headerBytes, std::clamp(reservedBytes / 4, firstChunkBytes, largestChunkBytes));
    auto* const start = reinterpret_cast<std::byte*>(AddChunk(chunks, chunkBytes));
    cursor = start + headerBytes + bytes;
    end = start + chunkBytes;
    return start + headerBytes;
}

void* CArena::AllocateApart(std::size_t bytes)
{
    return reinterpret_cast<std::byte*>(AddChunk(largeBlocks, bytes + headerBytes)) + headerBytes;
}

void CArena::TakeBackApart(void* block) noexcept
{
    FreeChunk(largeBlocks, reinterpret_cast<Chunk*>(static_cast<std::byte*>(block) - headerBytes));
}

void CArena::TakeBack(void* block, std::size_t bytes) noexcept
{
    if (bytes >= largeBlockBytes)
    {
        TakeBackApart(block);
    }
    else if (static_cast<std::byte*>(block) + bytes == cursor)
    {
        cursor -= bytes;
    }
}

bool CArena::TryExtend(const void* block, std::size_t oldBytes, std::size_t newBytes) noexcept
{
    // A block that grows beyond the limit moves into a chunk of its own, from where it can go back.
    if (newBytes >= largeBlockBytes || static_cast<const std::byte*>(block) + oldBytes != cursor ||
        static_cast<std::size_t>(end - cursor) < newBytes - oldBytes)
    {
        return false;
    }
    cursor += newBytes - oldBytes;
    return true;
}
