#pragma once

#include "model/CHeapMemory.h"

#include <cstddef>
#include <memory_resource>

// The storage of one library: what its materials own is taken from here piece by piece and given back all
// at once. Nothing of it needs to be destroyed first.
//
// Small blocks are cut from large chunks and are not reused; large blocks (long arrays, which grow) go
// back as soon as they are released. Throws std::bad_alloc when memory is exhausted.
class CArena final : public std::pmr::memory_resource
{
public:
    explicit CArena(std::pmr::memory_resource* upstream = &CHeapMemory::Get()) noexcept;
    ~CArena() override;
    CArena(const CArena&) = delete;
    CArena& operator=(const CArena&) = delete;

    // Gives back everything. Every block of the arena is invalid afterwards.
    void Release() noexcept;

    // Lengthens the block without a copy standing beside it: a small block when it is the one cut last and
    // its chunk has room, a large one (which may move) when it came from the heap. Where the block is then;
    // null, with nothing changed, when neither is possible.
    [[nodiscard]] void* TryExtend(void* block, std::size_t oldBytes, std::size_t newBytes) noexcept;

    // Bytes taken from the upstream resource at present.
    [[nodiscard]] std::size_t GetReservedBytes() const noexcept { return reservedBytes; }

private:
    // Stands at the start of each piece of upstream memory; both kinds form doubly linked lists.
    struct Chunk
    {
        Chunk* previous;
        Chunk* next;
        std::size_t bytes;
    };

    void* do_allocate(std::size_t bytes, std::size_t alignment) override;
    void do_deallocate(void* block, std::size_t bytes, std::size_t alignment) override;
    [[nodiscard]] bool do_is_equal(const std::pmr::memory_resource& other) const noexcept override;

    [[nodiscard]] Chunk* AddChunk(Chunk*& list, std::size_t bytes);
    void FreeChunk(Chunk*& list, Chunk* chunk) noexcept;
    void StartChunk(std::size_t leastBytes);
    [[nodiscard]] void* LengthenLargeBlock(void* block, std::size_t newBytes) noexcept;

    std::pmr::memory_resource* upstream;
    CHeapMemory* heap;            // the upstream resource when that is the heap, else null
    Chunk* chunks = nullptr;      // cut into small blocks
    Chunk* largeBlocks = nullptr; // one block each
    std::byte* cursor = nullptr;  // the free rest of the newest chunk
    std::byte* end = nullptr;
    std::size_t reservedBytes = 0;
};
