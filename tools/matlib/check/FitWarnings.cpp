#include "tools/matlib/Wording.h"
#include "tools/matlib/check/CWarnings.h"
#include "tools/matlib/check/MaterialWarnings.h"
#include "tools/matlib/check/Rules.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr double leastFitFrequency = 1e4; // Hz; losses below do not enter the model
constexpr double sameTemperature = 0.1;   // °C; nearer tables belong together

// The table of that kind which the library takes for the temperature, or null.
const ParsedTable* FindTable(const ParsedTables& material, MLTABLEKIND kind, double temperature)
{
    const ParsedTable* nearest = nullptr;
    double distance = sameTemperature;
    for (auto table = material.tables.rbegin(); table != material.tables.rend(); ++table)
    {
        if (table->kind == kind && std::abs(table->temperature - temperature) < distance)
        {
            distance = std::abs(table->temperature - temperature);
            nearest = &*table;
        }
    }
    return nearest;
}

bool HasEnoughForFit(const ParsedTable& lossTangent)
{
    const auto first = std::ranges::find_if(lossTangent.rows, [](const MLTBLENTRY& row)
                                            { return row.frequency >= leastFitFrequency; });
    return std::distance(first, lossTangent.rows.end()) >= 2;
}

// Whether Er rises from one row to the next, by frequency.
void CheckRise(CWarnings& warnings, const ParsedTable& er)
{
    std::vector<const MLTBLENTRY*> ascending;
    ascending.reserve(er.rows.size());
    std::ranges::transform(er.rows, std::back_inserter(ascending),
                           [](const MLTBLENTRY& row) { return &row; });
    const auto frequencyOf = [](const MLTBLENTRY* row) { return row->frequency; };
    if (!std::ranges::is_sorted(ascending, {}, frequencyOf))
    {
        std::ranges::stable_sort(ascending, {}, frequencyOf);
    }
    const auto rises =
        std::ranges::adjacent_find(ascending, [](const MLTBLENTRY* low, const MLTBLENTRY* high)
                                   { return low->frequency < high->frequency && low->value < high->value; });
    if (rises == ascending.end())
    {
        return;
    }
    const auto& [lowAt, low] = *rises[0];
    const auto& [highAt, high] = *rises[1];
    const auto index = static_cast<std::size_t>(rises[1] - er.rows.data());
    warnings.Add(er.words[index], rule::erRising,
                 "Er rises from " + FormatNumber(low) + " at " + FormatFrequency(lowAt) + " to " +
                     FormatNumber(high) + " at " + FormatFrequency(highAt) +
                     ". That of a real laminate falls, and no causal model follows a rise.");
}

void WarnOfSum(CWarnings& warnings, const ParsedTable& er)
{
    double sum = 0.0;
    for (const MLTBLENTRY& row : er.rows)
    {
        sum += row.value;
    }
    const bool rises = er.rows.front().value < er.rows.back().value;
    warnings.Add(
        er.key, rule::erRisesSum,
        std::string(rises ? "Over all its rows Er rises" : "Er is no falling line that stays positive") +
            ". The library then takes the sum of the rows for the permittivity: about " + FormatNumber(sum) +
            " between them.");
}

// With one digit behind the point.
std::string FormatRounded(double value)
{
    return FormatNumber(std::round(value * 10.0) / 10.0);
}

void WarnOfMiss(CWarnings& warnings, const ParsedTable& er, const MissedRow& missed)
{
    const MLTBLENTRY& row = er.rows[missed.index];
    const double error = std::abs(missed.modelled / row.value - 1.0) * 100.0;
    warnings.Add(er.words[missed.index], rule::fitMissesRows,
                 "The model of these rows gives an Er of " + FormatNumber(missed.modelled) + " at " +
                     FormatFrequency(row.frequency) + ", where the row says " + FormatNumber(row.value) +
                     ": " + FormatRounded(error) +
                     " per cent off. Er and loss tangent do not belong together, or a row is wrong.");
}

// Whether Er and loss tangent of a temperature answer between their rows, and with what.
void CheckPair(CWarnings& warnings, const ParsedTable& er, const ParsedTable& loss, CFitCheck& fits)
{
    if (er.rows.empty() || loss.rows.empty() || (er.rows.size() == 1 && loss.rows.size() == 1))
    {
        return;
    }
    if (!HasEnoughForFit(loss))
    {
        warnings.Add(
            loss.key, rule::noFit,
            "LOSSTANGENT has fewer than two rows above 10 kHz. No model can be fitted: there are values at "
            "the rows only.");
        return;
    }
    const FitVerdict& verdict = fits.Judge(er.rows, loss.rows);
    if (!verdict.hasModel)
    {
        warnings.Add(
            er.key, rule::noFit,
            "No model can be fitted to these rows and those of LOSSTANGENT: there are values at the rows "
            "only.");
    }
    else if (verdict.takesSum)
    {
        WarnOfSum(warnings, er);
    }
    else if (verdict.worst)
    {
        WarnOfMiss(warnings, er, *verdict.worst);
    }
}

void CheckTable(CWarnings& warnings, const ParsedTables& material, const ParsedTable& table, CFitCheck& fits)
{
    const bool isEr = table.kind == MLTABLE_ER;
    const ParsedTable* const other =
        FindTable(material, isEr ? MLTABLE_LOSS_TANGENT : MLTABLE_ER, table.temperature);
    if (table.rows.empty())
    {
        warnings.Add(table.key, rule::noFit, std::string(table.key) + " has neither TABLE nor VALUE.");
    }
    else if (other == nullptr)
    {
        warnings.Add(table.key, rule::noFit,
                     std::string(table.key) + " has no " + (isEr ? "LOSSTANGENT" : "ER") +
                         " of the same temperature, " + FormatNumber(table.temperature) +
                         " C, beside it. Values between the rows need both.");
    }
    if (isEr)
    {
        CheckRise(warnings, table);
        if (other != nullptr)
        {
            CheckPair(warnings, table, *other, fits);
        }
    }
}

// The value of the row nearest to 1 GHz, which stands for a table between temperatures.
double StandIn(const ParsedTable& table)
{
    constexpr double reference = 1e9;
    const auto nearest = std::ranges::min_element(
        table.rows, {}, [](const MLTBLENTRY& row) { return std::abs(row.frequency - reference); });
    return nearest == table.rows.end() ? 1.0 : nearest->value;
}

void CheckBetween(CWarnings& warnings, const ParsedTables& material, const ParsedBetween& between)
{
    const ParsedTable* lower = nullptr;
    const ParsedTable* upper = nullptr;
    for (const ParsedTable& table : material.tables)
    {
        if (table.kind != between.kind)
        {
            continue;
        }
        if (table.temperature < between.temperature &&
            (lower == nullptr || table.temperature >= lower->temperature))
        {
            lower = &table;
        }
        if (table.temperature > between.temperature &&
            (upper == nullptr || table.temperature <= upper->temperature))
        {
            upper = &table;
        }
    }
    if (lower == nullptr || upper == nullptr)
    {
        return;
    }
    const auto [least, most] = std::minmax({StandIn(*lower), StandIn(*upper)});
    if (!(between.value >= least && between.value <= most))
    {
        warnings.Add(upper->key, rule::temperatureBetween,
                     "At " + FormatNumber(between.temperature) + " C, between " +
                         FormatNumber(lower->temperature) + " C and " + FormatNumber(upper->temperature) +
                         " C, the library gives " + FormatNumber(between.value) +
                         " at every frequency, which is not between " + FormatNumber(least) + " and " +
                         FormatNumber(most) + ". Give a table for each temperature that a host asks for.",
                     lower->key, "This is the table of the lower temperature.");
    }
}
} // namespace

void CheckFits(CWarnings& warnings, const ParsedTables& material, CFitCheck& fits)
{
    for (const ParsedTable& table : material.tables)
    {
        CheckTable(warnings, material, table, fits);
    }
    MLTABLEKIND last = MLTABLE_ROUGHNESS_TOP;
    for (const ParsedBetween& between : material.betweens)
    {
        if (between.kind != last)
        {
            CheckBetween(warnings, material, between);
            last = between.kind;
        }
    }
}
