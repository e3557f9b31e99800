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
    entries.Release(*arena);
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
        cache = &arena->Make<CCompactArray<MLTBLENTRY>>();
    }
    cache->Append(*arena, {frequency, value});
}

std::optional<double> CMaterialTable::FindCachedValue(double frequency) const noexcept
{
    return cache != nullptr ? FindLastAt(cache->GetAll(), frequency) : std::nullopt;
}

std::optional<double> CMaterialTable::FindEntryValue(double frequency) const noexcept
{
    return FindLastAt(entries.GetAll(), frequency);
}
