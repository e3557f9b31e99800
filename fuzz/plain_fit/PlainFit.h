#pragma once
// The wideband Debye fit written out as plainly as it can be: the reference for CWidebandDebyeModel. It
// shares no code with it, decomposes the system anew at every solve and remembers nothing between solves.

#include "MaterialLibrary/MLTypes.h"

#include <span>
#include <vector>

struct PlainTerm
{
    double f1, f2, deltaEps, g;
};

using PlainMatrix = std::vector<std::vector<double>>;

// Golub and Reinsch, Numer. Math. 14 (1970), with scaled Householder vectors. Fills w and v and replaces the
// target by U^T * target, so that the former a = U * diag(w) * v^T; false: not converged.
bool DecomposePlainly(PlainMatrix& a, std::vector<double>& target, std::vector<double>& w, PlainMatrix& v);

struct PlainFit
{
    bool ready = false;
    double trendOffset = 0.0, trendSlope = 0.0; ///< Er(f) = trendOffset + trendSlope * ln f
    std::vector<double> frequencies, realParts, imaginaryParts;
    std::vector<PlainTerm> terms;
    double epsInf = 0.0;

    bool Prepare(std::span<const MLTBLENTRY> er, std::span<const MLTBLENTRY> loss);
    bool Fit();
    bool Evaluate(double frequency, double& real, double& imaginary) const;

    // The steps of Fit.
    std::vector<double> Corners() const; ///< Empty where the frequencies give no grid.
    PlainMatrix System(const std::vector<double>& corners) const;
    void StoreTerms(const std::vector<double>& corners, const std::vector<double>& amplitudes);

private:
    bool PrepareTrend(std::span<const MLTBLENTRY> er);
    static bool Solve(PlainMatrix system, std::vector<double> target, double ratio,
                      std::vector<double>& amplitudes);
};
