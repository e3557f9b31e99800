#include "dielectric/CWidebandDebyeModel.h"

#include "dielectric/CAmplitudeSearch.h"
#include "dielectric/ErTrend.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

static_assert(CWidebandDebyeModel::maxDecades <= CAmplitudeSearch::maxTerms);

namespace
{
constexpr double lowestLossFrequency = 10000.0;

// The corner frequencies of the terms, one term between each and the next.
struct CornerGrid
{
    int termCount = 0;
    std::array<double, CWidebandDebyeModel::maxDecades + 1> corners{};

    std::span<const double> Corners() const
    {
        return {corners.data(), static_cast<std::size_t>(termCount) + 1};
    }
};

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

std::optional<CornerGrid> MakeCornerGrid(double firstFrequency, double lastFrequency)
{
    const double low = std::floor(std::log10(firstFrequency)) - 1.0;
    const double high = std::ceil(std::log10(lastFrequency)) + 1.0;
    const double decades = high - low;
    if (!(decades >= 2.0 && decades <= CWidebandDebyeModel::maxDecades))
    {
        return std::nullopt;
    }

    CornerGrid grid;
    grid.termCount = static_cast<int>(decades);
    const bool wide = grid.termCount >= 6;
    const int first = static_cast<int>(low) + (wide ? 1 : 0);
    for (int k = 0; k <= grid.termCount; ++k)
    {
        grid.corners[static_cast<std::size_t>(k)] = PowerOfTen(first + k);
    }
    if (!wide)
    {
        // A narrow grid reaches two decades past the top in two strides.
        const int last = static_cast<int>(high);
        grid.corners[static_cast<std::size_t>(grid.termCount) - 1] = PowerOfTen(last);
        grid.corners[static_cast<std::size_t>(grid.termCount)] = PowerOfTen(last + 2);
    }
    return grid;
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
} // namespace

double MLDEBYETERM::RealPart(double frequency) const
{
    const double square = frequency * frequency;
    return deltaEps * g * 0.5 * std::log((f2 * f2 + square) / (f1 * f1 + square));
}

double MLDEBYETERM::ImaginaryPart(double frequency) const
{
    return deltaEps * g * (std::atan(frequency / f2) - std::atan(frequency / f1));
}

CWidebandDebyeModel::CWidebandDebyeModel(const CWidebandDebyeModel& other)
    : termCount(other.termCount), termInputs(other.termInputs), epsInf(other.epsInf),
      hasTermInputs(other.hasTermInputs)
{
}

std::int32_t CWidebandDebyeModel::PrepareData(std::int32_t erCount, const double* erFrequencies,
                                              const double* erValues, std::int32_t lossCount,
                                              const double* lossFrequencies, const double* lossValues)
{
    ready = false;
    if (erCount < 1 || lossCount < 2 || !erFrequencies || !erValues || !lossFrequencies || !lossValues)
    {
        return 0;
    }
    const std::size_t erSize = static_cast<std::size_t>(erCount);
    const std::optional<ErTrend> trend = FindErTrend({erFrequencies, erSize}, {erValues, erSize});
    if (!trend)
    {
        errorText = "Wrong input data: negative or zero frequency or Dk";
        return 0;
    }

    const double* const end = lossFrequencies + lossCount;
    // Only leading points are passed over: a later one below the limit counts.
    const double* const begin =
        std::find_if(lossFrequencies, end, [](double f) { return f >= lowestLossFrequency; });
    const std::size_t used = static_cast<std::size_t>(end - begin);
    if (used < 2)
    {
        errorText = "Too few data points given for Df above 10 KHz";
        return 0;
    }
    preparedFrequencies.assign(begin, end);
    preparedRealParts.resize(used);
    preparedImaginaryParts.resize(used);
    const double* const lossTangents = lossValues + (begin - lossFrequencies);
    for (std::size_t k = 0; k < used; ++k)
    {
        const double er = trend->At(begin[k]);
        // The loss tangent serves as the loss angle itself; for the small angles of laminates they agree.
        preparedRealParts[k] = er * std::cos(lossTangents[k]);
        preparedImaginaryParts[k] = -er * std::sin(lossTangents[k]);
    }
    ready = true;
    return 1;
}

bool CWidebandDebyeModel::HasFittableData() const
{
    const auto isFinite = [](double x) { return std::isfinite(x); };
    return preparedFrequencies.size() >= 2 &&
           std::all_of(preparedFrequencies.begin(), preparedFrequencies.end(),
                       [](double f) { return f > 0.0 && std::isfinite(f); }) &&
           std::all_of(preparedRealParts.begin(), preparedRealParts.end(), isFinite) &&
           std::all_of(preparedImaginaryParts.begin(), preparedImaginaryParts.end(), isFinite);
}

int CWidebandDebyeModel::Fit()
{
    const bool prepared = ready && HasFittableData();
    ready = false;
    if (!prepared)
    {
        return 0;
    }
    const std::optional<CornerGrid> grid =
        MakeCornerGrid(preparedFrequencies.front(), preparedFrequencies.back());
    if (!grid)
    {
        return 0;
    }
    const std::vector<double> basis = MakeBasis(preparedFrequencies, grid->Corners());
    CAmplitudeSearch search(basis, preparedImaginaryParts, grid->termCount);
    if (!search.Run())
    {
        return 0;
    }
    StoreTerms(grid->Corners(), search.GetAmplitudes());
    FitEpsInf();
    ready = true;
    return 1;
}

void CWidebandDebyeModel::StoreTerms(std::span<const double> corners, std::span<const double> amplitudes)
{
    termInputs.clear();
    for (std::size_t k = 0; k < amplitudes.size(); ++k)
    {
        termInputs.push_back({corners[k], corners[k + 1], amplitudes[k]});
    }
    hasTermInputs = 1;

    terms.clear();
    for (const MLDEBYETERMINPUT& input : termInputs)
    {
        terms.push_back({input.f1, input.f2, input.deltaEps, 1.0 / std::log(input.f2 / input.f1)});
    }
    termCount = static_cast<std::int32_t>(terms.size());
}

// The mean of what the terms leave of the measured real parts.
void CWidebandDebyeModel::FitEpsInf()
{
    double sum = 0.0;
    for (std::size_t i = 0; i < preparedFrequencies.size(); ++i)
    {
        double real = 0.0;
        for (const MLDEBYETERM& term : terms)
        {
            real += term.RealPart(preparedFrequencies[i]);
        }
        sum += preparedRealParts[i] - real;
    }
    epsInf = sum / static_cast<double>(preparedFrequencies.size());
}

std::int32_t CWidebandDebyeModel::Evaluate(double frequency, double& realPart, double& imaginaryPart) const
{
    if (!ready)
    {
        return 0;
    }
    double real = epsInf;
    double imaginary = 0.0;
    for (const MLDEBYETERM& term : terms)
    {
        real += term.RealPart(frequency);
        imaginary += term.ImaginaryPart(frequency);
    }
    realPart = real;
    imaginaryPart = imaginary;
    return 1;
}
