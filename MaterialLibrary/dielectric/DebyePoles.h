#pragma once

#include "dielectric/CWidebandDebyeModel.h"

// A single Debye relaxation: delta / (1 + j f / frequency).
struct DebyePole
{
    double frequency; // Hz, where its loss is largest
    double deltaEps;
};

// The model's terms as single relaxations, `perDecade` (1 or more) of them for each decade of a term. Those
// of a term add up to its step.
[[nodiscard]] std::vector<DebyePole> ExpandIntoPoles(const CWidebandDebyeModel& model, int perDecade);

// The largest |difference| / |permittivity| between the model and the poles in its terms' place, over a band
// of frequencies (Hz) above 0.
[[nodiscard]] double FindWorstError(const CWidebandDebyeModel& model, std::span<const DebyePole> poles,
                                    double lowest, double highest);
