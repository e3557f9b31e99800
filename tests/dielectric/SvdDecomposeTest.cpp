#include "dielectric/SvdDecompose.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace
{
// m x n, column after column.
using Element = double (*)(int i, int k);
struct Matrix
{
    int m, n;
    std::vector<double> elements;

    Matrix(
        int rows, int columns, Element element = [](int, int) { return -1.0; })
        : m(rows), n(columns)
    {
        for (int k = 0; k < n; ++k)
        {
            for (int i = 0; i < m; ++i)
            {
                elements.push_back(element(i, k));
            }
        }
    }
    MatrixOfColumns Columns() { return {elements.data(), m}; }
};

double Product(const double* x, const double* y, int count)
{
    double sum = 0.0;
    for (int i = 0; i < count; ++i)
    {
        sum += x[i] * y[i];
    }
    return sum;
}

double Ragged(int i, int k)
{
    return (i * 37 + k * 11 + i * k * 5) % 17 - 8;
}

// Fills w and v and, one target after the other, u.
bool Decompose(const Matrix& a, Matrix& u, std::vector<double>& w, Matrix& v)
{
    std::vector<double> scratch(static_cast<std::size_t>(a.m + a.n));
    for (int row = 0; row < a.m; ++row)
    {
        Matrix copy = a;
        std::vector<double> target(static_cast<std::size_t>(a.m));
        target[static_cast<std::size_t>(row)] = 1.0;
        if (!SvdDecompose(copy.Columns(), target, w, v.Columns(), scratch))
        {
            return false;
        }
        for (int j = 0; j < a.n; ++j)
        {
            u.Columns()(row, j) = target[static_cast<std::size_t>(j)];
        }
    }
    return true;
}

TEST(SvdDecompose, GivesOrthogonalFactorsOfTheMatrix)
{
    const Matrix matrices[] = {
        {1, 1, [](int, int) { return -3.0; }},
        {4, 4, [](int i, int k) { return i == k ? 1.0 : 0.0; }},
        {2, 2, [](int i, int) { return i == 1 ? 1.0 : 0.0; }},
        {3, 3, [](int i, int k) { return k == i + 1 ? 1.0 : 0.0; }}, // nilpotent
        {5, 3, [](int, int) { return 0.0; }},
        {9, 5, [](int i, int k) { return 1.0 * i + k; }}, // rank 2
        {9, 6, [](int i, int k) { return k % 2 == 1 ? 0.0 : Ragged(i, k); }},
        {7, 4, [](int i, int k) { return k == 0 ? 0.0 : Ragged(i, k); }},
        {46, 6, Ragged},
        {40, 40, Ragged},
        {12, 7, [](int i, int k) { return std::ldexp(Ragged(i, k), -6 * k); }},
        {8, 4, [](int i, int k) { return std::ldexp(Ragged(i, k), -400); }},
        {8, 4, [](int i, int k) { return std::ldexp(Ragged(i, k), 400); }},
        {10, 8, [](int i, int k) { return 1.0 / (i + k + 1); }}, // Hilbert
    };
    for (const Matrix& matrix : matrices)
    {
        SCOPED_TRACE(&matrix - matrices);
        Matrix u = matrix;
        Matrix v(matrix.n, matrix.n);
        std::vector<double> w(static_cast<std::size_t>(matrix.n), -1.0);
        ASSERT_TRUE(Decompose(matrix, u, w, v));
        const double largest = *std::max_element(w.begin(), w.end());
        EXPECT_GE(*std::min_element(w.begin(), w.end()), 0.0);
        for (int j = 0; j < matrix.n; ++j)
        {
            for (int k = 0; k <= j; ++k)
            {
                const double expected = j == k ? 1.0 : 0.0;
                EXPECT_NEAR(Product(v.Columns().Column(j), v.Columns().Column(k), matrix.n), expected, 1e-13);
                EXPECT_NEAR(Product(u.Columns().Column(j), u.Columns().Column(k), matrix.m), expected, 1e-13);
            }
            for (int i = 0; i < matrix.m; ++i)
            {
                double sum = 0.0; // of A V, which is U diag(w)
                for (int k = 0; k < matrix.n; ++k)
                {
                    sum += Matrix(matrix).Columns()(i, k) * v.Columns()(k, j);
                }
                EXPECT_NEAR(sum, u.Columns()(i, j) * w[static_cast<std::size_t>(j)], 1e-13 * largest);
            }
        }
    }
}

TEST(SvdDecompose, GivesUpOnNumbersThatAreNotFinite)
{
    for (const double bad : {double{NAN}, HUGE_VAL, -HUGE_VAL})
    {
        for (std::size_t where = 0; where < 12; ++where)
        {
            Matrix a(4, 3, Ragged);
            Matrix v(3, 3);
            std::vector<double> w(3);
            a.elements[where] = bad;
            EXPECT_TRUE(!Decompose(a, a, w, v) ||
                        std::any_of(w.begin(), w.end(), [](double x) { return !std::isfinite(x); }));
        }
    }
    // The product that the shift is divided by underflows to 0.
    Matrix tiny(3, 3, [](int i, int k) { return 1e-200 * (1 + (i * 5 + k * 2) % 7); });
    Matrix v(3, 3);
    std::vector<double> w(3);
    EXPECT_FALSE(Decompose(tiny, tiny, w, v));
}
} // namespace
