#include "chart/CChartControlWrapper.h"
#include "tests/chart/CFakeHost.h"
#include "tests/chart/MakeChart.h"

#include <gtest/gtest.h>

namespace
{
TEST(CChartControlWrapper, ReadsAndSetsThePrincipalAxes)
{
    CFakeHost host;
    CChart chart(host);
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
    info.GetColours(axisColour, gridColour);
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
    EXPECT_TRUE(host.log.empty());
    info.SetRequestedRange({40, 20}, {60, 20});
    EXPECT_EQ(host.TakeLog(), std::vector<std::string>{"invalidate and erase"});
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
    CChart chart(host);
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
