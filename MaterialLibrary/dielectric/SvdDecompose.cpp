#include "dielectric/SvdDecompose.h"

#include "dielectric/GolubReinsch.h"

#include <vector>

bool SvdDecompose(double* const* a, int m, int n, double* w, double* const* v)
{
    std::vector<double> offDiagonal(static_cast<std::size_t>(n));
    return CGolubReinsch<MatrixOfRows>({a}, m, n, m, w, {v}, offDiagonal.data()).Decompose();
}
