#include "chart/CAxisMapping.h"
#include "tests/chart/MakeChart.h"

#include <gtest/gtest.h>
#include <random>

namespace
{
TEST(Scale, TakesWhatIsNextToAWholeNumberForIt)
{
    const struct
    {
        double value, floor, ceil;
    } rows[] = {
        {3.0 + 5e-13, 3, 3},    {3.0 + 2e-12, 3, 4},           {4.0 - 5e-13, 4, 4},
        {4.0 - 2e-12, 3, 4},    {-3.0 - 5e-13, -4, -3}, // a negative fraction is never within the tolerance
        {-3.0 + 5e-13, -3, -2}, {infinity, infinity, infinity}};
    for (const auto& row : rows)
    {
        EXPECT_EQ(FloorTolerant(row.value), row.floor) << row.value;
        EXPECT_EQ(CeilTolerant(row.value), row.ceil) << row.value;
    }
    for (const auto& [lo, hi, step] :
         {std::tuple(0.0, 3e9, 1.0), {noNumber, 1.0, 1.0}, {-1e308, 1e308, 1e-10}})
    {
        EXPECT_EQ(CountIntervals(lo, hi, step).count, 2147483647);
    }
    for (int exponent = -22; exponent <= 22; ++exponent)
    {
        EXPECT_EQ(RaiseTen(exponent), std::stod("1e" + std::to_string(exponent))) << exponent;
        EXPECT_EQ(ScaleByDecades(RaiseTen(std::abs(exponent)), -std::abs(exponent)), 1.0) << exponent;
    }
    EXPECT_DOUBLE_EQ(RaiseTen(0.5), std::sqrt(10.0));
    EXPECT_EQ(RaiseTen(400.0), infinity);
    EXPECT_EQ(ScaleByDecades(1.0, -400.0), 0.0);
}

TEST(Scale, StepsPreferLittleWasteThenTheFinerStep)
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
         {std::pair(1.0, 1.0), {2.0, 1.0}, {noNumber, 1.0}, {0.0, noNumber}, {-infinity, infinity}})
    {
        EXPECT_THROW((void)ChooseLinearStep(lo, hi, 100), std::invalid_argument) << lo << " " << hi;
    }
}

// No step of the same family that keeps the distance has less waste. (Among equal ones rounding may decide.)
TEST(Scale, TheStepIsTheBestOfAllThatFit)
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
        const IntervalCount count = CountIntervals(lo, hi, ChooseLinearStep(lo, hi, pixels));
        ASSERT_LE(count.count, allowed);
        for (int exponent = -12; exponent <= 9; ++exponent)
        {
            for (const double digits : {1.0, 2.0, 2.5, 5.0})
            {
                const double step = digits * std::pow(10.0, exponent);
                const IntervalCount other = CountIntervals(lo, hi, step);
                const double slack = 3e-6 * other.span; // equal ones may follow each other
                ASSERT_TRUE(other.count > allowed || step > 1e6 * size || other.span > count.span - slack)
                    << lo << " " << hi << " " << step;
            }
        }
    }
}

TEST(Scale, DecadesKeepTwentyPixelsBetweenTicksAndTenBetweenMinorOnes)
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
    const std::pair<double, double> minorRows[] = {{300, 0.1},   {208, 0.1},   {207, 0.2},     {98.1, 0.2},
                                                   {98.0, 0.25}, {76.1, 0.25}, {76.0, 0.5},    {31.6, 0.5},
                                                   {31.5, 0.0},  {0.0, 0.0},   {noNumber, 0.0}};
    for (const auto& [pixelsPerDecade, step] : minorRows)
    {
        EXPECT_EQ(ChooseMinorDecadeStep(pixelsPerDecade), step) << pixelsPerDecade;
    }
}

TEST(Scale, SubdivisionsGoWellWithTheDigitsOfTheStep)
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
        {1.0, 3, 601, true, 3}, // no more parts than the length has units
        {1.0, 40, 600, true, 10},
        {1.0, 0, 600, true, 1},
        {1.0, 4, 1, true, 4}, // parts of nothing never use up the room
        {1.0, 10, 3, true, 10},
        {1.0, 100, 150, true, 10},
        // Digits 10 and 20: 3 and 4 become 5.
        {1.0, 2, 600, false, 2},
        {0.1, 3, 600, false, 5},
        {2e-7, 4, 600, false, 5},
        {20.0, 6, 600, false, 10},
        // 25: 5 to 8 become 8.
        {2.5, 3, 600, false, 4},
        {2.5e-3, 5, 600, false, 8},
        {2.5, 8, 600, false, 8},
        {25.0, 9, 600, false, 10},
        // 50 and any other.
        {5.0, 3, 600, false, 4},
        {50.0, 6, 600, false, 10},
        {3e12, 3, 600, false, 4},
        {noNumber, 5, 600, false, 5},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(CountSubdivisions(row.step, row.length, row.budget, row.logarithmic), row.count)
            << row.step << " " << row.length << " " << row.budget;
    }
}

TEST(Scale, LinearIntervalsHaveAMinorTickForEveryEightPixelsOrMore)
{
    const struct
    {
        double step, pixels;
        std::size_t parts;
    } rows[] = {{1.0, 15, 0}, {1.0, 16, 1}, {1.0, 24, 4}, {5.0, 24, 3}, {1.0, 47, 4},
                {1.0, 48, 9}, {2.5, 40, 7}, {2.5, 72, 9}, {1.0, 400, 9}};
    for (const auto& row : rows)
    {
        CAxis axis;
        axis.tickStep = row.step;
        axis.scale = row.pixels / row.step;
        EXPECT_EQ(ListMinorParts(axis, GetScale(false)).size(), row.parts) << row.step << " " << row.pixels;
    }
}

TEST(Scale, AnyDoubleIsAPixelAndQuotientsRoundAsWindowsDoes)
{
    EXPECT_EQ(ToPixel(noNumber), -farthestPixel);
    EXPECT_EQ(ToPixel(infinity), farthestPixel);
    EXPECT_EQ(ToPixel(-1e300), -farthestPixel);
    EXPECT_EQ(ToPixel(-12.0), -12);
    // Written out: std::round itself is wrong just below a half on some systems.
    const std::pair<double, int> rounded[] = {
        {0.5, 1}, {-0.5, -1}, {0.49999999999999994, 0}, {-0.49999999999999994, 0},    {1.4999999999999998, 1},
        {2.5, 3}, {-2.5, -3}, {1234567.5, 1234568},     {1234567.4999999998, 1234567}};
    for (const auto& [place, pixel] : rounded)
    {
        EXPECT_EQ(RoundToPixel(place), pixel) << place;
        EXPECT_EQ(RoundHalfAway(place), pixel) << place;
    }
    EXPECT_EQ(RoundToPixel(noNumber), -farthestPixel);
    EXPECT_EQ(RoundToPixel(-infinity), -farthestPixel);
    EXPECT_EQ(MultiplyDivide(3, 100, 141), 2);
    EXPECT_EQ(MultiplyDivide(700, 700, 33), 14848);
    EXPECT_EQ(MultiplyDivide(5, 1, 2), 3);
    EXPECT_EQ(MultiplyDivide(5, 1, 0), -1);
    EXPECT_EQ(MultiplyDivide(65536, 65536, 1), -1);
}

TEST(Scale, TicksAreTolerantAndShiftBackByWholeTicks)
{
    const IScale& linear = GetScale(false);
    EXPECT_EQ(linear.GetFirstTick(0.35, 0.1), 3 * 0.1);
    EXPECT_EQ(linear.GetFirstTick(4.0 - 5e-13, 1.0), 4.0);
    EXPECT_EQ(linear.GetLastTick(0.30000000000000004, 0.1, 0.0), 3 * 0.1);
    EXPECT_EQ(linear.ShiftBack(10.2, 2.5, 1), 7.5);
    EXPECT_TRUE(std::isfinite(linear.GetValueAtPixel(79, {100, -1, 1e-9, 2.0, 6.0})))
        << "ticks closer than pixels still give numbers";
    const IScale& logarithmic = GetScale(true);
    EXPECT_EQ(logarithmic.GetFirstTick(999.0, 2.0), 100.0);
    EXPECT_EQ(logarithmic.GetFirstTick(1e3 * (1 - 1e-13), 2.0), 1e3);
    EXPECT_EQ(logarithmic.ShiftBack(1e3, 1.0, 1), 1e2);
}

// For made-up charts of every kind: where a tick is drawn, and on a logarithmic axis a minor tick, the
// read-out shows its value to the last bit; and values grow with the pixels.
TEST(Scale, EveryDrawnTickReadsBackExactly)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> uniform(0.0, 1.0);
    std::size_t minorTicks = 0;
    for (int round = 0; round < 400; ++round)
    {
        const bool logarithmic = round % 2 == 1;
        CChartModel model = MakeModel();
        const auto setRange = [&](CAxis& axis, const IScale&, Direction)
        {
            axis.lowerLimit = logarithmic ? 1e-12 : axis.lowerLimit;
            axis.dataMin =
                logarithmic ? std::pow(10.0, -6.0 + 9.0 * uniform(random)) : 1e3 * uniform(random) - 500;
            axis.dataMax = logarithmic ? axis.dataMin * std::pow(10.0, 0.2 + 6.0 * uniform(random))
                                       : axis.dataMin + std::pow(10.0, -3.0 + 6.0 * uniform(random));
        };
        model.ForEachAxis(setRange);
        model.SetScaleMode(logarithmic, logarithmic);
        CRecorderCanvas canvas;
        const int width = 100 + static_cast<int>(random() % 1'500);
        LayOutChart(model, {0, 0, width, 100 + static_cast<int>(random() % 900)}, canvas);
        const auto readBack = [&](const CAxis& axis, const IScale& scale, Direction direction)
        {
            const CAxisMapping mapping(model, direction, axis);
            for (int i = 0; i <= CountTickIntervals(axis, scale); ++i)
            {
                const double tick = scale.GetTickValue(axis.visibleMin, axis.tickStep, i);
                ASSERT_EQ(mapping.GetValue(mapping.GetTickPixel(i)), tick) << round;
                for (const double part : ListMinorParts(axis, scale))
                {
                    const double minor = GetMinorTick(axis, scale, i, part);
                    const double read = mapping.GetValue(mapping.GetMinorTickPixel(minor));
                    ASSERT_NEAR(read / minor, 1.0, logarithmic ? 1e-15 : 1.0) << round;
                    minorTicks += logarithmic;
                }
            }
            for (int x = model.frame.plot.left; x < model.frame.plot.right; ++x)
            {
                ASSERT_EQ(mapping.GetValue(x) < mapping.GetValue(x + 1), direction == Direction::Horizontal);
            }
        };
        model.ForEachAxis(readBack);
    }
    EXPECT_GT(minorTicks, 3'000u);
}

TEST(PixelRect, EndsBeforeItsRightAndBottomEdge)
{
    constexpr PixelRect area = {1, 2, 4, 6};
    EXPECT_TRUE(area.Contains({1, 2}) && area.Contains({3, 5}));
    EXPECT_FALSE(area.Contains({0, 2}) || area.Contains({1, 1}) || area.Contains({4, 5}) ||
                 area.Contains({3, 6}));
}
} // namespace
