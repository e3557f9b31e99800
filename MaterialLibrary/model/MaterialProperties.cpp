// How a material answers for a property at a frequency and a temperature: which table, and which value.
#include "dielectric/CWidebandDebyeModel.h"
#include "model/CMaterial.h"
#include "shared/ModuleState/CModuleState.h"

#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace
{
constexpr double temperatureTolerance = 0.1; // °C
constexpr double referenceFrequency = 1.0e9; // Hz, where temperatures are interpolated
constexpr double failedFit = -1.0;           // the value where no model can be fitted
constexpr double valueOfEmptyNeighbour = 1.0;

bool IsRoughness(int tableKind)
{
    return tableKind == MLTABLE_ROUGHNESS_TOP || tableKind == MLTABLE_ROUGHNESS_BOTTOM;
}

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
Neighbours FindNeighbours(std::span<CMaterialTable* const> tables, int tableKind, double temperature)
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

// The roughness factor at a frequency without a row, from the rows around it, kept with the table.
double InterpolateRoughness(CMaterialTable& table, double frequency)
{
    const auto rows = table.GetEntries();
    MLTBLENTRY above = rows.front();
    MLTBLENTRY below = rows.front();
    double nearestAbove = std::numeric_limits<double>::max();
    double nearestBelow = std::numeric_limits<double>::max();
    for (const MLTBLENTRY& row : rows)
    {
        if (row.frequency > frequency && row.frequency - frequency < nearestAbove)
        {
            nearestAbove = row.frequency - frequency;
            above = row;
        }
        else if (row.frequency < frequency && frequency - row.frequency < nearestBelow)
        {
            nearestBelow = frequency - row.frequency;
            below = row;
        }
    }
    if (above.frequency == below.frequency)
    {
        table.AddCachedValue(above.frequency, above.value);
        return above.value;
    }
    // The lower row's value is not added; hosts rely on it.
    const double value =
        (above.value - below.value) / (above.frequency - below.frequency) * (frequency - below.frequency);
    table.AddCachedValue(frequency, value);
    return value;
}

// The rows of one table as the dielectric model takes them.
struct Columns
{
    explicit Columns(const CMaterialTable& table, std::pmr::memory_resource& resource)
        : frequencies(&resource), values(&resource)
    {
        const auto rows = table.GetEntries();
        frequencies.reserve(rows.size());
        values.reserve(rows.size());
        for (const MLTBLENTRY& row : rows)
        {
            frequencies.push_back(row.frequency);
            values.push_back(row.value);
        }
    }

    [[nodiscard]] int GetCount() const { return static_cast<int>(values.size()); }

    std::pmr::vector<double> frequencies;
    std::pmr::vector<double> values;
};
} // namespace

CMaterialTable* CMaterial::FindTable(int tableKind, double temperature) const
{
    CMaterialTable* nearest = nullptr;
    double tolerance = temperatureTolerance;
    const auto all = tables.GetAll();
    for (auto it = all.rbegin(); it != all.rend(); ++it)
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

CMaterialTable& CMaterial::DeriveTable(int tableKind, double temperature)
{
    auto& derived = arena->Make<CMaterialTable>(*arena, tableKind);
    const auto [lower, upper] = FindNeighbours(tables.GetAll(), tableKind, temperature);
    if (lower != nullptr && upper != nullptr)
    {
        derived.AddEntry({referenceFrequency, InterpolateTemperature(*lower, *upper, temperature)});
    }
    else if (lower != nullptr || upper != nullptr)
    {
        derived.AddEntriesOf(lower != nullptr ? *lower : *upper);
    }
    derived.SetTemperature(temperature);
    return AppendTable(derived);
}

CMaterialTable* CMaterial::FindOrDeriveTable(int tableKind, double temperature)
{
    if (CMaterialTable* const table = FindTable(tableKind, temperature))
    {
        return table;
    }
    const bool derivable = tableKind == MLTABLE_ER || tableKind == MLTABLE_LOSS_TANGENT;
    return derivable && kind == MLMATERIAL_DIELECTRIC ? &DeriveTable(tableKind, temperature) : nullptr;
}

IMaterialTable* CMaterial::GetTable(int tableKind, double temperature)
{
    const CModuleStateScope scope;
    return FindOrDeriveTable(tableKind, temperature);
}

double CMaterial::FitDielectricValue(CMaterialTable& permittivityTable, CMaterialTable& lossTable,
                                     int tableKind, double frequency)
{
    std::array<std::byte, 4096> buffer; // enough for ordinary tables
    std::pmr::monotonic_buffer_resource scratch(buffer.data(), buffer.size());
    const Columns permittivity(permittivityTable, scratch);
    const Columns loss(lossTable, scratch);

    CWidebandDebyeModel model;
    if (model.PrepareData(permittivity.GetCount(), permittivity.frequencies.data(),
                          permittivity.values.data(), loss.GetCount(), loss.frequencies.data(),
                          loss.values.data()) == 1)
    {
        model.Fit();
    }
    double real = 0.0;
    double imaginary = 0.0;
    if (model.Evaluate(frequency, real, imaginary) != 1)
    {
        return failedFit;
    }
    const double lossTangent = -imaginary / real;
    permittivityTable.AddCachedValue(frequency, real);
    lossTable.AddCachedValue(frequency, lossTangent);
    return tableKind == MLTABLE_ER ? real : lossTangent;
}

void CMaterial::GetValue(int tableKind, double frequency, double* value, double temperature)
{
    CMaterialTable* const table = FindOrDeriveTable(tableKind, temperature);
    if (table == nullptr)
    {
        return;
    }
    if (const auto cached = table->FindCachedValue(frequency))
    {
        *value = *cached;
        return;
    }
    if (const auto measured = table->FindEntryValue(frequency))
    {
        *value = *measured;
        return;
    }
    if (IsRoughness(tableKind))
    {
        if (table->GetEntryCount() > 0)
        {
            *value = InterpolateRoughness(*table, frequency);
        }
        return;
    }
    if (tableKind != MLTABLE_ER && tableKind != MLTABLE_LOSS_TANGENT)
    {
        return;
    }
    CMaterialTable* const permittivity =
        tableKind == MLTABLE_ER ? table : FindOrDeriveTable(MLTABLE_ER, temperature);
    CMaterialTable* const loss =
        tableKind == MLTABLE_LOSS_TANGENT ? table : FindOrDeriveTable(MLTABLE_LOSS_TANGENT, temperature);
    if (permittivity == nullptr || loss == nullptr || permittivity->GetEntryCount() == 0 ||
        loss->GetEntryCount() == 0)
    {
        return;
    }
    if (!permittivity->HasSeveralEntries() && !loss->HasSeveralEntries())
    {
        *value = table->GetFirstValue();
        return;
    }
    *value = FitDielectricValue(*permittivity, *loss, tableKind, frequency);
}

CMaterialTable& CMaterial::NeedTable(int tableKind, double temperature)
{
    if (CMaterialTable* const table = FindOrDeriveTable(tableKind, temperature))
    {
        return *table;
    }
    // Only a material that is no dielectric comes here.
    auto& table = arena->Make<CMaterialTable>(*arena, tableKind);
    table.SetTemperature(temperature);
    return AppendTable(table);
}

void CMaterial::AddDielectricPoint(double frequency, double permittivity, double lossTangent,
                                   double temperature)
{
    CMaterialTable& permittivityTable = NeedTable(MLTABLE_ER, temperature);
    CMaterialTable& lossTable = NeedTable(MLTABLE_LOSS_TANGENT, temperature);
    permittivityTable.AddEntry({frequency, permittivity});
    lossTable.AddEntry({frequency, lossTangent});
}
