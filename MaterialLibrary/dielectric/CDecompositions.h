#pragma once

#include "dielectric/SvdDecompose.h"

#include <cstdint>

// Which columns of a system take part: bit k stands for column k.
using ColumnMask = std::uint64_t;

// The singular value decompositions of the least squares systems of a fit: the rows of a basis with 0.01
// times a second difference as further rows, and 0 in the columns that do not take part. A decomposition
// depends on the basis and the columns, not on what was measured: those made last are kept.
class CDecompositions
{
public:
    static constexpr int maxTerms = 64;
    // Of more points only the decomposition made last is kept, for the room that one takes.
    static constexpr std::size_t longestKept = 256;

    // `basis`: for each of `termCount` terms (2 to maxTerms) the same number of values, one for each point.
    CDecompositions(std::vector<double> basis, int termCount);

    struct Decomposition
    {
        ColumnMask activeColumns = 0; // None: there is none yet.
        std::vector<double> system;   // (points + terms) x terms, column by column
        std::vector<double> singularValues;
        std::vector<double> right; // V, column by column
        LeftSteps left;
        double largestValue = 0.0;
    };

    // Valid until the next call; null where it does not converge. Throws std::bad_alloc.
    [[nodiscard]] const Decomposition* Find(ColumnMask activeColumns);

private:
    [[nodiscard]] Decomposition& TakeOldest();
    void BuildSystem(ColumnMask activeColumns, std::vector<double>& system) const;

    std::vector<double> basis;
    int termCount;
    int pointCount;
    std::vector<double> scratch;
    std::vector<Decomposition> kept;
    std::size_t oldest = 0;
};
