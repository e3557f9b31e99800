#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

class IMaterial;

// Finds materials by name in constant time. Eight bytes a slot and one comparison of names a look-up keep
// it fast where a library is larger than the processor's caches.
class CNameIndex
{
public:
    // Forgets everything and makes room for `capacity` names.
    void Reset(std::size_t capacity);

    // Forgets everything and gives the memory back.
    void Clear() noexcept;

    // Enters the material at `index` under its name unless that name is there already. Room must be left.
    void Insert(const std::vector<IMaterial*>& materials, std::size_t index);

    // The material entered under this name, or null.
    [[nodiscard]] IMaterial* Find(const std::vector<IMaterial*>& materials, std::string_view name) const;

private:
    struct Slot
    {
        std::uint32_t hash;
        std::uint32_t position; // 1 + the material's index, 0 for a free slot
    };

    // The slot of the name, or the free slot where it would go.
    [[nodiscard]] std::size_t Locate(const std::vector<IMaterial*>& materials, std::string_view name,
                                     std::uint32_t hash) const;

    std::vector<Slot> slots; // none, or a power of two of which at most half are taken
};
