#pragma once
// What a material's tables say of a temperature and a frequency. Nothing is written or kept, so any number of
// questions can be asked of the same tables at a time; CMaterial adds the tables and values that it keeps.

#include "model/CMaterialTable.h"

#include <vector>

using MaterialTables = std::span<CMaterialTable* const>;

[[nodiscard]] bool IsRoughness(int tableKind);

// Er and loss tangent at a frequency come from one model of both.
[[nodiscard]] bool IsModelled(int tableKind);

// The table of the kind for a temperature in °C, or null. Er, loss tangent: the nearest one less than 0.1 °C
// away, the last of equally near ones. Roughness: the last one.
[[nodiscard]] CMaterialTable* FindTable(MaterialTables tables, int tableKind, double temperature);

// How the rows for a temperature came about.
enum class TemperatureSource
{
    own,     // a table is for that temperature, or there is none at all
    nearest, // those of the nearest table: all are above the temperature or all below
    between  // a single one at 1 GHz made from the nearest tables above and below
};

struct RowsForTemperature
{
    std::vector<MLTBLENTRY> rows;
    TemperatureSource source = TemperatureSource::own;
};

// The rows of a table of Er or loss tangent at a temperature that none is for.
[[nodiscard]] RowsForTemperature DeriveRows(MaterialTables tables, int tableKind, double temperature);

// The value of the last row at exactly this frequency.
[[nodiscard]] std::optional<double> FindRowValue(std::span<const MLTBLENTRY> rows, double frequency);

// The rows nearest to a frequency on both sides, the first of equally near ones; null where there is none.
struct RowsAround
{
    const MLTBLENTRY* below = nullptr;
    const MLTBLENTRY* above = nullptr;
};
[[nodiscard]] RowsAround FindRowsAround(std::span<const MLTBLENTRY> rows, double frequency);

// The roughness factor at a frequency without a row, and the frequency for which a host gets that value from
// then on: below the first row it is the first row's. `rows` must not be empty.
[[nodiscard]] MLTBLENTRY InterpolateRoughness(std::span<const MLTBLENTRY> rows, double frequency);
