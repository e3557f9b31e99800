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

// Singular value decomposition of a matrix of n columns and m >= n rows, a = U * diag(w) * V^T, after Golub
// and Reinsch, Numer. Math. 14 (1970), for a least squares problem: U itself is not formed, but applied to a
// target.
//
// On success `w` holds the n singular values, none of them negative, `v` (n x n) the matrix V, and the first
// n of the m numbers of `target` are U^T * target. U has orthonormal columns, V is orthogonal, whatever the
// rank. The singular values stay in the order in which the iteration leaves them: they are not sorted. `a` is
// lost; `scratch` has room for n + m numbers.
//
// Returns false where a singular value has not converged at the 30th iteration; the contents are then of no
// use. That takes numbers which are not finite or whose squares leave the range of doubles; such numbers do
// no other harm than useless results.
[[nodiscard]] bool SvdDecompose(MatrixOfColumns a, std::span<double> target, std::span<double> w,
                                MatrixOfColumns v, std::span<double> scratch);
