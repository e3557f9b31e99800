#include "MaterialLibrary/dielectric/ErTrend.h"

#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace
{
struct TrendCase
{
    const char* name;
    std::vector<double> frequencies, values;
    double offset, slope;
};

double LogLine(double offset, double slope, double frequency)
{
    return offset + slope * std::log(frequency);
}

const TrendCase trendCases[] = {
    {"one point", {1e9}, {4.2}, 4.2, 0.0},
    {"one negative point at a negative frequency", {-1.0}, {-4.2}, -4.2, 0.0},
    {"two points falling", {1e6, 1e9}, {LogLine(5.0, -0.03, 1e6), LogLine(5.0, -0.03, 1e9)}, 5.0, -0.03},
    {"three points falling",
     {1e6, 1e8, 1e10},
     {LogLine(5.0, -0.03, 1e6) + 0.01, LogLine(5.0, -0.03, 1e8) - 0.02, LogLine(5.0, -0.03, 1e10) + 0.01},
     5.0,
     -0.03},
    {"rising: the sum of the values", {1e6, 1e9}, {4.0, 4.2}, 8.2, 0.0},
    {"negative at 100 GHz: the sum", {1e3, 1e4}, {9.0, 3.0}, 12.0, 0.0},
    {"level", {1e6, 1e7, 1e8}, {4.3, 4.3, 4.3}, 4.3, 0.0},
    {"level at one frequency", {1e9, 1e9, 1e9}, {0.1, 0.1, 0.1}, 0.1, 0.0},
    {"one frequency: the mean", {1e9, 1e9}, {4.0, 5.0}, 4.5, 0.0},
    {"nearly one frequency: the mean, even where it falls or rises", {1e9, 1.001e9}, {4.0, 5.0}, 4.5, 0.0},
    {"all at 1 Hz: the mean", {1.0, 1.0, 1.0}, {3.0, 4.0, 8.0}, 5.0, 0.0},
};
} // namespace

TEST(ErTrend, IsALineOverTheLogarithmOrItsReplacement)
{
    for (const TrendCase& row : trendCases)
    {
        const std::optional<ErTrend> trend = FindErTrend(row.frequencies, row.values);
        ASSERT_TRUE(trend) << row.name;
        EXPECT_NEAR(trend->offset, row.offset, row.slope == 0.0 ? 0.0 : 1e-11) << row.name;
        EXPECT_NEAR(trend->slope, row.slope, row.slope == 0.0 ? 0.0 : 1e-12) << row.name;
        EXPECT_NEAR(trend->At(1e9), LogLine(row.offset, row.slope, 1e9), 1e-11) << row.name;
    }
}

TEST(ErTrend, IsTheValueOfEveryLevelTable)
{
    // Least squares would give about one in five of these a slope of +1e-17 and with it the sum of the
    // values.
    for (int er = 2000; er < 5000; er += 7)
    {
        for (const std::vector<double>& f : {std::vector{1e6, 1e9}, std::vector{1e6, 3e7, 2e9, 1e10},
                                             std::vector{1e8, 5e8, 1e9, 2e9, 5e9, 1e10, 2e10}})
        {
            const std::vector<double> values(f.size(), er / 1000.0);
            const std::optional<ErTrend> trend = FindErTrend(f, values);
            ASSERT_TRUE(trend && trend->offset == values[0] && trend->slope == 0.0) << er << " " << f.size();
        }
    }
}

TEST(ErTrend, RefusesPointsThatAreNotAboveZero)
{
    for (const double bad : {0.0, -0.0, -1.0, -1e300})
    {
        for (std::size_t where = 0; where < 3; ++where)
        {
            std::vector<double> frequencies{1e6, 1e7, 1e8};
            std::vector<double> values{4.0, 4.0, 4.0};
            values[where] = bad;
            EXPECT_FALSE(FindErTrend(frequencies, values));
            std::swap(frequencies[where], values[where]);
            values[where] = 4.0;
            frequencies[where] = bad;
            EXPECT_FALSE(FindErTrend(frequencies, values));
        }
    }
}
