#include "MaterialLibrary/model/CMaterialTable.h"

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
    cache.Release(*resource);
    entries.Release(*resource);
}

const MLTBLENTRY& CMaterialTable::GetEntry(int index) const
{
    if (!entries.IsIndex(index))
    {
        throw std::invalid_argument("table row index out of range");
    }
    return entries[index];
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
    if (!std::isnan(frequency)) // equal to nothing, so it would never be found
    {
        cache.Append(*resource, {frequency, value});
    }
}

std::optional<double> CMaterialTable::FindCachedValue(double frequency) const noexcept
{
    return FindLastAt(cache.GetAll(), frequency);
}

std::optional<double> CMaterialTable::FindEntryValue(double frequency) const noexcept
{
    return FindLastAt(entries.GetAll(), frequency);
}
