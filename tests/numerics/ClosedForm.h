#pragma once

#include "tests/dielectric/PlainFit.h"

#include <cmath>

// One wideband Debye term from 10 kHz to 1 THz in closed form: a standard-loss laminate whose truth is known.
namespace ClosedForm
{
inline constexpr double lowest = 1e6; // the sampled range, Hz
inline constexpr double highest = 1e10;

inline double FrequencyAt(double part)
{
    return lowest * std::pow(highest / lowest, part);
}

inline double Er(double f)
{
    return 3.8 + 0.5 / std::log(1e8) * std::log((1e24 + f * f) / (1e8 + f * f));
}

inline double LossTangent(double f)
{
    return (std::atan(f / 1e4) - std::atan(f / 1e12)) / std::log(1e8) / Er(f);
}

inline PlainLaminate Sample(int points)
{
    PlainLaminate laminate;
    for (int k = 0; k < points; ++k)
    {
        const double f = FrequencyAt(static_cast<double>(k) / (points - 1));
        laminate.erFrequencies.push_back(f);
        laminate.erValues.push_back(Er(f));
        laminate.lossFrequencies.push_back(f);
        laminate.lossValues.push_back(LossTangent(f));
    }
    return laminate;
}
} // namespace ClosedForm
