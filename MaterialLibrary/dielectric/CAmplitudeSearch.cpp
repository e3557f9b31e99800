#include "dielectric/CAmplitudeSearch.h"

#include <algorithm>
#include <array>
#include <limits>

namespace
{
constexpr double firstRatio = 0.02;
constexpr double lastRatio = 0.1;
constexpr double ratioStep = 1.1;
constexpr std::size_t leastSolutions = 16;
constexpr ColumnMask notTruncated = ~ColumnMask{0}; // more than there are terms
constexpr double noise = 1e-12; // Singular values below this part of the largest are rounding noise.
} // namespace

CAmplitudeSearch::CAmplitudeSearch(std::vector<double> basis, int termCount_)
    : decompositions(std::move(basis), termCount_), termCount(termCount_)
{
    const std::size_t n = static_cast<std::size_t>(termCount);
    const std::size_t solutionSize = n * n + 3 * n;
    solutions.resize(std::max(n, leastSolutions));
    storage = std::make_unique_for_overwrite<double[]>(solutions.size() * solutionSize);
    double* free = storage.get();
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

bool CAmplitudeSearch::Run(std::span<const double> measured)
{
    target = measured;
    systemTarget.resize(target.size() + static_cast<std::size_t>(termCount));
    for (Solution& solution : solutions)
    {
        solution.activeColumns = 0;
    }
    double ratio = firstRatio;
    while (TryRatio(ratio))
    {
        if (IsAcceptable())
        {
            return true;
        }
        do
        {
            if (!(ratio < lastRatio))
            {
                return true;
            }
            ratio *= ratioStep;
        } while (!IsChangedBy(ratio));
    }
    return false;
}

bool CAmplitudeSearch::TryRatio(double ratio)
{
    steps.clear();
    ColumnMask active = (~ColumnMask{0}) >> (CDecompositions::maxTerms - termCount);
    for (int attempt = 0; attempt < termCount - 1; ++attempt)
    {
        last = Solve(active, ratio);
        if (!last)
        {
            return false;
        }
        steps.push_back({last->leastKept, last->singularValues[0]});
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

bool CAmplitudeSearch::IsChangedBy(double ratio) const
{
    return std::ranges::any_of(steps, [ratio](const Step& step)
                               { return !(step.leastKept > ratio * step.firstValue); });
}

CAmplitudeSearch::Solution* CAmplitudeSearch::Solve(ColumnMask activeColumns, double ratio)
{
    Solution* const solution = FindSolution(activeColumns);
    if (solution)
    {
        KeepValues(*solution, ratio);
    }
    return solution;
}

CAmplitudeSearch::Solution* CAmplitudeSearch::FindSolution(ColumnMask activeColumns)
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
    return SolveAnew(solution, activeColumns) ? &solution : nullptr;
}

bool CAmplitudeSearch::SolveAnew(Solution& solution, ColumnMask activeColumns)
{
    const CDecompositions::Decomposition* const decomposition = decompositions.Find(activeColumns);
    if (decomposition == nullptr)
    {
        return false;
    }
    // The target of the smoothing rows is 0.
    std::fill(std::ranges::copy(target, systemTarget.begin()).out, systemTarget.end(), 0.0);
    ApplyLeft(decomposition->system, decomposition->left, systemTarget);

    // Copied, since the decomposition makes room for others.
    solution.activeColumns = activeColumns;
    solution.largestValue = decomposition->largestValue;
    std::ranges::copy(decomposition->singularValues, solution.singularValues);
    std::ranges::copy(decomposition->right, solution.right);
    for (int j = 0; j < termCount; ++j)
    {
        solution.coefficients[j] = systemTarget[static_cast<std::size_t>(j)] / solution.singularValues[j];
    }
    solution.keptValues = notTruncated;
    return true;
}

void CAmplitudeSearch::KeepValues(Solution& solution, double ratio) const
{
    // Relative to the first singular value, which need not be the largest: fitted values of hosts rest on it.
    const double threshold = ratio * solution.singularValues[0];
    ColumnMask kept = 0;
    solution.leastKept = std::numeric_limits<double>::infinity();
    for (int j = 0; j < termCount; ++j)
    {
        const double w = solution.singularValues[j];
        if (w > threshold && !(w < noise * solution.largestValue))
        {
            kept |= ColumnMask{1} << j;
            solution.leastKept = std::min(solution.leastKept, w);
        }
    }
    if (kept != solution.keptValues)
    {
        Truncate(solution, kept);
    }
}

void CAmplitudeSearch::Truncate(Solution& solution, ColumnMask keptValues) const
{
    solution.keptValues = keptValues;
    std::array<double, CDecompositions::maxTerms> sums{}; // nothing else points to them, which makes it fast
    for (int j = 0; j < termCount; ++j)
    {
        if ((keptValues >> j & 1) == 0)
        {
            continue;
        }
        const double* const column = MatrixOfColumns{solution.right, termCount}.Column(j);
        const double coefficient = solution.coefficients[j];
        for (int k = 0; k < termCount; ++k)
        {
            sums[static_cast<std::size_t>(k)] += column[k] * coefficient;
        }
    }
    std::copy_n(sums.begin(), termCount, solution.amplitudes);
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
