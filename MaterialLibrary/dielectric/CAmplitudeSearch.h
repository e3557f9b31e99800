#pragma once

#include "dielectric/CDecompositions.h"

#include <memory>

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
// Nor does the ratio matter to an attempt until it reaches a singular value that is still kept: the ratios
// before are passed over.
class CAmplitudeSearch
{
public:
    // `basis`: for each of `termCount` terms (2 to 63) the imaginary parts at the measured points that it has
    // with amplitude 1.
    CAmplitudeSearch(std::vector<double> basis, int termCount);

    // Looks for the amplitudes that give the measured imaginary parts, one for each point. False: a
    // decomposition did not converge. One run does not depend on another.
    [[nodiscard]] bool Run(std::span<const double> measured);

    // What the last run found, one amplitude for each term; valid until the next.
    [[nodiscard]] std::span<const double> GetAmplitudes() const;

private:
    // The solution for one set of columns and the singular values kept last.
    struct Solution
    {
        ColumnMask activeColumns = 0; // None: this one is free.
        ColumnMask keptValues = 0;
        double largestValue = 0.0;
        double leastKept = 0.0; // singular value
        double smallestAmplitude = 0.0;
        int smallestAt = 0;
        double* singularValues = nullptr;
        double* coefficients = nullptr; // In the singular vectors, before truncation.
        double* right = nullptr;        // V, column by column.
        double* amplitudes = nullptr;
    };

    // What an attempt depends on beside its columns.
    struct Step
    {
        double leastKept;
        double firstValue;
    };

    bool TryRatio(double ratio);
    bool IsChangedBy(double ratio) const;
    Solution* Solve(ColumnMask activeColumns, double ratio);
    Solution* FindSolution(ColumnMask activeColumns);
    bool SolveAnew(Solution& solution, ColumnMask activeColumns);
    void KeepValues(Solution& solution, double ratio) const;
    void Truncate(Solution& solution, ColumnMask keptValues) const;
    bool IsAcceptable() const;

    CDecompositions decompositions;
    int termCount;
    std::span<const double> target; // of this run
    std::vector<double> systemTarget;
    std::unique_ptr<double[]> storage; // of all solutions
    // At least as many as one ratio can ask for; the oldest makes room for a new one.
    std::vector<Solution> solutions;
    std::size_t nextSolution = 0;
    const Solution* last = nullptr;
    std::vector<Step> steps; // of the last attempt
};
