#include "model/CMaterialTable.h"

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

void CMaterialTable::AddEntries(std::span<const MLTBLENTRY> rows)
{
    entries.Append(*arena, rows);
}
