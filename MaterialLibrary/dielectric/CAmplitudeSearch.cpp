#include "dielectric/CAmplitudeSearch.h"

#include "dielectric/SvdDecompose.h"

#include <algorithm>

namespace
{
constexpr double firstRatio = 0.02;
constexpr double lastRatio = 0.1;
constexpr double ratioStep = 1.1;
constexpr double smoothing = 0.01;
constexpr std::size_t leastSolutions = 16;
constexpr double noise = 1e-12; // Singular values below this part of the largest are rounding noise.
} // namespace

CAmplitudeSearch::CAmplitudeSearch(std::span<const double> basis_, std::span<const double> target_,
                                   int termCount_)
    : basis(basis_), target(target_), termCount(termCount_), pointCount(static_cast<int>(target_.size()))
{
    const std::size_t n = static_cast<std::size_t>(termCount);
    const std::size_t height = target.size() + n;
    const std::size_t solutionSize = n * n + 3 * n;
    solutions.resize(std::max(n, leastSolutions));
    storage.resize(height * n + height + (n + height) + solutions.size() * solutionSize);
    system = storage.data();
    systemTarget = system + height * n;
    scratch = systemTarget + height;
    double* free = scratch + n + height;
    for (Solution& solution : solutions)
    {
        solution.singularValues = free;
        solution.coefficients = free + n;
        solution.amplitudes = free + 2 * n;
        solution.right = free + 3 * n;
        free += solutionSize;
    }
}

std::span<const double> CAmplitudeSearch::GetAmplitudes() const
{
    return {last->amplitudes, static_cast<std::size_t>(termCount)};
}

bool CAmplitudeSearch::Run()
{
    double ratio = firstRatio;
    while (TryRatio(ratio))
    {
        if (IsAcceptable() || !(ratio < lastRatio))
        {
            return true;
        }
        ratio *= ratioStep;
    }
    return false;
}

bool CAmplitudeSearch::TryRatio(double ratio)
{
    ColumnMask active = (~ColumnMask{0}) >> (maxTerms - termCount);
    for (int attempt = 0; attempt < termCount - 1; ++attempt)
    {
        last = Solve(active, ratio);
        if (!last)
        {
            return false;
        }
        if (last->smallestAmplitude >= 0.0)
        {
            break;
        }
        // A column that is out already can still have an amplitude of minus some rounding noise: from there
        // on every attempt is the same.
        const ColumnMask worst = ColumnMask{1} << last->smallestAt;
        if ((active & worst) == 0)
        {
            break;
        }
        active &= ~worst;
    }
    return true;
}

CAmplitudeSearch::Solution* CAmplitudeSearch::Solve(ColumnMask activeColumns, double ratio)
{
    Solution* const solution = FindDecomposition(activeColumns);
    if (solution)
    {
        const ColumnMask kept = KeptValues(*solution, ratio);
        if (kept != solution->keptValues)
        {
            Truncate(*solution, kept);
        }
    }
    return solution;
}

CAmplitudeSearch::Solution* CAmplitudeSearch::FindDecomposition(ColumnMask activeColumns)
{
    for (Solution& solution : solutions)
    {
        if (solution.activeColumns == activeColumns)
        {
            return &solution;
        }
    }
    Solution& solution = solutions[nextSolution];
    nextSolution = (nextSolution + 1) % solutions.size();
    return Decompose(solution, activeColumns) ? &solution : nullptr;
}

void CAmplitudeSearch::BuildSystem(ColumnMask activeColumns)
{
    const int height = pointCount + termCount;
    // The target of the smoothing rows is 0.
    std::fill(std::copy(target.begin(), target.end(), systemTarget), systemTarget + height, 0.0);
    for (int k = 0; k < termCount; ++k)
    {
        double* const column = MatrixOfColumns{system, height}.Column(k);
        std::fill_n(column, height, 0.0);
        if ((activeColumns >> k & 1) == 0)
        {
            continue;
        }
        const std::span<const double> term =
            basis.subspan(static_cast<std::size_t>(k) * target.size(), target.size());
        std::copy(term.begin(), term.end(), column);
        double* const differences = column + pointCount;
        differences[k] = smoothing * 2.0;
        if (k > 0)
        {
            differences[k - 1] = smoothing * -1.0;
        }
        if (k + 1 < termCount)
        {
            differences[k + 1] = smoothing * -1.0;
        }
    }
}

bool CAmplitudeSearch::Decompose(Solution& solution, ColumnMask activeColumns)
{
    BuildSystem(activeColumns);
    const std::size_t n = static_cast<std::size_t>(termCount);
    const std::size_t height = target.size() + n;
    if (!SvdDecompose({system, static_cast<int>(height)}, {systemTarget, height},
                      {solution.singularValues, n}, {solution.right, termCount}, {scratch, n + height}))
    {
        return false;
    }

    solution.activeColumns = activeColumns;
    solution.largestValue = *std::max_element(solution.singularValues, solution.singularValues + termCount);
    for (int j = 0; j < termCount; ++j)
    {
        solution.coefficients[j] = systemTarget[j] / solution.singularValues[j];
    }
    Truncate(solution, 0);
    return true;
}

CAmplitudeSearch::ColumnMask CAmplitudeSearch::KeptValues(const Solution& solution, double ratio) const
{
    // Relative to the first singular value, which need not be the largest: fitted values of hosts rest on it.
    const double threshold = ratio * solution.singularValues[0];
    ColumnMask kept = 0;
    for (int j = 0; j < termCount; ++j)
    {
        const double w = solution.singularValues[j];
        if (w > threshold && !(w < noise * solution.largestValue))
        {
            kept |= ColumnMask{1} << j;
        }
    }
    return kept;
}

void CAmplitudeSearch::Truncate(Solution& solution, ColumnMask keptValues) const
{
    solution.keptValues = keptValues;
    std::fill_n(solution.amplitudes, termCount, 0.0);
    for (int j = 0; j < termCount; ++j)
    {
        if ((keptValues >> j & 1) == 0)
        {
            continue;
        }
        const double* const column = MatrixOfColumns{solution.right, termCount}.Column(j);
        for (int k = 0; k < termCount; ++k)
        {
            solution.amplitudes[k] += column[k] * solution.coefficients[j];
        }
    }
    solution.smallestAmplitude = 1e99;
    for (int k = 0; k < termCount; ++k)
    {
        if (solution.amplitudes[k] < solution.smallestAmplitude)
        {
            solution.smallestAmplitude = solution.amplitudes[k];
            solution.smallestAt = k;
        }
    }
}

bool CAmplitudeSearch::IsAcceptable() const
{
    const double* const x = last->amplitudes;
    // An inner amplitude less than twice both neighbours passes for rough, even a level run: strange as it
    // is, fitted values of hosts rest on it.
    for (int k = 1; k + 1 < termCount; ++k)
    {
        if (2.0 * x[k - 1] > x[k] && 2.0 * x[k + 1] > x[k])
        {
            return false;
        }
    }
    return last->smallestAmplitude >= 0.0 && 2.0 * x[termCount - 2] > x[termCount - 1];
}
