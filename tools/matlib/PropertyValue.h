#pragma once

#include "MaterialLibrary/MLTypes.h"

#include <optional>
#include <string>

class IMaterial;

// Properties of materials at a frequency (Hz) and a temperature (°C).

// The property's value; nothing when the material has no tables for it. Throws CFailure when the tables
// allow no dielectric model.
[[nodiscard]] std::optional<double> FindValue(IMaterial& material, MLTABLEKIND property, double frequency,
                                              double temperature);

// Why FindValue finds nothing: a sentence for the user.
[[nodiscard]] std::string ExplainMissingValue(const IMaterial& material, MLTABLEKIND property);
