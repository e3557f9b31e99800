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
inline constexpr std::string_view name = "NAME";
inline constexpr std::string_view type = "TYPE";
inline constexpr std::string_view technology = "TECHNOLOGY";
inline constexpr std::string_view vendor = "VENDOR";
inline constexpr std::string_view comment = "COMMENT";
inline constexpr std::string_view thickness = "THICKNESS";
inline constexpr std::string_view resistivity = "RB";
inline constexpr std::string_view er = "ER";
inline constexpr std::string_view lossTangent = "LOSSTANGENT";
inline constexpr std::string_view roughTop = "ROUGHTOP";
inline constexpr std::string_view roughBottom = "ROUGHBTM";
inline constexpr std::string_view table = "TABLE";
inline constexpr std::string_view temperature = "TEMPERATURE";
inline constexpr std::string_view value = "VALUE";
} // namespace keyword

// The keys of the records of a dielectric or a metal.
[[nodiscard]] std::vector<std::string_view> ListKeys(MLMATERIALKIND kind);
