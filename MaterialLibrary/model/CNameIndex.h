#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

class IMaterial;

// Finds materials by name in constant time. With four bytes a slot, three quarters of them taken, the index
// of a large library still fits a processor's cache; what is left of a slot beside the material's position
// holds a part of the name's hash, so that a look-up compares hardly any name but the right one.
class CNameIndex
{
public:
    // Those of the library, the same in every operation between two calls of Reset.
    using Materials = std::span<IMaterial* const>;

    // Forgets everything and makes room for `capacity` names.
    void Reset(int capacity);

    // Forgets everything and gives the memory back.
    void Clear() noexcept;

    // Enters the material at `index` under its name unless that name is there already. Room must be left.
    void Insert(Materials materials, int index);

    // The material entered under this name, or null.
    [[nodiscard]] IMaterial* Find(Materials materials, std::string_view name) const;

private:
    // A name as the slots know it: where its search begins, and the tag of its slot.
    struct Key
    {
        std::size_t start;
        std::uint32_t tag;
    };

    [[nodiscard]] Key KeyOf(std::string_view name) const;

    // The slot of the name, or the free slot where it would go.
    [[nodiscard]] std::size_t Locate(Materials materials, std::string_view name, Key key) const;

    std::vector<std::uint32_t> slots; // none, or a power of two; 0 is a free one
    std::uint32_t positionMask = 0;   // the bits of a slot that hold 1 + the material's index
};
