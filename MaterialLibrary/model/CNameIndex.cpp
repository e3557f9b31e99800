#include "model/CNameIndex.h"

#include "MaterialLibrary/IMaterial.h"

#include <bit>
#include <functional>

void CNameIndex::Reset(int capacity)
{
    const auto names = static_cast<std::size_t>(capacity);
    slots.assign(std::bit_ceil(names + names / 4 + 2), 0);
    positionMask = static_cast<std::uint32_t>(std::bit_ceil(names + 1) * 2 - 1);
}

void CNameIndex::Clear() noexcept
{
    std::vector<std::uint32_t>().swap(slots);
}

CNameIndex::Key CNameIndex::KeyOf(std::string_view name) const
{
    const std::uint64_t hash = std::hash<std::string_view>()(name);
    return {static_cast<std::size_t>(hash) & (slots.size() - 1),
            static_cast<std::uint32_t>(hash >> 32) & ~positionMask};
}

std::size_t CNameIndex::Locate(Materials materials, std::string_view name, Key key) const
{
    const std::size_t mask = slots.size() - 1;
    for (std::size_t at = key.start;; at = (at + 1) & mask)
    {
        const std::uint32_t slot = slots[at];
        if (slot == 0 ||
            ((slot & ~positionMask) == key.tag && name == materials[(slot & positionMask) - 1]->GetName()))
        {
            return at;
        }
    }
}

void CNameIndex::Insert(Materials materials, int index)
{
    const std::string_view name = materials[static_cast<std::size_t>(index)]->GetName();
    const Key key = KeyOf(name);
    std::uint32_t& slot = slots[Locate(materials, name, key)];
    if (slot == 0)
    {
        slot = key.tag | static_cast<std::uint32_t>(index + 1);
    }
}

IMaterial* CNameIndex::Find(Materials materials, std::string_view name) const
{
    if (slots.empty())
    {
        return nullptr;
    }
    const std::uint32_t slot = slots[Locate(materials, name, KeyOf(name))];
    return slot != 0 ? materials[(slot & positionMask) - 1] : nullptr;
}
