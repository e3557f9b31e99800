#include "model/CMaterialTable.h"

#include "model/PropertyAnswers.h"

#include <cmath>
#include <stdexcept>

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
    return cache != nullptr ? FindRowValue(cache->GetAll(), frequency) : std::nullopt;
}
