#include "tests/chart/CRecorderCanvas.h"

#include "MaterialLibrary/chart/AxisTicks.h"
#include "MaterialLibrary/chart/CAxisMapping.h"
#include "MaterialLibrary/chart/ChartLayout.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace
{
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST(RoundHalfAway, IsExactJustBelowAndAtAHalf)
{
    EXPECT_EQ(RoundHalfAway(0.49999999999999994), 0.0);
    EXPECT_EQ(RoundHalfAway(-0.49999999999999994), 0.0);
    EXPECT_EQ(RoundHalfAway(0.5), 1.0);
    EXPECT_EQ(RoundHalfAway(-2.5), -3.0);
    EXPECT_EQ(RoundHalfAway(4503599627370497.0), 4503599627370497.0);
}

TEST(Scale, LinearOperations)
{
    const IScale& scale = GetScale(false);
    EXPECT_FALSE(scale.IsLogarithmic());
    EXPECT_EQ(scale.Transform(-3.5), -3.5);
    EXPECT_EQ(scale.GetFirstTick(0.35, 0.1), 3 * 0.1);
    EXPECT_EQ(scale.GetFirstTick(0.30000000000000004, 0.1), 3 * 0.1);
    EXPECT_EQ(scale.GetLastTick(0.31, 0.1, nan), 4 * 0.1);
    EXPECT_EQ(scale.GetTickValue(10.0, 2.5, 3), 17.5);
    EXPECT_EQ(scale.GetValueAtOffset(10.0, 30.0, 4.0), 17.5);
    EXPECT_EQ(scale.ShiftBack(10.2, 2.5, 1), 7.5);
    EXPECT_EQ(scale.ShiftBack(10.0, 2.5, -2), 15.0);
}

TEST(Scale, LogarithmicOperations)
{
    const IScale& scale = GetScale(true);
    EXPECT_TRUE(scale.IsLogarithmic());
    EXPECT_EQ(scale.Transform(1e6), 6.0);
    EXPECT_EQ(scale.GetFirstTick(999.0, 2.0), 100.0);
    EXPECT_EQ(scale.GetFirstTick(1e3 * (1 - 1e-13), 2.0), 1e3);
    EXPECT_EQ(scale.GetLastTick(1.5e5, 2.0, 10.0), 1e7);
    EXPECT_EQ(scale.GetLastTick(1e5, 2.0, 10.0), 1e5);
    EXPECT_TRUE(std::isfinite(scale.GetLastTick(1e308, 200.0, 1.0)));
    EXPECT_EQ(scale.GetTickValue(10.0, 2.0, 3), 1e7);
    EXPECT_EQ(scale.GetTickValue(1e7, 2.0, -3), 10.0);
    EXPECT_DOUBLE_EQ(scale.GetValueAtOffset(10.0, 25.0, 50.0), 10.0 * std::sqrt(10.0));
    EXPECT_EQ(scale.ShiftBack(1e3, 1.0, 1), 1e2);
    EXPECT_EQ(scale.ShiftBack(1e3, 1.0, -1), 1e4);
}

// Ticks 10.4 pixels apart stand on 0, 10, 21, 31, ...; between two of them values are interpolated.
TEST(Scale, PixelsOnTicksReadTheTicksValue)
{
    AxisPlacement placement{100, 1, 5.2, 2.0, 6.0};
    const IScale& scale = GetScale(false);
    EXPECT_EQ(scale.GetValueAtPixel(100, placement), 6.0);
    EXPECT_EQ(scale.GetValueAtPixel(110, placement), 8.0);
    EXPECT_EQ(scale.GetValueAtPixel(121, placement), 10.0);
    EXPECT_DOUBLE_EQ(scale.GetValueAtPixel(115, placement), 8.0 + 2.0 * 5 / 11);
    EXPECT_EQ(scale.GetValueAtPixel(90, placement), 4.0);
    placement.sign = -1;
    EXPECT_EQ(scale.GetValueAtPixel(79, placement), 10.0);
    placement.scale = 1e-9; // ticks closer than pixels still give numbers
    EXPECT_TRUE(std::isfinite(scale.GetValueAtPixel(79, placement)));
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
        CChartModel model;
        model.AddAxis(0, false);
        model.AddAxis(1, true);
        for (const std::int32_t identifier : {0, 1})
        {
            CAxis& axis = *model.FindAxis(identifier);
            axis.lowerLimit = logarithmic ? 1e-12 : axis.lowerLimit;
            axis.dataMin =
                logarithmic ? std::pow(10.0, -6.0 + 9.0 * uniform(random)) : 1e3 * uniform(random) - 500;
            axis.dataMax = logarithmic ? axis.dataMin * std::pow(10.0, 0.2 + 6.0 * uniform(random))
                                       : axis.dataMin + std::pow(10.0, -3.0 + 6.0 * uniform(random));
        }
        model.SetScaleMode(logarithmic, logarithmic);
        CRecorderCanvas canvas;
        LayOutChart(model,
                    {0, 0, 100 + static_cast<int>(random() % 1'500), 100 + static_cast<int>(random() % 900)},
                    canvas);
        for (const Direction direction : {Direction::Horizontal, Direction::Vertical})
        {
            const CAxis& axis = model.GetAxis(direction, 0);
            const IScale& scale = model.GetScale(direction);
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
            const PixelRect& plot = model.frame.plot;
            for (int x = plot.left; direction == Direction::Horizontal && x < plot.right; ++x)
            {
                ASSERT_LT(mapping.GetValue(x), mapping.GetValue(x + 1)) << round << " " << x;
            }
        }
    }
    EXPECT_GT(minorTicks, 3'000u);
}
} // namespace
