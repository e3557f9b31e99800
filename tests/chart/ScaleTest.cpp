#include "chart/AxisTicks.h"
#include "chart/CAxisMapping.h"
#include "chart/ChartLayout.h"
#include "tests/chart/CRecorderCanvas.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace
{
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
