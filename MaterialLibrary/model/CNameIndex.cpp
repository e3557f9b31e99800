#include "MaterialLibrary/model/CNameIndex.h"

#include "MaterialLibrary/IMaterial.h"

#include <bit>
#include <functional>

namespace
{
std::uint32_t HashOf(std::string_view name)
{
    return static_cast<std::uint32_t>(std::hash<std::string_view>()(name));
}
} // namespace

void CNameIndex::Reset(std::size_t capacity)
{
    slots.assign(std::bit_ceil(2 * capacity + 1), Slot{});
}

void CNameIndex::Clear() noexcept
{
    std::vector<Slot>().swap(slots);
}

std::size_t CNameIndex::Locate(const std::vector<IMaterial*>& materials, std::string_view name,
                               std::uint32_t hash) const
{
    const std::size_t mask = slots.size() - 1;
    for (std::size_t at = hash & mask;; at = (at + 1) & mask)
    {
        const Slot slot = slots[at];
        if (slot.position == 0 || (slot.hash == hash && name == materials[slot.position - 1]->GetName()))
        {
            return at;
        }
    }
}

void CNameIndex::Insert(const std::vector<IMaterial*>& materials, std::size_t index)
{
    const std::string_view name = materials[index]->GetName();
    const std::uint32_t hash = HashOf(name);
    Slot& slot = slots[Locate(materials, name, hash)];
    if (slot.position == 0)
    {
        slot = {hash, static_cast<std::uint32_t>(index + 1)};
    }
}

IMaterial* CNameIndex::Find(const std::vector<IMaterial*>& materials, std::string_view name) const
{
    if (slots.empty())
    {
        return nullptr;
    }
    const Slot slot = slots[Locate(materials, name, HashOf(name))];
    return slot.position != 0 ? materials[slot.position - 1] : nullptr;
}
