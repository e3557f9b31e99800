#pragma once

#include "model/CArena.h"

#include <algorithm>
#include <climits>
#include <memory>
#include <new>
#include <span>
#include <type_traits>

// A growable array of plain records in 16 bytes. A library holds hundreds of thousands of these, most with
// a handful of elements, so it does not remember its arena: the owner passes the same one to every operation.
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

    // Append copies; throw std::bad_alloc with the array unchanged.
    void Append(CArena& arena, const T& element)
    {
        const T copy = element; // the element may be one of this array's own
        Append(arena, std::span(&copy, 1));
    }
    void Append(CArena& arena, std::span<const T> added) // none of them in this array
    {
        if (added.size() > static_cast<std::size_t>(capacity - count))
        {
            Grow(arena, static_cast<std::size_t>(count) + added.size());
        }
        std::uninitialized_copy(added.begin(), added.end(), elements + count);
        count += static_cast<int>(added.size());
    }

    // Discards the elements and gives the memory back.
    void Release(CArena& arena) noexcept
    {
        if (elements != nullptr)
        {
            arena.TakeBack(elements, Bytes(capacity));
        }
        *this = {};
    }

private:
    [[nodiscard]] static std::size_t Bytes(int elementCount) noexcept
    {
        return static_cast<std::size_t>(elementCount) * sizeof(T);
    }

    static constexpr std::size_t firstBytes = 16;

    // An array that is being filled is usually the block cut last: it grows by little steps, without a copy
    // and without leaving room behind.
    void Grow(CArena& arena, std::size_t least)
    {
        const auto old = static_cast<std::size_t>(capacity);
        const std::size_t extended = std::max(least, old + std::max<std::size_t>(4, old / 4));
        const std::size_t grown = std::max({least, old + old / 2, firstBytes / sizeof(T)});
        if (std::max(extended, grown) > INT_MAX)
        {
            throw std::bad_alloc();
        }
        if (elements != nullptr && arena.TryExtend(elements, Bytes(capacity), extended * sizeof(T)))
        {
            capacity = static_cast<int>(extended);
            return;
        }
        auto* const moved = static_cast<T*>(arena.Allocate(grown * sizeof(T), alignof(T)));
        if (elements != nullptr)
        {
            std::uninitialized_copy_n(elements, count, moved);
            arena.TakeBack(elements, Bytes(capacity));
        }
        elements = moved;
        capacity = static_cast<int>(grown);
    }

    T* elements = nullptr;
    int count = 0;
    int capacity = 0;
};
