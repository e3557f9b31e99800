#pragma once

#include "dielectric/CDebyeBasis.h"
#include "dielectric/PrepareData.h"

#include <complex>
#include <optional>

// A causal model of a dielectric's complex permittivity over frequency, fitted to the tables that were
// measured at one temperature: a sum of wideband Debye terms in the form of Djordjevic and Sarkar, one per
// interval of a grid of decades, plus a constant.
//
// Permittivity is real part + j * imaginary part, the imaginary part of a lossy material being negative. Er
// is the real part, the loss tangent is -imaginary / real. Frequencies are in hertz.
class CWidebandDebyeModel
{
public:
    // The model of these data, the same bit for bit whenever they are. Nothing where they are no permittivity
    // over frequency (none at all, not finite, frequencies not above 0), where a decomposition does not
    // converge, and where from the decade below the first frequency to the one above the last there are not
    // 2 to 40 decades: ascending data at most 38 decades apart, and descending data within about one decade.
    [[nodiscard]] static std::optional<CWidebandDebyeModel> Fit(const PreparedData& data);

    // The same for those who have the basis of the data's frequencies. CModelFitter keeps bases.
    [[nodiscard]] static std::optional<CWidebandDebyeModel> Fit(const PreparedData& data, CDebyeBasis& basis);

    // The model with a constant and terms of which f1, f2 and deltaEps are given, f2 above f1 above 0. It was
    // fitted to no frequency: the lowest and the highest are 0.
    [[nodiscard]] static CWidebandDebyeModel FromTerms(double epsInf, std::vector<MLDEBYETERM> givenTerms);

    // The permittivity at a frequency, and its real part for those who want no more.
    [[nodiscard]] std::complex<double> Evaluate(double frequency) const;
    [[nodiscard]] double EvaluateReal(double frequency) const;

    // The real parts at all frequencies of the basis that the model was fitted with: bit for bit the same,
    // but sooner.
    [[nodiscard]] std::vector<double> EvaluateReal(const CDebyeBasis& basis) const;

    [[nodiscard]] double GetEpsInf() const { return epsInf; }
    [[nodiscard]] std::span<const MLDEBYETERM> GetTerms() const { return terms; }

    // Between which of the measured frequencies the model was fitted.
    [[nodiscard]] double GetLowestFrequency() const { return lowestFrequency; }
    [[nodiscard]] double GetHighestFrequency() const { return highestFrequency; }

    bool operator==(const CWidebandDebyeModel&) const = default;

private:
    CWidebandDebyeModel() = default;
    CWidebandDebyeModel(const PreparedData& data, const CDebyeBasis& basis,
                        std::span<const double> amplitudes);

    double epsInf = 0.0;
    std::vector<MLDEBYETERM> terms;
    double lowestFrequency = 0.0;
    double highestFrequency = 0.0;
};
