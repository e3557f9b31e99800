#include "dielectric/CDebyeBasis.h"

#include <algorithm>
#include <cmath>

namespace
{
// No measurement spans more decades, and the work grows with the fourth power of their number.
constexpr int maxDecades = 40;
static_assert(maxDecades <= CDecompositions::maxTerms);

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
std::vector<double> MakeImaginaryParts(std::span<const double> frequencies, std::span<const double> corners)
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
    basis.resize((corners.size() - 1) * points); // what is left of the last corner is no term
    return basis;
}
} // namespace

std::optional<CDebyeBasis> CDebyeBasis::Make(std::span<const double> frequencies)
{
    if (frequencies.empty() || !std::ranges::all_of(frequencies, [](double f) { return f > 0.0; }))
    {
        return std::nullopt;
    }
    const std::vector<double> corners = MakeCorners(frequencies.front(), frequencies.back());
    return corners.empty() ? std::nullopt : std::optional(CDebyeBasis(frequencies, corners));
}

CDebyeBasis::CDebyeBasis(std::span<const double> measured, std::span<const double> corners)
    : frequencies(measured.begin(), measured.end()),
      search(MakeImaginaryParts(measured, corners), static_cast<int>(corners.size()) - 1)
{
    realLogarithms.reserve((corners.size() - 1) * measured.size());
    for (std::size_t k = 0; k + 1 < corners.size(); ++k)
    {
        const double f1 = corners[k];
        const double f2 = corners[k + 1];
        terms.push_back({f1, f2, 0.0, 1.0 / std::log(f2 / f1)});
        for (const double frequency : measured)
        {
            realLogarithms.push_back(terms.back().RealLogarithm(frequency));
        }
    }
}
