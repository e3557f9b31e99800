#include "model/PropertyAnswers.h"

#include <cmath>
#include <limits>

namespace
{
constexpr double temperatureTolerance = 0.1; // °C
constexpr double referenceFrequency = 1.0e9; // Hz, where temperatures are interpolated
constexpr double valueOfEmptyNeighbour = 1.0;

double TemperatureDistance(double a, double b)
{
    // Infinities have no difference; a derived table must still be found again.
    const bool same = a == b || (std::isnan(a) && std::isnan(b));
    return same ? 0.0 : std::fabs(a - b);
}

// The value of the row nearest to the reference frequency, the later one of two equally near. The table
// must not be empty.
double ValueNearReference(const CMaterialTable& table)
{
    const auto rows = table.GetEntries();
    const MLTBLENTRY* nearest = &rows.back();
    for (auto row = rows.rbegin(); row != rows.rend(); ++row)
    {
        if (std::fabs(row->frequency - referenceFrequency) <
            std::fabs(nearest->frequency - referenceFrequency))
        {
            nearest = &*row;
        }
    }
    return nearest->value;
}

double InterpolateTemperature(const CMaterialTable& lower, const CMaterialTable& upper, double temperature)
{
    double lowerValue = valueOfEmptyNeighbour;
    double upperValue = valueOfEmptyNeighbour;
    if (lower.GetEntryCount() > 0 && upper.GetEntryCount() > 0)
    {
        lowerValue = ValueNearReference(lower);
        upperValue = ValueNearReference(upper);
    }
    // Hosts rely on this ratio, which is the reciprocal of the one a straight line has.
    return (upper.GetTemperature() - lower.GetTemperature()) / (temperature - lower.GetTemperature()) *
               (upperValue - lowerValue) +
           lowerValue;
}

struct Neighbours
{
    const CMaterialTable* lower = nullptr; // the nearest below the temperature
    const CMaterialTable* upper = nullptr; // the nearest above it
};

// Of several tables at one temperature the one added last counts.
Neighbours FindNeighbours(MaterialTables tables, int tableKind, double temperature)
{
    Neighbours found;
    for (auto it = tables.rbegin(); it != tables.rend(); ++it)
    {
        const CMaterialTable* const table = *it;
        if (table->GetTableKind() != tableKind)
        {
            continue;
        }
        const double own = table->GetTemperature();
        if (own < temperature && (found.lower == nullptr || own > found.lower->GetTemperature()))
        {
            found.lower = table;
        }
        if (own > temperature && (found.upper == nullptr || own < found.upper->GetTemperature()))
        {
            found.upper = table;
        }
    }
    return found;
}
} // namespace

bool IsRoughness(int tableKind)
{
    return tableKind == MLTABLE_ROUGHNESS_TOP || tableKind == MLTABLE_ROUGHNESS_BOTTOM;
}

bool IsModelled(int tableKind)
{
    return tableKind == MLTABLE_ER || tableKind == MLTABLE_LOSS_TANGENT;
}

CMaterialTable* FindTable(MaterialTables tables, int tableKind, double temperature)
{
    CMaterialTable* nearest = nullptr;
    double tolerance = temperatureTolerance;
    for (auto it = tables.rbegin(); it != tables.rend(); ++it)
    {
        CMaterialTable* const table = *it;
        if (table->GetTableKind() != tableKind)
        {
            continue;
        }
        if (IsRoughness(tableKind))
        {
            return table;
        }
        const double distance = TemperatureDistance(table->GetTemperature(), temperature);
        if (distance < tolerance)
        {
            tolerance = distance;
            nearest = table;
        }
    }
    return nearest;
}

RowsForTemperature DeriveRows(MaterialTables tables, int tableKind, double temperature)
{
    const auto [lower, upper] = FindNeighbours(tables, tableKind, temperature);
    if (lower != nullptr && upper != nullptr)
    {
        return {{{referenceFrequency, InterpolateTemperature(*lower, *upper, temperature)}},
                TemperatureSource::between};
    }
    const CMaterialTable* const nearest = lower != nullptr ? lower : upper;
    if (nearest == nullptr)
    {
        return {};
    }
    return {{nearest->GetEntries().begin(), nearest->GetEntries().end()}, TemperatureSource::nearest};
}

std::optional<double> FindRowValue(std::span<const MLTBLENTRY> rows, double frequency)
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

RowsAround FindRowsAround(std::span<const MLTBLENTRY> rows, double frequency)
{
    RowsAround around;
    double nearestAbove = std::numeric_limits<double>::max();
    double nearestBelow = std::numeric_limits<double>::max();
    for (const MLTBLENTRY& row : rows)
    {
        if (row.frequency > frequency && row.frequency - frequency < nearestAbove)
        {
            nearestAbove = row.frequency - frequency;
            around.above = &row;
        }
        else if (row.frequency < frequency && frequency - row.frequency < nearestBelow)
        {
            nearestBelow = frequency - row.frequency;
            around.below = &row;
        }
    }
    return around;
}

MLTBLENTRY InterpolateRoughness(std::span<const MLTBLENTRY> rows, double frequency)
{
    const RowsAround around = FindRowsAround(rows, frequency);
    const MLTBLENTRY& above = around.above != nullptr ? *around.above : rows.front();
    const MLTBLENTRY& below = around.below != nullptr ? *around.below : rows.front();
    if (above.frequency == below.frequency)
    {
        return above;
    }
    // The lower row's value is not added; hosts rely on it.
    return {frequency, (above.value - below.value) / (above.frequency - below.frequency) *
                           (frequency - below.frequency)};
}
