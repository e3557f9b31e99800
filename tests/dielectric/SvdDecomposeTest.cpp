#include "dielectric/SvdDecompose.h"

#include "fuzz/plain_fit/PlainFit.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numeric>

namespace
{
double Ragged(int i, int k)
{
    return (i * 37 + k * 11 + i * k * 5) % 17 - 8;
}

struct Row
{
    int m, n;
    double (*element)(int i, int k);
};

// What comes of a matrix and a target of 1, 2, 3 ...
struct Decomposition
{
    bool converged;
    std::vector<double> target, w, v;

    explicit Decomposition(const Row& row)
        : target(static_cast<std::size_t>(row.m)), w(static_cast<std::size_t>(row.n), -1.0),
          v(static_cast<std::size_t>(row.n * row.n))
    {
        std::vector<double> elements;
        for (int k = 0; k < row.n; ++k)
        {
            for (int i = 0; i < row.m; ++i)
            {
                elements.push_back(row.element(i, k));
            }
        }
        std::iota(target.begin(), target.end(), 1.0);
        std::vector<double> scratch(static_cast<std::size_t>(row.m + row.n));
        LeftSteps left;
        converged = SvdDecompose({elements.data(), row.m}, left, w, {v.data(), row.n}, scratch);
        ApplyLeft(elements, left, target);
    }
};

TEST(SvdDecompose, IsThePlainOneToTheLastBit)
{
    const Row rows[] = {
        {1, 1, [](int, int) { return -3.0; }},
        {4, 4, [](int i, int k) { return i == k ? 1.0 : 0.0; }},
        {2, 2, [](int i, int) { return i == 1 ? 1.0 : 0.0; }},
        {3, 3, [](int i, int k) { return k == i + 1 ? 1.0 : 0.0; }}, // nilpotent
        {5, 3, [](int, int) { return 0.0; }},
        {9, 5, [](int i, int k) { return 1.0 * i + k; }}, // rank 2
        {9, 6, [](int i, int k) { return k % 2 == 1 ? 0.0 : Ragged(i, k); }},
        {7, 4, [](int i, int k) { return k == 0 ? 0.0 : Ragged(i, k); }},
        {40, 40, Ragged},
        {12, 7, [](int i, int k) { return std::ldexp(Ragged(i, k), -6 * k); }},
        {8, 4, [](int i, int k) { return std::ldexp(Ragged(i, k), -400); }},
        {8, 4, [](int i, int k) { return std::ldexp(Ragged(i, k), 400); }},
        {10, 8, [](int i, int k) { return 1.0 / (i + k + 1); }}, // Hilbert
    };
    for (const Row& row : rows)
    {
        const Decomposition fast(row);
        const auto n = static_cast<std::size_t>(row.n);
        PlainMatrix a;
        std::vector<double> target;
        for (int i = 0; i < row.m; ++i)
        {
            target.push_back(i + 1.0);
            a.emplace_back();
            for (int k = 0; k < row.n; ++k)
            {
                a.back().push_back(row.element(i, k));
            }
        }
        std::vector<double> w(n);
        PlainMatrix v(n, std::vector<double>(n));
        ASSERT_TRUE(fast.converged && DecomposePlainly(a, target, w, v));
        target.resize(n);
        EXPECT_TRUE(std::equal(target.begin(), target.end(), fast.target.begin())) << &row - rows;
        EXPECT_EQ(fast.w, w) << &row - rows;
        for (std::size_t i = 0; i < n * n; ++i)
        {
            EXPECT_EQ(fast.v[i], v[i % n][i / n]) << &row - rows;
        }
    }
}

TEST(SvdDecompose, GivesUpOnNumbersThatAreNotFinite)
{
    const Row rows[] = {
        {4, 3, [](int i, int k) { return i == 3 && k == 1 ? double{NAN} : Ragged(i, k); }},
        {4, 3, [](int i, int k) { return i == 0 && k == 0 ? HUGE_VAL : Ragged(i, k); }},
        // The product that the shift is divided by underflows to 0.
        {3, 3, [](int i, int k) { return 1e-200 * (1 + (i * 5 + k * 2) % 7); }},
    };
    for (const Row& row : rows)
    {
        const Decomposition result(row);
        EXPECT_TRUE(!result.converged ||
                    std::ranges::any_of(result.w, [](double x) { return !std::isfinite(x); }));
    }
    EXPECT_FALSE(Decomposition(rows[2]).converged);
}
} // namespace
