#pragma once

#include <cstddef>
#include <span>
#include <vector>

// A matrix stored column after column without gaps, since the work runs down the columns.
struct MatrixOfColumns
{
    double* elements;
    int height;
    double* Column(int k) const { return elements + static_cast<std::ptrdiff_t>(k) * height; }
    double& operator()(int i, int k) const { return Column(k)[i]; }
};

// What a decomposition does to a target to make U^T * target of it, in the order in which it is done.
struct LeftSteps
{
    struct Reflection
    {
        int column; // of the vector, which begins at the diagonal
        double divisor;
    };
    struct Rotation
    {
        int first;
        int second;
        double c;
        double s;
    };
    std::vector<Reflection> reflections;
    std::vector<Rotation> rotations;
};

// Singular value decomposition of a matrix of n columns and m >= n rows, a = U * diag(w) * V^T, after Golub
// and Reinsch, Numer. Math. 14 (1970), for least squares problems with one matrix and any number of targets:
// U itself is not formed, ApplyLeft applies it.
//
// On success `w` holds the n singular values, none of them negative, `v` (n x n) the matrix V, and `a` and
// `left` what ApplyLeft needs. U has orthonormal columns, V is orthogonal, whatever the rank. The singular
// values stay in the order in which the iteration leaves them: they are not sorted. `scratch` has room for
// n + m numbers.
//
// Returns false where a singular value has not converged at the 30th iteration; the contents are then of no
// use. That takes numbers which are not finite or whose squares leave the range of doubles; such numbers do
// no other harm than useless results.
[[nodiscard]] bool SvdDecompose(MatrixOfColumns a, LeftSteps& left, std::span<double> w, MatrixOfColumns v,
                                std::span<double> scratch);

// Makes U^T * target of the first n of the target's m numbers; `a` and `left` are what SvdDecompose left.
void ApplyLeft(std::span<const double> a, const LeftSteps& left, std::span<double> target);
