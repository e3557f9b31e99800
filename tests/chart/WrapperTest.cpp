#include "chart/CChartControlWrapper.h"
#include "tests/chart/MakeChart.h"

#include <gtest/gtest.h>

namespace
{
TEST(CChartControlWrapper, ReadsAndSetsThePrincipalAxes)
{
    CFakeHost host;
    CChart& chart = host.chart;
    CChartControlWrapper wrapper(&chart);
    IHorzVertAxisInfo& info = wrapper;
    CChartCurve curve = MakeCurve({{0, 10}, {100, 30}});
    chart.AddCurve(curve, 0, 1);
    chart.GetModel().SetScaleMode(false, false);
    chart.RecomputeLayout();

    info.SetColours(0x112233, 0x445566);
    info.SetUnits("MHz", "dB");
    Colour axisColour = 0;
    Colour gridColour = 0;
    EXPECT_EQ(chart.GetModel().FindAxis(0)->axisColour, 0x112233u);
    EXPECT_EQ(chart.GetModel().FindAxis(0)->gridColour, 0x445566u);
    chart.GetModel().FindAxis(0)->axisColour = chart.GetModel().FindAxis(0)->gridColour = 1;
    info.GetColours(axisColour, gridColour); // of the vertical axis
    EXPECT_EQ(axisColour, 0x112233u);
    EXPECT_EQ(gridColour, 0x445566u);
    std::string horizontal;
    std::string vertical;
    info.GetUnits(horizontal, vertical);
    EXPECT_EQ(horizontal + vertical, "MHzdB");
    info.SetAutomaticPrefix(false);
    const CAxis& axis = *chart.GetModel().FindAxis(0);
    EXPECT_FALSE(axis.automaticPrefix);
    DataPoint low;
    DataPoint high;
    info.GetDataRange(low, high);
    EXPECT_EQ(low.x + low.y, 10.0);
    EXPECT_EQ(high.x + high.y, 130.0);
    EXPECT_EQ(host.invalidations, 0);
    info.SetRequestedRange({40, 20}, {60, 20});
    EXPECT_EQ(host.invalidations, 1);
    info.GetRequestedRange(low, high);
    EXPECT_EQ(low.x, 40.0);
    EXPECT_EQ(low.y, 19.5); // widened
    EXPECT_EQ(high.y, 20.5);
    info.GetAxisRange(low, high);
    EXPECT_EQ(low.x, axis.visibleMin - axis.tickStep);
    EXPECT_EQ(high.x, axis.visibleMax + axis.tickStep);
}

TEST(CChartControlWrapper, HasADefaultForAMissingAxis)
{
    CFakeHost host;
    CChart& chart = host.chart;
    chart.GetModel().FindAxis(1)->identifier = 5;
    CChartControlWrapper wrapper(&chart);
    Colour axisColour = 0;
    Colour gridColour = 0;
    wrapper.GetColours(axisColour, gridColour);
    EXPECT_EQ(axisColour, 0xFFFFFFu);
    EXPECT_EQ(gridColour, 0x808080u);
    wrapper.SetTitles("x", "nowhere");
    wrapper.SetRequestedRange({1, 2}, {3, 4});
    EXPECT_EQ(chart.GetModel().FindAxis(5)->title, "");
    EXPECT_EQ(chart.GetModel().FindAxis(0)->title, "x");
    DataPoint low = {-7, -7};
    DataPoint high = {-7, -7};
    wrapper.GetAxisRange(low, high);
    EXPECT_EQ(low.y, -7.0);
    EXPECT_NE(low.x, -7.0);
}
} // namespace
