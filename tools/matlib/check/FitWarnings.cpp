#include "tools/matlib/Wording.h"
#include "tools/matlib/check/CWarnings.h"
#include "tools/matlib/check/FindWarnings.h"
#include "tools/matlib/check/Rules.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr double leastFitFrequency = 1e4; // Hz; losses below do not enter the model
constexpr double sameTemperature = 0.1;   // °C; nearer tables belong together

// The table of that kind which the library takes for the temperature, or null.
const ParsedTable* FindTable(const ParsedMaterial& material, MLTABLEKIND kind, double temperature)
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

std::vector<MLTBLENTRY> ValuesOf(const ParsedTable& table)
{
    std::vector<MLTBLENTRY> values(table.rows.size());
    std::ranges::transform(table.rows, values.begin(), &ParsedRow::values);
    return values;
}

bool HasEnoughForFit(const ParsedTable& lossTangent)
{
    const auto first = std::ranges::find_if(lossTangent.rows, [](const ParsedRow& row)
                                            { return row.values.frequency >= leastFitFrequency; });
    return std::distance(first, lossTangent.rows.end()) >= 2;
}

// Whether Er rises from one row to the next, by frequency.
void CheckRise(CWarnings& warnings, const ParsedTable& er)
{
    std::vector<const ParsedRow*> ascending;
    ascending.reserve(er.rows.size());
    std::ranges::transform(er.rows, std::back_inserter(ascending), [](const ParsedRow& row) { return &row; });
    const auto frequencyOf = [](const ParsedRow* row) { return row->values.frequency; };
    if (!std::ranges::is_sorted(ascending, {}, frequencyOf))
    {
        std::ranges::stable_sort(ascending, {}, frequencyOf);
    }
    const auto rises = std::ranges::adjacent_find(
        ascending, [](const ParsedRow* low, const ParsedRow* high)
        { return low->values.frequency < high->values.frequency && low->values.value < high->values.value; });
    if (rises == ascending.end())
    {
        return;
    }
    const auto& [lowAt, low] = rises[0]->values;
    const auto& [highAt, high] = rises[1]->values;
    warnings.Add(rises[1]->frequency, rule::erRising,
                 "Er rises from " + FormatNumber(low) + " at " + FormatFrequency(lowAt) + " to " +
                     FormatNumber(high) + " at " + FormatFrequency(highAt) +
                     ". That of a real laminate falls, and no causal model follows a rise.");
}

void WarnOfSum(CWarnings& warnings, const ParsedTable& er)
{
    double sum = 0.0;
    for (const ParsedRow& row : er.rows)
    {
        sum += row.values.value;
    }
    const bool rises = er.rows.front().values.value < er.rows.back().values.value;
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
    const ParsedRow& row = er.rows[missed.index];
    const double error = std::abs(missed.modelled / row.values.value - 1.0) * 100.0;
    warnings.Add(row.frequency, rule::fitMissesRows,
                 "The model of these rows gives an Er of " + FormatNumber(missed.modelled) + " at " +
                     FormatFrequency(row.values.frequency) + ", where the row says " +
                     FormatNumber(row.values.value) + ": " + FormatRounded(error) +
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
    const FitVerdict& verdict = fits.Judge(ValuesOf(er), ValuesOf(loss));
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

void CheckTable(CWarnings& warnings, const ParsedMaterial& material, const ParsedTable& table,
                CFitCheck& fits)
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
        table.rows, {}, [](const ParsedRow& row) { return std::abs(row.values.frequency - reference); });
    return nearest == table.rows.end() ? 1.0 : nearest->values.value;
}

void CheckBetween(CWarnings& warnings, const ParsedMaterial& material, const ParsedBetween& between)
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

void CheckFits(CWarnings& warnings, const ParsedMaterial& material, CFitCheck& fits)
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
