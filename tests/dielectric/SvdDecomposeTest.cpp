#include "dielectric/SvdDecompose.h"

#include "tests/dielectric/PlainFit.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace
{
struct Decomposition
{
    PlainMatrix u, v;
    std::vector<double> w;
    bool converged;
};

Decomposition Decompose(const PlainMatrix& a)
{
    const std::size_t n = a.front().size();
    Decomposition d{a, PlainMatrix(n, std::vector<double>(n, -1.0)), std::vector<double>(n, -1.0), false};
    std::vector<double*> rows, rowsOfV;
    for (std::vector<double>& row : d.u)
    {
        rows.push_back(row.data());
    }
    for (std::vector<double>& row : d.v)
    {
        rowsOfV.push_back(row.data());
    }
    d.converged = SvdDecompose(rows.data(), static_cast<int>(a.size()), static_cast<int>(n), d.w.data(),
                               rowsOfV.data());
    return d;
}

PlainMatrix MakeMatrix(std::size_t m, std::size_t n, double (*element)(double i, double k))
{
    PlainMatrix a(m, std::vector<double>(n));
    for (std::size_t i = 0; i < m; ++i)
    {
        for (std::size_t k = 0; k < n; ++k)
        {
            a[i][k] = element(static_cast<double>(i), static_cast<double>(k));
        }
    }
    return a;
}

double Ragged(double i, double k)
{
    return std::fmod(i * 37.0 + k * 11.0 + i * k * 5.0, 17.0) - 8.0;
}

struct SvdCase
{
    const char* name;
    PlainMatrix matrix;
    std::vector<double> values; // Descending; empty: not known beforehand.
};

const SvdCase svdCases[] = {
    {"one element", {{-3.0}}, {3.0}},
    {"one column", {{3.0}, {0.0}, {-4.0}}, {5.0}},
    {"one column of zeros", {{0.0}, {0.0}}, {0.0}},
    {"zero matrix", MakeMatrix(5, 3, [](double, double) { return 0.0; }), {0.0, 0.0, 0.0}},
    {"identity",
     MakeMatrix(4, 4, [](double i, double k) { return i == k ? 1.0 : 0.0; }),
     {1.0, 1.0, 1.0, 1.0}},
    {"diagonal with a negative and a zero",
     {{2.0, 0.0, 0.0}, {0.0, -7.0, 0.0}, {0.0, 0.0, 0.0}},
     {7.0, 2.0, 0.0}},
    {"square with known values", {{3.0, 0.0}, {4.0, 5.0}}, {std::sqrt(45.0), std::sqrt(5.0)}},
    {"nilpotent", {{0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}, {0.0, 0.0, 0.0}}, {1.0, 1.0, 0.0}},
    {"rank 1",
     MakeMatrix(6, 4, [](double i, double k) { return (i + 1.0) * (k + 1.0); }),
     {std::sqrt(91.0 * 30.0), 0.0, 0.0, 0.0}},
    {"rank 2 of 5", MakeMatrix(9, 5, [](double i, double k) { return i + k; }), {}},
    {"zero columns between others",
     MakeMatrix(9, 6, [](double i, double k) { return std::fmod(k, 2.0) == 1.0 ? 0.0 : Ragged(i, k); }),
     {}},
    {"leading zero column",
     MakeMatrix(7, 4, [](double i, double k) { return k == 0.0 ? 0.0 : Ragged(i, k); }),
     {}},
    {"tall", MakeMatrix(46, 6, Ragged), {}},
    {"large square", MakeMatrix(40, 40, Ragged), {}},
    {"widely scaled",
     MakeMatrix(12, 7,
                [](double i, double k)
                { return Ragged(i, k) * std::ldexp(1.0, static_cast<int>(-6.0 * k)); }),
     {}},
    {"tiny", MakeMatrix(8, 4, [](double i, double k) { return Ragged(i, k) * std::ldexp(1.0, -400); }), {}},
    {"huge", MakeMatrix(8, 4, [](double i, double k) { return Ragged(i, k) * std::ldexp(1.0, 400); }), {}},
    {"Hilbert", MakeMatrix(10, 8, [](double i, double k) { return 1.0 / (i + k + 1.0); }), {}},
};
} // namespace

TEST(SvdDecompose, IsTheDecompositionOfThePlainTranscriptionBitForBit)
{
    for (const SvdCase& row : svdCases)
    {
        SCOPED_TRACE(row.name);
        const Decomposition d = Decompose(row.matrix);
        Decomposition plain{row.matrix, d.v, d.w, true};
        ASSERT_TRUE(d.converged && DecomposePlainly(plain.u, plain.w, plain.v));
        EXPECT_EQ(plain.w, d.w);
        EXPECT_EQ(plain.u, d.u);
        EXPECT_EQ(plain.v, d.v);

        std::vector<double> sorted = d.w;
        std::sort(sorted.rbegin(), sorted.rend());
        for (std::size_t j = 0; j < row.values.size(); ++j)
        {
            EXPECT_NEAR(sorted[j], row.values[j], 1e-12 * (1.0 + sorted.front())) << j;
        }
    }
}

TEST(SvdDecompose, GivesUpOnNumbersThatAreNotFinite)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const double bad : {nan, infinity, -infinity, std::numeric_limits<double>::max()})
    {
        for (std::size_t where = 0; where < 12; ++where)
        {
            PlainMatrix a = MakeMatrix(4, 3, Ragged);
            a[where / 3][where % 3] = bad;
            const Decomposition d = Decompose(a);
            const bool useless =
                std::any_of(d.w.begin(), d.w.end(), [](double w) { return !std::isfinite(w); });
            EXPECT_TRUE(!d.converged || useless || bad == std::numeric_limits<double>::max()) << bad << where;
        }
    }
    EXPECT_FALSE(Decompose({{nan, 1.0}, {1.0, 1.0}}).converged);
    // The product that the shift is divided by underflows to 0.
    EXPECT_FALSE(
        Decompose({{1e-200, 2e-200, 3e-200}, {2e-200, 1e-200, 5e-200}, {7e-200, 1e-200, 1e-200}}).converged);
}
