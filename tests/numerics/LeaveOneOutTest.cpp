// How well the model foretells rows that it has not seen: a table of docs/numerics.md.
#include "tests/numerics/ExampleLaminates.h"

#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>

namespace
{
struct Range
{
    const char* name;
    double from, to; // Hz
    double mostErMean, mostLossMean;
    int rows = 0;
    double erMost = 0.0, erSum = 0.0, lossMost = 0.0, lossSum = 0.0;
};

void Foretell(const Laminate& tables, std::size_t left, Range& range)
{
    Laminate others = tables;
    const auto place = static_cast<std::ptrdiff_t>(left);
    others.er.erase(others.er.begin() + place);
    others.loss.erase(others.loss.begin() + place);
    const std::complex<double> eps = FitTo(others).Evaluate(tables.er[left].frequency);
    const double er = 100.0 * std::fabs(eps.real() / tables.er[left].value - 1.0);
    const double loss = 100.0 * std::fabs(-eps.imag() / eps.real() / tables.loss[left].value - 1.0);
    ++range.rows;
    range.erSum += er;
    range.lossSum += loss;
    range.erMost = std::fmax(range.erMost, er);
    range.lossMost = std::fmax(range.lossMost, loss);
}

TEST(Numerics, RowsThatWereLeftOut)
{
    Range ranges[] = {{"below 10 MHz", 0.0, 1e7, 0.5, 30.0},
                      {"10 MHz to 1 GHz", 1e7, 1e9, 0.2, 12.0},
                      {"from 1 GHz up", 1e9, 1e12, 0.1, 3.0}};
    for (const ExampleLaminate& laminate : LoadExampleLaminates())
    {
        const Laminate& tables = laminate.tables;
        ASSERT_EQ(tables.er.size(), tables.loss.size()) << laminate.name;
        for (std::size_t left = 1; left + 1 < tables.er.size(); ++left)
        {
            const double f = tables.er[left].frequency;
            ASSERT_EQ(f, tables.loss[left].frequency) << laminate.name;
            for (Range& range : ranges)
            {
                if (f >= range.from && f < range.to)
                {
                    Foretell(tables, left, range);
                }
            }
        }
    }
    std::printf("| frequency | rows | Er max | Er mean | loss tangent max | loss tangent mean |\n"
                "|---|---:|---:|---:|---:|---:|\n");
    for (const Range& range : ranges)
    {
        ASSERT_GT(range.rows, 0);
        std::printf("| %s | %d | %.2f %% | %.2f %% | %.1f %% | %.1f %% |\n", range.name, range.rows,
                    range.erMost, range.erSum / range.rows, range.lossMost, range.lossSum / range.rows);
        EXPECT_LT(range.erSum / range.rows, range.mostErMean) << range.name;
        EXPECT_LT(range.lossSum / range.rows, range.mostLossMean) << range.name;
    }
}
} // namespace
