#pragma once

#include "dielectric/CAmplitudeSearch.h"
#include "dielectric/MLDEBYETERM.h"

#include <optional>

// What a fit needs that depends on the measured frequencies alone: the grid of terms, what each of them gives
// at the frequencies, and what the search for their amplitudes keeps.
class CDebyeBasis
{
public:
    // The basis of frequencies (Hz). Nothing where there are none, where one is not above 0, and where from
    // the decade below the first to the one above the last there are not 2 to 40 decades.
    [[nodiscard]] static std::optional<CDebyeBasis> Make(std::span<const double> frequencies);

    [[nodiscard]] std::span<const double> GetFrequencies() const { return frequencies; }

    // The terms, which have no amplitude yet.
    [[nodiscard]] std::span<const MLDEBYETERM> GetTerms() const { return terms; }

    // MLDEBYETERM::RealLogarithm of a term at each of the frequencies.
    [[nodiscard]] std::span<const double> GetRealLogarithms(std::size_t term) const
    {
        return std::span(realLogarithms).subspan(term * frequencies.size(), frequencies.size());
    }

    // It takes imaginary parts at the frequencies.
    [[nodiscard]] CAmplitudeSearch& GetSearch() { return search; }

private:
    CDebyeBasis(std::span<const double> measured, std::span<const double> corners);

    std::vector<double> frequencies;
    std::vector<MLDEBYETERM> terms;
    std::vector<double> realLogarithms;
    CAmplitudeSearch search;
};
