#include "tools/matlib/import/DescribeBasis.h"

#include "tools/matlib/Wording.h"

#include <algorithm>

namespace
{
std::string CountFrequencies(const MeasuredTable& table)
{
    if (table.isConstant)
    {
        return "one value without a frequency";
    }
    const std::string first = FormatFrequency(table.frequencies.front());
    if (table.frequencies.size() == 1)
    {
        return "one point, at " + first;
    }
    return std::to_string(table.frequencies.size()) + " points, from " + first + " to " +
           FormatFrequency(table.frequencies.back());
}

std::string DescribeTables(std::span<const MeasuredTable> tables)
{
    std::string text;
    for (std::size_t i = 0; i < tables.size(); ++i)
    {
        const bool isAlike = i + 1 < tables.size() && tables[i].frequencies == tables[i + 1].frequencies &&
                             tables[i].isConstant == tables[i + 1].isConstant;
        text +=
            std::string(WordsOf(tables[i].kind).record) +
            (isAlike ? " and " : ": " + CountFrequencies(tables[i]) + (i + 1 < tables.size() ? "; " : "."));
    }
    return text;
}

std::size_t CountRows(std::span<const MeasuredTable> tables, MLTABLEKIND kind)
{
    const auto found = std::ranges::find(tables, kind, &MeasuredTable::kind);
    return found == tables.end() ? 0 : found->frequencies.size();
}

std::vector<std::string> DescribeLaminate(std::span<const MeasuredTable> tables)
{
    const std::size_t er = CountRows(tables, MLTABLE_ER);
    const std::size_t loss = CountRows(tables, MLTABLE_LOSS_TANGENT);
    if (er == 0 || loss == 0)
    {
        return {std::string("Without ") + (er == 0 ? "an Er" : "a loss tangent") +
                " the library answers at these points only."};
    }
    if (er == 1 && loss == 1)
    {
        return {
            "The library takes these two values for every frequency. A real laminate's Er falls with",
            "frequency and its loss tangent changes: far from where they were measured they are a guess."};
    }
    if (loss == 1)
    {
        return {
            "With a single loss tangent no model can be fitted: the library answers at these points only."};
    }
    if (er <= 2 || loss <= 2)
    {
        return {"Between these points and beyond them the library answers with a causal model that is fitted",
                "to them. So few points leave it much freedom: between them the loss tangent can be off by a",
                "third, and beyond them nothing was measured."};
    }
    return {};
}

std::vector<std::string> DescribeFoil(std::span<const MeasuredTable> tables)
{
    const bool hasRows =
        std::ranges::any_of(tables, [](const MeasuredTable& table) { return table.frequencies.size() > 1; });
    if (hasRows)
    {
        return {"The library's roughness factors are good at these points and below the first one only:",
                "ask at no others."};
    }
    return {"The library takes these factors for every frequency. A real foil's rise with frequency."};
}
} // namespace

std::vector<std::string> DescribeBasis(std::span<const MeasuredTable> tables, const std::string& temperature)
{
    const bool isFoil =
        tables.front().kind == MLTABLE_ROUGHNESS_TOP || tables.front().kind == MLTABLE_ROUGHNESS_BOTTOM;
    std::vector<std::string> lines = isFoil ? DescribeFoil(tables) : DescribeLaminate(tables);
    lines.insert(lines.begin(), (temperature.empty() ? "" : temperature + ": ") + DescribeTables(tables));
    return lines;
}
