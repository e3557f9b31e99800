#pragma once

#include "chart/CChartMouse.h"
#include "tests/chart/CFakeHost.h"
#include "tests/chart/MakeChart.h"

#include <gtest/gtest.h>

// A chart of one curve from (0, 0) over (50, 150) to (100, 200) in a window of 500 x 300 pixels.
class CMouseFixture : public ::testing::Test
{
protected:
    CFakeHost host;
    CChart chart{host};
    CChartMouse mouse{chart, host};
    CChartCurve curve = MakeCurve({{0, 0}, {50, 150}, {100, 200}});

    void SetUp() override
    {
        chart.AddCurve(curve, 0, 1);
        chart.GetModel().SetScaleMode(false, false);
        mouse.OnSize();
    }

    [[nodiscard]] CAxis& Horizontal() { return *chart.GetModel().FindAxis(0); }
    [[nodiscard]] CAxis& Vertical() { return *chart.GetModel().FindAxis(1); }

    [[nodiscard]] PixelPoint GetPixel(DataPoint value) { return GetPixelOf(chart.GetModel(), value); }

    void Drag(PixelPoint from, PixelPoint to)
    {
        mouse.OnButtonDown(from);
        mouse.OnMove({(from.x + to.x) / 2, (from.y + to.y) / 2});
        mouse.OnMove(to);
        mouse.OnButtonUp(to);
    }
};
