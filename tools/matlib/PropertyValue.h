#pragma once

#include "MaterialLibrary/MLTypes.h"

#include <cstdint>
#include <string>

class IMaterial;

// Why there is no value of a property.

// Why a material that the status ML_NO_DATA was given for has no value: a sentence for the user.
[[nodiscard]] std::string ExplainMissingValue(const IMaterial& material, MLTABLEKIND property);

// Throws CFailure where the tables at a temperature (°C) allow no dielectric model.
void RequireModel(const IMaterial& material, double temperature, std::uint8_t status);

// Throws CFailure, for a material without a model at that temperature (°C).
[[noreturn]] void ExplainMissingModel(IMaterial& material, double temperature);

// Throws CFailure where the status says that there is no value.
void RequireValue(const IMaterial& material, MLTABLEKIND property, double temperature, std::uint8_t status);
