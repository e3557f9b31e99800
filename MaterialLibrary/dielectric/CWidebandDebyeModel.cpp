#include "dielectric/CWidebandDebyeModel.h"

#include <algorithm>
#include <cmath>

namespace
{
bool AreFinite(std::span<const double> numbers)
{
    return std::ranges::all_of(numbers, [](double x) { return std::isfinite(x); });
}
} // namespace

std::optional<CWidebandDebyeModel> CWidebandDebyeModel::Fit(const PreparedData& data)
{
    std::optional<CDebyeBasis> basis = CDebyeBasis::Make(data.frequencies);
    return basis ? Fit(data, *basis) : std::nullopt;
}

std::optional<CWidebandDebyeModel> CWidebandDebyeModel::Fit(const PreparedData& data, CDebyeBasis& basis)
{
    if (!AreFinite(data.realParts) || !AreFinite(data.imaginaryParts))
    {
        return std::nullopt;
    }
    if (!basis.GetSearch().Run(data.imaginaryParts))
    {
        return std::nullopt;
    }
    return CWidebandDebyeModel(data, basis, basis.GetSearch().GetAmplitudes());
}

// The constant is the mean of what the terms leave of the measured real parts.
CWidebandDebyeModel::CWidebandDebyeModel(const PreparedData& data, const CDebyeBasis& basis,
                                         std::span<const double> amplitudes)
    : terms(basis.GetTerms().begin(), basis.GetTerms().end()),
      lowestFrequency(std::ranges::min(data.frequencies)),
      highestFrequency(std::ranges::max(data.frequencies))
{
    for (std::size_t k = 0; k < terms.size(); ++k)
    {
        terms[k].deltaEps = amplitudes[k];
    }
    const std::vector<double> real = EvaluateReal(basis); // with a constant of 0
    double sum = 0.0;
    for (std::size_t i = 0; i < real.size(); ++i)
    {
        sum += data.realParts[i] - real[i];
    }
    epsInf = sum / static_cast<double>(data.frequencies.size());
}

CWidebandDebyeModel CWidebandDebyeModel::FromTerms(double epsInf, std::vector<MLDEBYETERM> givenTerms)
{
    CWidebandDebyeModel model;
    model.epsInf = epsInf;
    model.terms = std::move(givenTerms);
    for (MLDEBYETERM& term : model.terms)
    {
        term.g = 1.0 / std::log(term.f2 / term.f1);
    }
    return model;
}

double CWidebandDebyeModel::EvaluateReal(double frequency) const
{
    double real = epsInf;
    for (const MLDEBYETERM& term : terms)
    {
        real += term.RealPart(frequency);
    }
    return real;
}

std::vector<double> CWidebandDebyeModel::EvaluateReal(const CDebyeBasis& basis) const
{
    std::vector<double> real(basis.GetFrequencies().size(), epsInf);
    for (std::size_t k = 0; k < terms.size(); ++k)
    {
        const MLDEBYETERM term = terms[k]; // a copy, which no store can change
        const std::span<const double> logarithms = basis.GetRealLogarithms(k);
        for (std::size_t i = 0; i < real.size(); ++i)
        {
            real[i] += term.RealPartOf(logarithms[i]);
        }
    }
    return real;
}

std::complex<double> CWidebandDebyeModel::Evaluate(double frequency) const
{
    double imaginary = 0.0;
    double corner = 0.0;
    double angle = 0.0; // at the corner
    for (const MLDEBYETERM& term : terms)
    {
        // A term usually begins where the one before it ends.
        const double first = term.f1 == corner ? angle : std::atan(frequency / term.f1);
        corner = term.f2;
        angle = std::atan(frequency / corner);
        imaginary += term.deltaEps * term.g * (angle - first);
    }
    return {EvaluateReal(frequency), imaginary};
}
