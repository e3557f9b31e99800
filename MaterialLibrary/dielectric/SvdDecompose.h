#pragma once

#include <cstddef>
#include <span>

// A matrix stored column after column without gaps, since the work runs down the columns.
struct MatrixOfColumns
{
    double* elements;
    int height;
    double* Column(int k) const { return elements + static_cast<std::ptrdiff_t>(k) * height; }
    double& operator()(int i, int k) const { return Column(k)[i]; }
};

// Singular value decomposition of a matrix of n columns and m >= n rows, after Golub and Reinsch, Numer.
// Math. 14 (1970).
//
// On success `a` holds U, `w` the n singular values, none of them negative, and `v` (n x n) the matrix V, so
// that the former a = U * diag(w) * V^T. U has orthonormal columns, V is orthogonal, whatever the rank. Only
// the first `rowsOfU` rows of U are completed, for callers who want no more. The singular values stay in the
// order in which the iteration leaves them: they are not sorted. `scratch` has room for n numbers.
//
// Returns false where a singular value has not converged at the 30th iteration; the contents are then of no
// use. That takes numbers which are not finite or whose squares leave the range of doubles; such numbers do
// no other harm than useless results.
[[nodiscard]] bool SvdDecompose(MatrixOfColumns a, int rowsOfU, std::span<double> w, MatrixOfColumns v,
                                std::span<double> scratch);
