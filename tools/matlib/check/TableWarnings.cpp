#include "reader/Keywords.h"
#include "shared/Misc_String/Decimal.h"
#include "tools/matlib/NearestNames.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/check/CWarnings.h"
#include "tools/matlib/check/MaterialWarnings.h"
#include "tools/matlib/check/Rules.h"

#include <algorithm>
#include <map>

namespace
{
constexpr double leastEr = 1.0;
constexpr double mostEr = 50.0;
constexpr double mostLossTangent = 0.2;
constexpr double bandStart = 1e6; // Hz; what "matlib sweep" and "matlib plot" show without a range
constexpr double bandEnd = 2e10;

bool IsPrefix(char c)
{
    return c == 'G' || c == 'M' || c == 'k' || c == 'K' || c == 'T';
}

// Whether the unit is read as it looks: "1ghz" is 1 Hz to the reader and "5m" 5 mHz, while "1GHZ" is 1 GHz.
bool HasPlainUnit(std::string_view frequency)
{
    std::string_view unit = frequency;
    while (!unit.empty() && decimal::IsDigit(unit.front()))
    {
        unit.remove_prefix(1);
    }
    if (unit == frequency || unit.starts_with('.') ||
        (!unit.empty() && decimal::IsExponentLetter(unit.front())))
    {
        const DecimalResult number = ParseDecimal(frequency);
        if (number.verdict == DecimalVerdict::None)
        {
            return false;
        }
        unit = frequency.substr(static_cast<std::size_t>(number.stop - frequency.data()));
    }
    if (!unit.empty() && IsPrefix(unit.front()))
    {
        unit.remove_prefix(1);
    }
    return unit.empty() || unit == "Hz" || EqualIgnoringCase(unit, "Hz");
}

void CheckFrequencyWords(CWarnings& warnings, const ParsedTable& table)
{
    const auto odd = std::ranges::find_if(table.words, [](std::string_view word)
                                          { return word != keyword::value && !HasPlainUnit(word); });
    if (odd == table.words.end())
    {
        return;
    }
    const MLTBLENTRY& row = table.rows[static_cast<std::size_t>(odd - table.words.begin())];
    const std::string readAs =
        Quote(*odd) + " is read as a frequency of " + FormatNumber(row.frequency) + " Hz. ";
    if (odd->find(',') != std::string_view::npos)
    {
        warnings.Add(*odd, rule::decimalComma,
                     readAs + "The decimal sign is a point; rows are separated by blanks.");
    }
    else
    {
        warnings.Add(*odd, rule::frequencyUnit,
                     readAs + "Units are Hz, kHz, MHz, GHz and THz, in this letter case.");
    }
}

// The word of one of the table's rows.
template <class Row>
std::string_view WordOf(const ParsedTable& table, Row row)
{
    return table.words[static_cast<std::size_t>(row - table.rows.begin())];
}

void CheckOrder(CWarnings& warnings, const ParsedTable& table)
{
    const auto notBehind = [](const MLTBLENTRY& first, const MLTBLENTRY& second)
    { return second.frequency <= first.frequency; };
    if (std::ranges::adjacent_find(table.rows, notBehind) == table.rows.end())
    {
        return;
    }
    const auto falls =
        std::ranges::adjacent_find(table.rows, [](const MLTBLENTRY& first, const MLTBLENTRY& second)
                                   { return second.frequency < first.frequency; });
    if (falls != table.rows.end())
    {
        warnings.Add(WordOf(table, falls + 1), rule::frequencyOrder,
                     FormatFrequency(falls[1].frequency) + " stands behind " +
                         FormatFrequency(falls[0].frequency) + ". The model expects ascending frequencies.");
    }
    std::map<double, std::string_view> seen;
    for (auto row = table.rows.begin(); row != table.rows.end(); ++row)
    {
        const auto [first, isNew] = seen.emplace(row->frequency, WordOf(table, row));
        if (!isNew)
        {
            warnings.Add(WordOf(table, row), rule::frequencyRepeated,
                         "There is a row for " + FormatFrequency(row->frequency) +
                             " already. The last one counts.",
                         first->second, "This is the row before.");
            return;
        }
    }
}

void CheckFrequencies(CWarnings& warnings, const ParsedTable& table)
{
    const auto notPositive =
        std::ranges::find_if(table.rows, [](const MLTBLENTRY& row) { return !(row.frequency > 0.0); });
    if (notPositive != table.rows.end())
    {
        warnings.Add(WordOf(table, notPositive), rule::frequencyRange, "The frequency is not above 0.");
    }
    const bool isInBand =
        std::ranges::any_of(table.rows, [](const MLTBLENTRY& row)
                            { return row.frequency >= bandStart && row.frequency <= bandEnd; });
    if (!isInBand && !table.rows.empty())
    {
        warnings.Add(table.key, rule::noRowsInBand,
                     std::string(table.key) +
                         " has no row from 1 MHz to 20 GHz, where boards are used. The first "
                         "is at " +
                         FormatFrequency(table.rows.front().frequency) + ", the last at " +
                         FormatFrequency(table.rows.back().frequency) + ".");
    }
}

void CheckEr(CWarnings& warnings, const ParsedTable& table)
{
    const auto odd = std::ranges::find_if(table.rows, [](const MLTBLENTRY& row)
                                          { return !(row.value >= leastEr && row.value <= mostEr); });
    if (odd != table.rows.end())
    {
        warnings.Add(WordOf(table, odd), rule::erRange,
                     "An Er of " + FormatNumber(odd->value) +
                         (odd->value > mostEr ? " is more than circuit boards are made of."
                                              : " is below 1, which no laminate has."));
    }
}

void CheckLossTangent(CWarnings& warnings, const ParsedTable& table)
{
    const auto odd = std::ranges::find_if(table.rows, [](const MLTBLENTRY& row)
                                          { return !(row.value >= 0.0 && row.value <= mostLossTangent); });
    if (odd != table.rows.end())
    {
        warnings.Add(WordOf(table, odd), rule::lossTangentRange,
                     "A loss tangent of " + FormatNumber(odd->value) +
                         (odd->value < 0.0 ? " is negative: a gain."
                                           : " is more than circuit boards have; 2% is written 0.02."));
    }
}
} // namespace

void CheckRows(CWarnings& warnings, const ParsedTable& table)
{
    CheckFrequencyWords(warnings, table);
    CheckOrder(warnings, table);
    CheckFrequencies(warnings, table);
    if (table.kind == MLTABLE_ER)
    {
        CheckEr(warnings, table);
    }
    else if (table.kind == MLTABLE_LOSS_TANGENT)
    {
        CheckLossTangent(warnings, table);
    }
}
