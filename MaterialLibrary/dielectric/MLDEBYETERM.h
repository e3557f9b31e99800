#pragma once

// One wideband Debye term: a permittivity step spread evenly over the logarithm of the frequency from f1 to
// f2.
struct MLDEBYETERM
{
    double f1 = 1.0e6;     ///< Lower corner frequency, Hz.
    double f2 = 1.0e10;    ///< Upper corner frequency, Hz.
    double deltaEps = 0.0; ///< The permittivity step.
    double g = 1.0;        ///< 1 / ln(f2 / f1)

    // Contribution to the real part of the permittivity at that frequency (Hz).
    [[nodiscard]] double RealPart(double frequency) const;

    // Contribution to the imaginary part: negative where the term is lossy.
    [[nodiscard]] double ImaginaryPart(double frequency) const;
};
