#pragma once

#include "MaterialLibrary/IMaterial.h"
#include "MaterialLibrary/IMaterialTable.h"

#include <optional>
#include <vector>

// What a material holds, read without asking it for values: GetTable and GetValue add tables to it that
// are in no file.

// The attribute in SI units; nothing when the material has none.
[[nodiscard]] std::optional<double> FindAttribute(const IMaterial& material, MLATTRIBID id);

// Every table, in the order of the file.
[[nodiscard]] std::vector<const IMaterialTable*> ListTables(IMaterial& material);

// The different temperatures of the tables in °C, ascending.
[[nodiscard]] std::vector<double> ListTemperatures(IMaterial& material);

// Lengths in metres as users see them.
[[nodiscard]] constexpr double ToMicrometres(double metres)
{
    return metres * 1e6;
}
[[nodiscard]] constexpr double ToMils(double metres)
{
    return metres * 39370.078740157485;
}
