#include "model/CMaterialTable.h"

#include <cmath>
#include <stdexcept>

namespace
{
std::optional<double> FindLastAt(std::span<const MLTBLENTRY> rows, double frequency) noexcept
{
    for (auto row = rows.rbegin(); row != rows.rend(); ++row)
    {
        if (row->frequency == frequency)
        {
            return row->value;
        }
    }
    return std::nullopt;
}
} // namespace

void CMaterialTable::Deleter::operator()(CMaterialTable* table) const noexcept
{
    std::pmr::memory_resource& storage = *table->resource;
    table->~CMaterialTable();
    storage.deallocate(table, sizeof(CMaterialTable), alignof(CMaterialTable));
}

CMaterialTable::Pointer CMaterialTable::Create(std::pmr::memory_resource& resource, int kind)
{
    void* const storage = resource.allocate(sizeof(CMaterialTable), alignof(CMaterialTable));
    return Pointer(::new (storage) CMaterialTable(resource, kind));
}

CMaterialTable::~CMaterialTable()
{
    if (cache != nullptr)
    {
        cache->Release(*resource);
        resource->deallocate(cache, sizeof *cache, alignof(CCompactArray<MLTBLENTRY>));
    }
    entries.Release(*resource);
}

const MLTBLENTRY& CMaterialTable::GetEntry(int index) const
{
    if (index < 0 || index >= entries.GetCount())
    {
        throw std::invalid_argument("table row index out of range");
    }
    return entries.GetAll()[static_cast<std::size_t>(index)];
}

void CMaterialTable::SetSingleValue(double value)
{
    entries.Release(*resource);
    AddEntry({singleValueFrequency, value});
}

void CMaterialTable::AddEntriesOf(const CMaterialTable& other)
{
    for (const MLTBLENTRY& entry : other.GetEntries())
    {
        AddEntry(entry);
    }
}

void CMaterialTable::AddCachedValue(double frequency, double value)
{
    if (std::isnan(frequency)) // equal to nothing, so it would never be found
    {
        return;
    }
    if (cache == nullptr)
    {
        void* const storage = resource->allocate(sizeof *cache, alignof(CCompactArray<MLTBLENTRY>));
        cache = ::new (storage) CCompactArray<MLTBLENTRY>();
    }
    cache->Append(*resource, {frequency, value});
}

std::optional<double> CMaterialTable::FindCachedValue(double frequency) const noexcept
{
    return cache != nullptr ? FindLastAt(cache->GetAll(), frequency) : std::nullopt;
}

std::optional<double> CMaterialTable::FindEntryValue(double frequency) const noexcept
{
    return FindLastAt(entries.GetAll(), frequency);
}
