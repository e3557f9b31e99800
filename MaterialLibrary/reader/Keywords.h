#pragma once

#include "MaterialLibrary/MLTypes.h"

#include <string_view>
#include <vector>

// The words of a material file.
namespace keyword
{
inline constexpr std::string_view matFile = "MAT_FILE";
inline constexpr std::string_view version = "VERSION";
inline constexpr std::string_view dielectric = "DIELECTRIC";
inline constexpr std::string_view metal = "METAL";
inline constexpr std::string_view table = "TABLE";
inline constexpr std::string_view temperature = "TEMPERATURE";
inline constexpr std::string_view value = "VALUE";
} // namespace keyword

// The keys of the records of a dielectric or a metal.
[[nodiscard]] std::vector<std::string_view> ListKeys(MLMATERIALKIND kind);
