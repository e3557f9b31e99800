#include "chart/TickSearch.h"

#include "chart/CAxis.h"
#include "chart/Decades.h"
#include "chart/TolerantRounding.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

namespace
{
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST(TolerantRounding, TakesWhatIsNextToAWholeNumberForIt)
{
    const struct
    {
        double value, floor, ceil;
    } rows[] = {
        {3.0 + 5e-13, 3, 3},
        {3.0 + 2e-12, 3, 4},
        {4.0 - 5e-13, 4, 4},
        {4.0 - 2e-12, 3, 4},
        // A negative fraction is never within the tolerance.
        {-3.0 - 5e-13, -4, -3},
        {-3.0 + 5e-13, -3, -2},
        {infinity, infinity, infinity},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(FloorTolerant(row.value), row.floor) << row.value;
        EXPECT_EQ(CeilTolerant(row.value), row.ceil) << row.value;
    }
    for (const auto& [lo, hi, step] : {std::tuple(0.0, 3e9, 1.0), {nan, 1.0, 1.0}, {-1e308, 1e308, 1e-10}})
    {
        EXPECT_EQ(CountIntervals(lo, hi, step).count, 2147483647);
    }
}

TEST(ChooseLinearStep, PrefersLittleWasteThenTheFinerStep)
{
    const struct
    {
        double lo, hi;
        int pixels;
        double step;
    } rows[] = {
        {0.0, 1.0, 200, 0.1}, {0.3, 9.7, 100, 2.0},      {0.0, 1.0, 199, 0.2},   {0.0, 1.0, 40, 0.5},
        {0.0, 1.0, 0, 0.5},   {0.0, 1.0, -7, 0.5},       {4.26, 4.62, 123, 0.1}, {0.0, 1e4, 680, 500.0},
        {-1.0, 1.0, 40, 1.0}, {0.0, 1e-320, 40, 1e-301},
    };
    for (const auto& row : rows)
    {
        EXPECT_NEAR(ChooseLinearStep(row.lo, row.hi, row.pixels) / row.step, 1.0, 1e-9)
            << row.lo << " " << row.hi << " " << row.pixels;
    }
    for (const auto& [lo, hi] :
         {std::pair(1.0, 1.0), {2.0, 1.0}, {nan, 1.0}, {0.0, nan}, {-infinity, infinity}})
    {
        EXPECT_THROW((void)ChooseLinearStep(lo, hi, 100), std::invalid_argument) << lo << " " << hi;
    }
}

// No step of the same family that keeps the distance has less waste. (Among equal ones rounding may decide.)
TEST(ChooseLinearStep, IsTheBestOfAllStepsThatFit)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    for (int round = 0; round < 3'000; ++round)
    {
        const double size = std::pow(10.0, 6.0 * uniform(random));
        const double lo = size * uniform(random);
        const double hi = lo + size * (0.001 + std::fabs(uniform(random)));
        const int pixels = 20 + static_cast<int>(random() % 1'500);
        const int allowed = std::max(pixels / 20, 2);
        const double chosen = ChooseLinearStep(lo, hi, pixels);
        const IntervalCount count = CountIntervals(lo, hi, chosen);
        ASSERT_LE(count.count, allowed);
        const double waste = count.span - (hi - lo);
        for (int exponent = -12; exponent <= 9; ++exponent)
        {
            for (const double digits : {1.0, 2.0, 2.5, 5.0})
            {
                const double step = digits * std::pow(10.0, exponent);
                const IntervalCount other = CountIntervals(lo, hi, step);
                if (other.count > allowed || step > 1e6 * size)
                {
                    continue;
                }
                const double otherWaste = other.span - (hi - lo);
                const double slack = 3e-6 * other.span; // equal ones may follow each other
                ASSERT_GT(otherWaste, waste - slack) << lo << " " << hi << " " << step << " " << chosen;
            }
        }
    }
}

TEST(DecadeSteps, KeepTwentyPixelsBetweenTicksAndTenBetweenMinorOnes)
{
    const struct
    {
        double lo, hi;
        int pixels;
        double stride;
    } rows[] = {{1.0, 1e6, 100, 2.0}, {1.0, 1e6, 120, 1.0}, {1.0, 1e6, 119, 2.0},
                {2.0, 9.0, 40, 1.0},  {1e-9, 1e9, 40, 9.0}, {1.0, 1e6 * (1 + 1e-13), 120, 1.0},
                {1.0, 1e3, 0, 60.0}};
    for (const auto& row : rows)
    {
        EXPECT_EQ(ChooseDecadeStride(row.lo, row.hi, row.pixels), row.stride) << row.hi << " " << row.pixels;
    }
    const struct
    {
        double pixelsPerDecade;
        double step;
    } minorRows[] = {{300, 0.1},  {208, 0.1},  {207, 0.2},  {98.1, 0.2}, {98.0, 0.25}, {76.1, 0.25},
                     {76.0, 0.5}, {31.6, 0.5}, {31.5, 0.0}, {0.0, 0.0},  {nan, 0.0}};
    for (const auto& row : minorRows)
    {
        EXPECT_EQ(ChooseMinorDecadeStep(row.pixelsPerDecade), row.step) << row.pixelsPerDecade;
    }
}

TEST(CountSubdivisions, GoesWellWithTheDigitsOfTheStep)
{
    const struct
    {
        double step;
        int length, budget;
        bool logarithmic;
        int count;
    } rows[] = {
        // What fits comes through on a logarithmic axis.
        {1.0, 3, 600, true, 3},
        {1.0, 40, 600, true, 10},
        {1.0, 0, 600, true, 1},
        {1.0, 10, 3, true, 10}, // parts of nothing never use up the room
        {1.0, 100, 150, true, 10},
        // Digits 10 and 20: 3 and 4 become 5.
        {1.0, 2, 600, false, 2},
        {0.1, 3, 600, false, 5},
        {2e-7, 4, 600, false, 5},
        {20.0, 6, 600, false, 10},
        // 25: 5 to 8 become 8.
        {2.5, 3, 600, false, 4},
        {2.5e-3, 5, 600, false, 8},
        {25.0, 9, 600, false, 10},
        // 50 and any other.
        {5.0, 3, 600, false, 4},
        {50.0, 6, 600, false, 10},
        {3e12, 3, 600, false, 4},
        {nan, 5, 600, false, 5},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(CountSubdivisions(row.step, row.length, row.budget, row.logarithmic), row.count)
            << row.step << " " << row.length << " " << row.budget;
    }
}

TEST(Decades, WholePowersAreExact)
{
    for (int exponent = -22; exponent <= 22; ++exponent)
    {
        EXPECT_EQ(RaiseTen(exponent), std::stod("1e" + std::to_string(exponent))) << exponent;
        EXPECT_EQ(ScaleByDecades(RaiseTen(std::abs(exponent)), -std::abs(exponent)), 1.0) << exponent;
    }
    EXPECT_DOUBLE_EQ(RaiseTen(0.5), std::sqrt(10.0));
    EXPECT_EQ(RaiseTen(400.0), infinity);
    EXPECT_EQ(ScaleByDecades(1.0, -400.0), 0.0);
}

TEST(PixelArithmetic, AnyDoubleIsAPixelAndQuotientsRoundAsWindowsDoes)
{
    EXPECT_EQ(ToPixel(nan), -farthestPixel);
    EXPECT_EQ(ToPixel(infinity), farthestPixel);
    EXPECT_EQ(ToPixel(-1e300), -farthestPixel);
    EXPECT_EQ(ToPixel(-12.0), -12);
    // Written out: std::round itself is wrong just below a half on some systems.
    const std::pair<double, int> rounded[] = {{0.5, 1},
                                              {-0.5, -1},
                                              {2.5, 3},
                                              {-2.5, -3},
                                              {0.49999999999999994, 0},
                                              {-0.49999999999999994, 0},
                                              {1.4999999999999998, 1},
                                              {1234567.5, 1234568},
                                              {1234567.4999999998, 1234567}};
    for (const auto& [place, pixel] : rounded)
    {
        EXPECT_EQ(RoundToPixel(place), pixel) << place;
        EXPECT_EQ(RoundHalfAway(place), pixel) << place;
    }
    EXPECT_EQ(RoundToPixel(nan), -farthestPixel);
    EXPECT_EQ(RoundToPixel(-infinity), -farthestPixel);
    EXPECT_EQ(MultiplyDivide(3, 100, 141), 2);
    EXPECT_EQ(MultiplyDivide(700, 700, 33), 14848);
    EXPECT_EQ(MultiplyDivide(5, 1, 2), 3);
    EXPECT_EQ(MultiplyDivide(5, 1, 0), -1);
    EXPECT_EQ(MultiplyDivide(65536, 65536, 1), -1);
}
} // namespace
