#pragma once

#include "dielectric/CDecompositions.h"

// Looks for amplitudes of the Debye terms that give the measured imaginary parts.
//
// Least squares by singular value decomposition, with 0.01 times a second difference added as further rows.
// While an amplitude is negative, the most negative one's column is taken out and the rest solved again.
// Amplitudes are acceptable when none is negative, each inner one is at least twice one of its neighbours,
// and the last is less than twice the one before. Where they are not, the whole is repeated with more of the
// small singular values left out: the truncation ratio goes from 0.02 up by a tenth of itself until it
// reaches 0.1. What comes out then is taken as it is.
//
// What solves the system with one set of columns does not depend on the ratio: each is made once and kept.
class CAmplitudeSearch
{
public:
    // `target`: the measured imaginary parts at the points of the decompositions' basis, which holds the
    // imaginary parts of each term with amplitude 1 there. Both must outlive the search.
    CAmplitudeSearch(CDecompositions& decompositions, std::span<const double> target);

    // False: a decomposition did not converge.
    [[nodiscard]] bool Run();

    // What Run found, one amplitude for each term.
    [[nodiscard]] std::span<const double> GetAmplitudes() const;

private:
    // The solution for one set of columns and the singular values kept last.
    struct Solution
    {
        ColumnMask activeColumns = 0; // None: this one is free.
        ColumnMask keptValues = 0;
        double largestValue = 0.0;
        double smallestAmplitude = 0.0;
        int smallestAt = 0;
        double* singularValues = nullptr;
        double* coefficients = nullptr; // In the singular vectors, before truncation.
        double* right = nullptr;        // V, column by column.
        double* amplitudes = nullptr;
    };

    bool TryRatio(double ratio);
    Solution* Solve(ColumnMask activeColumns, double ratio);
    Solution* FindSolution(ColumnMask activeColumns);
    bool SolveAnew(Solution& solution, ColumnMask activeColumns);
    ColumnMask KeptValues(const Solution& solution, double ratio) const;
    void Truncate(Solution& solution, ColumnMask keptValues) const;
    bool IsAcceptable() const;

    CDecompositions* decompositions;
    std::span<const double> target;
    int termCount;
    std::vector<double> storage;
    std::vector<double> systemTarget;
    // At least as many as one ratio can ask for; the oldest makes room for a new one.
    std::vector<Solution> solutions;
    std::size_t nextSolution = 0;
    const Solution* last = nullptr;
};
