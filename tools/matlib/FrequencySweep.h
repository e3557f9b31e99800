#pragma once

#include "tools/matlib/Options.h"

#include <array>
#include <vector>

class IMaterial;

// The two properties of a material that depend on frequency.
using SweptProperties = std::array<MLTABLEKIND, 2>;
inline constexpr SweptProperties dielectricProperties = {MLTABLE_ER, MLTABLE_LOSS_TANGENT};
inline constexpr SweptProperties metalProperties = {MLTABLE_ROUGHNESS_TOP, MLTABLE_ROUGHNESS_BOTTOM};
[[nodiscard]] const SweptProperties& PropertiesOf(const IMaterial& material);

// The frequencies of a sweep in Hz, ascending; the first and the last are exactly the ends of the range.
[[nodiscard]] std::vector<double> ListFrequencies(const Options& options);
