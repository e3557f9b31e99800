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

// Not inline: where a compiler knows that the rows are few it copies them by an instruction that takes long
// to start.
void CMaterialTable::AddEntries(std::span<const MLTBLENTRY> rows)
{
    entries.Append(*arena, rows);
}
