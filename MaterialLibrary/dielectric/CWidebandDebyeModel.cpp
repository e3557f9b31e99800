#include "dielectric/CWidebandDebyeModel.h"

#include "dielectric/CAmplitudeSearch.h"

#include <algorithm>
#include <cmath>

namespace
{
// No measurement spans more decades, and the work grows with the fourth power of their number.
constexpr int maxDecades = 40;
static_assert(maxDecades <= CAmplitudeSearch::maxTerms);

double PowerOfTen(int exponent)
{
    constexpr int largestExact = 22;
    if (exponent > largestExact)
    {
        return std::pow(10.0, exponent);
    }
    double power = 1.0;
    for (int i = 0; i < exponent; ++i)
    {
        power *= 10.0;
    }
    return power;
}

// The corner frequencies of the terms, one term between each and the next; none where there is no grid.
std::vector<double> MakeCorners(double firstFrequency, double lastFrequency)
{
    const double low = std::floor(std::log10(firstFrequency)) - 1.0;
    const double high = std::ceil(std::log10(lastFrequency)) + 1.0;
    const double decades = high - low;
    if (!(decades >= 2.0 && decades <= maxDecades))
    {
        return {};
    }
    const int termCount = static_cast<int>(decades);
    const bool wide = termCount >= 6;
    const int first = static_cast<int>(low) + (wide ? 1 : 0);
    std::vector<double> corners;
    for (int k = 0; k <= termCount; ++k)
    {
        // A narrow grid reaches two decades past the top in two strides.
        const int stride = wide ? 0 : std::max(0, k - termCount + 2);
        corners.push_back(PowerOfTen(first + k + stride));
    }
    return corners;
}

// For each term the imaginary parts it has at the frequencies when its amplitude is 1.
std::vector<double> MakeBasis(std::span<const double> frequencies, std::span<const double> corners)
{
    const std::size_t points = frequencies.size();
    std::vector<double> basis(corners.size() * points);
    for (std::size_t k = 0; k < corners.size(); ++k)
    {
        double* const angles = basis.data() + k * points;
        for (std::size_t i = 0; i < points; ++i)
        {
            angles[i] = std::atan(frequencies[i] / corners[k]);
        }
    }
    for (std::size_t k = 0; k + 1 < corners.size(); ++k)
    {
        double* const angles = basis.data() + k * points;
        const double width = std::log(corners[k + 1] / corners[k]);
        for (std::size_t i = 0; i < points; ++i)
        {
            angles[i] = (angles[i + points] - angles[i]) / width;
        }
    }
    return basis;
}
bool IsFittable(const PreparedData& data)
{
    const auto isFinite = [](double x) { return std::isfinite(x); };
    return !data.frequencies.empty() &&
           std::all_of(data.frequencies.begin(), data.frequencies.end(), [](double f) { return f > 0.0; }) &&
           std::all_of(data.realParts.begin(), data.realParts.end(), isFinite) &&
           std::all_of(data.imaginaryParts.begin(), data.imaginaryParts.end(), isFinite);
}
} // namespace

double MLDEBYETERM::RealPart(double frequency) const
{
    const double square = frequency * frequency;
    return deltaEps * g * 0.5 * std::log((f2 * f2 + square) / (f1 * f1 + square));
}

std::optional<CWidebandDebyeModel> CWidebandDebyeModel::Fit(const PreparedData& data)
{
    if (!IsFittable(data))
    {
        return std::nullopt;
    }
    const std::vector<double> corners = MakeCorners(data.frequencies.front(), data.frequencies.back());
    if (corners.empty())
    {
        return std::nullopt;
    }
    const std::vector<double> basis = MakeBasis(data.frequencies, corners);
    CAmplitudeSearch search(basis, data.imaginaryParts, static_cast<int>(corners.size()) - 1);
    if (!search.Run())
    {
        return std::nullopt;
    }
    std::vector<MLDEBYETERM> terms;
    for (const double amplitude : search.GetAmplitudes())
    {
        const double f1 = corners[terms.size()];
        const double f2 = corners[terms.size() + 1];
        terms.push_back({f1, f2, amplitude, 1.0 / std::log(f2 / f1)});
    }
    return CWidebandDebyeModel(data, std::move(terms));
}

// The constant is the mean of what the terms leave of the measured real parts.
CWidebandDebyeModel::CWidebandDebyeModel(const PreparedData& data, std::vector<MLDEBYETERM> fittedTerms)
    : terms(std::move(fittedTerms)),
      lowestFrequency(*std::min_element(data.frequencies.begin(), data.frequencies.end())),
      highestFrequency(*std::max_element(data.frequencies.begin(), data.frequencies.end()))
{
    double sum = 0.0;
    for (std::size_t i = 0; i < data.frequencies.size(); ++i)
    {
        sum += data.realParts[i] - EvaluateReal(data.frequencies[i]);
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
