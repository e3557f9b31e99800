#include "dielectric/CDecompositions.h"

#include <algorithm>

namespace
{
constexpr double smoothing = 0.01;
constexpr std::size_t mostKept = 8;
} // namespace

CDecompositions::CDecompositions(std::vector<double> basis_, int termCount_)
    : basis(std::move(basis_)), termCount(termCount_),
      pointCount(static_cast<int>(basis.size()) / termCount_),
      scratch(static_cast<std::size_t>(2 * termCount + pointCount))
{
}

const CDecompositions::Decomposition* CDecompositions::Find(ColumnMask activeColumns)
{
    const auto known = std::ranges::find(kept, activeColumns, &Decomposition::activeColumns);
    if (known != kept.end())
    {
        return &*known;
    }
    const auto n = static_cast<std::size_t>(termCount);
    Decomposition& made = TakeOldest();
    made.activeColumns = 0; // until all is there
    BuildSystem(activeColumns, made.system);
    made.singularValues.resize(n);
    made.right.resize(n * n);
    if (!SvdDecompose({made.system.data(), pointCount + termCount}, made.left, made.singularValues,
                      {made.right.data(), termCount}, scratch))
    {
        return nullptr;
    }
    made.largestValue = *std::ranges::max_element(made.singularValues);
    made.activeColumns = activeColumns;
    return &made;
}

CDecompositions::Decomposition& CDecompositions::TakeOldest()
{
    if (kept.size() < (static_cast<std::size_t>(pointCount) > longestKept ? 1 : mostKept))
    {
        return kept.emplace_back();
    }
    Decomposition& taken = kept[oldest];
    oldest = (oldest + 1) % kept.size();
    return taken;
}

void CDecompositions::BuildSystem(ColumnMask activeColumns, std::vector<double>& system) const
{
    const int height = pointCount + termCount;
    system.assign(static_cast<std::size_t>(height) * static_cast<std::size_t>(termCount), 0.0);
    const double* term = basis.data();
    for (int k = 0; k < termCount; ++k, term += pointCount)
    {
        if ((activeColumns >> k & 1) == 0)
        {
            continue;
        }
        double* const differences =
            std::copy_n(term, pointCount, MatrixOfColumns{system.data(), height}.Column(k));
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
