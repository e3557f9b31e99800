#pragma once

#include <cstddef>
#include <memory_resource>

// The process's heap as a memory resource that can lengthen its blocks. Where the system moves large blocks
// by mapping their pages anew, a growing array never stands in memory twice.
class CHeapMemory final : public std::pmr::memory_resource
{
public:
    [[nodiscard]] static CHeapMemory& Get() noexcept;

    // Lengthens the block, which may move. Null, with the block as it was, when memory is exhausted.
    [[nodiscard]] void* Lengthen(void* block, std::size_t newBytes) noexcept;

private:
    CHeapMemory() = default;

    void* do_allocate(std::size_t bytes, std::size_t alignment) override;
    void do_deallocate(void* block, std::size_t bytes, std::size_t alignment) override;
    [[nodiscard]] bool do_is_equal(const std::pmr::memory_resource& other) const noexcept override;
};
