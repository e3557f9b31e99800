#pragma once

#include <memory_resource>

// Memory from the heap that is counted, and that can run out at a given allocation.
class CountingResource final : public std::pmr::memory_resource
{
public:
    std::size_t bytes = 0;
    std::size_t allocations = 0;
    std::size_t allocationsLeft = SIZE_MAX;

private:
    void* do_allocate(std::size_t size, std::size_t alignment) override
    {
        if (allocationsLeft == 0)
        {
            throw std::bad_alloc();
        }
        --allocationsLeft;
        ++allocations;
        bytes += size;
        return std::pmr::new_delete_resource()->allocate(size, alignment);
    }

    void do_deallocate(void* block, std::size_t size, std::size_t alignment) override
    {
        bytes -= size;
        std::pmr::new_delete_resource()->deallocate(block, size, alignment);
    }

    [[nodiscard]] bool do_is_equal(const std::pmr::memory_resource& other) const noexcept override
    {
        return this == &other;
    }
};
