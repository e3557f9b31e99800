#pragma once

#include <cstddef>
#include <cstdint>
#include <memory_resource>
#include <new>
#include <utility>

// The storage of one library: what its materials own is cut from here piece by piece and given back all at
// once. Nothing of it needs to be destroyed first.
//
// Small blocks are cut from large chunks and are not reused; large blocks (long arrays, which grow) go back
// as soon as they are taken back. Throws std::bad_alloc when memory is exhausted.
class CArena
{
public:
    explicit CArena(std::pmr::memory_resource* upstreamResource = std::pmr::new_delete_resource()) noexcept
        : upstream(upstreamResource)
    {
    }
    ~CArena() { Release(); }
    CArena(const CArena&) = delete;
    CArena& operator=(const CArena&) = delete;

    // A block for anything of that alignment, at most that of std::max_align_t.
    [[nodiscard]] void* Allocate(std::size_t bytes, std::size_t alignment)
    {
        const std::size_t padding = -reinterpret_cast<std::uintptr_t>(cursor) & (alignment - 1);
        if (bytes + padding > static_cast<std::size_t>(end - cursor) || bytes >= largeBlockBytes)
        {
            return AllocateBeyondChunk(bytes);
        }
        std::byte* const block = cursor + padding;
        cursor = block + bytes;
        return block;
    }

    // An object whose destructor never runs.
    template <class T, class... Arguments>
    [[nodiscard]] T& Make(Arguments&&... arguments)
    {
        static_assert(alignof(T) <= alignof(std::max_align_t));
        return *::new (Allocate(sizeof(T), alignof(T))) T(std::forward<Arguments>(arguments)...);
    }

    // A block of any alignment that goes back for certain with TakeBackApart: for arrays that grow long.
    [[nodiscard]] void* AllocateApart(std::size_t bytes);
    void TakeBackApart(void* block) noexcept;

    // Takes back a block that nobody uses any more.
    void TakeBack(void* block, std::size_t bytes) noexcept;

    // Lengthens a small block where it is, when it is the one cut last and its chunk has room.
    [[nodiscard]] bool TryExtend(const void* block, std::size_t oldBytes, std::size_t newBytes) noexcept;

    // Gives back everything. Every block of the arena is invalid afterwards.
    void Release() noexcept;

    // Bytes taken from the upstream resource at present.
    [[nodiscard]] std::size_t GetReservedBytes() const noexcept { return reservedBytes; }

private:
    static constexpr std::size_t largeBlockBytes = std::size_t{64} * 1024;

    // Stands at the start of each piece of upstream memory; both kinds form doubly linked lists.
    struct Chunk
    {
        Chunk* previous;
        Chunk* next;
        std::size_t bytes;
    };

    [[nodiscard]] Chunk* AddChunk(Chunk*& list, std::size_t bytes);
    void FreeChunk(Chunk*& list, Chunk* chunk) noexcept;
    [[nodiscard]] void* AllocateBeyondChunk(std::size_t bytes);

    std::pmr::memory_resource* upstream;
    Chunk* chunks = nullptr;      // cut into small blocks
    Chunk* largeBlocks = nullptr; // one block each
    std::byte* cursor = nullptr;  // the free rest of the newest chunk
    std::byte* end = nullptr;
    std::size_t reservedBytes = 0;
};
