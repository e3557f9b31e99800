#pragma once

#include <cmath>

// One wideband Debye term: a permittivity step spread evenly over the logarithm of the frequency from f1 to
// f2.
struct MLDEBYETERM
{
    double f1 = 1.0e6;     ///< Lower corner frequency, Hz.
    double f2 = 1.0e10;    ///< Upper corner frequency, Hz.
    double deltaEps = 0.0; ///< The permittivity step.
    double g = 1.0;        ///< 1 / ln(f2 / f1)

    bool operator==(const MLDEBYETERM&) const = default;

    // Contribution to the real part of the permittivity at that frequency (Hz).
    [[nodiscard]] double RealPart(double frequency) const { return RealPartOf(RealLogarithm(frequency)); }

    // What of it depends on the frequency and the corners alone, and the whole with it.
    [[nodiscard]] double RealLogarithm(double frequency) const
    {
        const double square = frequency * frequency;
        return std::log((f2 * f2 + square) / (f1 * f1 + square));
    }
    [[nodiscard]] double RealPartOf(double realLogarithm) const { return deltaEps * g * 0.5 * realLogarithm; }
};
