#pragma once

#include "model/CArena.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <memory_resource>
#include <new>
#include <span>
#include <type_traits>

// A growable array of plain records in 16 bytes. A library holds hundreds of thousands of these, most with
// a handful of elements, so it does not remember its memory resource: the owner passes the same one to
// every operation and calls Release before the array goes.
template <class T>
class CCompactArray
{
    static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

public:
    [[nodiscard]] int GetCount() const noexcept { return count; }
    [[nodiscard]] bool IsIndex(int index) const noexcept { return index >= 0 && index < count; }
    [[nodiscard]] const T& operator[](int index) const noexcept { return elements[index]; }
    [[nodiscard]] T& operator[](int index) noexcept { return elements[index]; }
    [[nodiscard]] std::span<const T> GetAll() const noexcept
    {
        return {elements, static_cast<std::size_t>(count)};
    }
    [[nodiscard]] std::span<T> GetAll() noexcept { return {elements, static_cast<std::size_t>(count)}; }

    // Appends a copy. Throws std::bad_alloc, with the array unchanged.
    void Append(std::pmr::memory_resource& resource, const T& element)
    {
        if (count == capacity)
        {
            const T copy = element; // the element may be one of this array's own
            Grow(resource);
            ::new (static_cast<void*>(elements + count)) T(copy);
        }
        else
        {
            ::new (static_cast<void*>(elements + count)) T(element);
        }
        ++count;
    }

    // Takes the last element away. The array must not be empty.
    T RemoveLast() noexcept { return elements[--count]; }

    // Discards the elements and gives the memory back.
    void Release(std::pmr::memory_resource& resource) noexcept
    {
        if (elements != nullptr)
        {
            resource.deallocate(elements, Bytes(capacity), alignof(T));
        }
        elements = nullptr;
        count = 0;
        capacity = 0;
    }

private:
    [[nodiscard]] static std::size_t Bytes(int elementCount) noexcept
    {
        return static_cast<std::size_t>(elementCount) * sizeof(T);
    }

    // In an arena an array that is being filled is usually the block cut last, or a large one: it grows by
    // little steps, without a copy and without leaving room behind.
    void Grow(std::pmr::memory_resource& resource)
    {
        if (capacity > INT_MAX / 2)
        {
            throw std::bad_alloc();
        }
        if (auto* const arena = dynamic_cast<CArena*>(&resource); arena != nullptr && elements != nullptr)
        {
            const int extended = capacity + std::max(4, capacity / 4);
            if (void* const block = arena->TryExtend(elements, Bytes(capacity), Bytes(extended)))
            {
                elements = static_cast<T*>(block);
                capacity = extended;
                return;
            }
        }
        const int grown = capacity + std::max(1, capacity / 2);
        auto* const moved = static_cast<T*>(resource.allocate(Bytes(grown), alignof(T)));
        if (elements != nullptr)
        {
            std::memcpy(static_cast<void*>(moved), elements, Bytes(count));
            resource.deallocate(elements, Bytes(capacity), alignof(T));
        }
        elements = moved;
        capacity = grown;
    }

    T* elements = nullptr;
    int count = 0;
    int capacity = 0;
};
