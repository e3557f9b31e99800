#pragma once

// Singular value decomposition of an m x n matrix, m >= n >= 0, after Golub and Reinsch, Numer. Math. 14
// (1970).
//
// `a` points to m rows of n doubles each. On success they hold U, `w` the n singular values, none of them
// negative, and `v` (n rows of n doubles) the matrix V, so that the former a = U * diag(w) * V^T. U has
// orthonormal columns, V is orthogonal, whatever the rank. The singular values stay in the order in which
// the iteration leaves them: they are not sorted.
//
// Returns false where a singular value has not converged at the 30th iteration; the contents of a, w and v
// are then of no use. That takes numbers which are not finite or whose squares leave the range of doubles;
// such numbers do no other harm than useless results. Throws std::bad_alloc only.
[[nodiscard]] bool SvdDecompose(double* const* a, int m, int n, double* w, double* const* v);
