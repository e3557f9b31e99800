#pragma once

#include "model/PropertyAnswers.h"

#include <cstdint>

class CMaterial;

// One property of a material at one temperature, in °C, for many frequencies, in Hz, with one fit for all of
// them. Nothing is kept, so any number of threads may ask at a time.
struct BulkQuestion
{
    int tableKind;
    double temperature;
    bool modelEverywhere;   // Er and loss tangent never from a row
    bool straightRoughness; // roughness factors on the straight line between rows
    std::span<const double> frequencies;
};

// The public header's code for how a temperature's rows came about.
[[nodiscard]] unsigned StatusOf(TemperatureSource source);

// Without the flags each value is the one that CMaterial::GetValue gives where nothing was asked before, NaN
// where that leaves its output alone. `status` may be null; what is written there are the public header's
// codes. Both have room for an answer to each frequency. Throws std::bad_alloc before anything is written.
void AnswerAll(const CMaterial& material, const BulkQuestion& question, double* values, std::uint8_t* status);
