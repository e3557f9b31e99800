#include "chart/CCurveTracer.h"
#include "chart/ChartLayout.h"
#include "chart/PaintChart.h"
#include "tests/chart/CRasterCanvas.h"
#include "tests/chart/CRecorderCanvas.h"
#include "tests/chart/MakeChart.h"

#include <gtest/gtest.h>
#include <random>

namespace
{
// A walk that often stays in its column or on its pixel, with gaps; a dense one goes on slowly, far up and
// down.
std::vector<PixelLine> MakeSegments(std::mt19937& random, bool dense)
{
    std::vector<PixelLine> segments;
    PixelPoint at = {20, 60};
    const auto pick = [&random](int reach)
    { return static_cast<int>(random() % (2u * static_cast<unsigned>(reach) + 1u)) - reach; };
    for (int i = 0; i < 200; ++i)
    {
        const PixelPoint to = dense ? PixelPoint{at.x + (random() % 6 == 0 ? 1 : 0), 60 + pick(50)}
                                    : PixelPoint{at.x + (random() % 2 == 0 ? pick(9) : 0),
                                                 at.y + (random() % 3 == 0 ? 0 : pick(15))};
        at = !dense && random() % 9 == 0 ? PixelPoint{60 + pick(40), 60 + pick(40)} : at;
        segments.push_back({at, to});
        at = to;
    }
    return segments;
}

TEST(CCurveTracer, LightsThePixelsOfAllSegments)
{
    std::mt19937 random(1);
    for (int round = 0; round < 900; ++round)
    {
        const std::vector<PixelLine> segments = MakeSegments(random, round % 3 == 0);
        const Pen pen = {1, round % 5 == 0 ? 2 : 0, PenStyle::solid};
        CRasterCanvas plain(128, 128);
        CRasterCanvas traced(128, 128);
        CCurveTracer tracer(traced, pen);
        for (const PixelLine& segment : segments)
        {
            const PixelPoint points[] = {segment.from, segment.to};
            plain.DrawPolyline(pen, points);
            tracer.MoveTo(segment.from);
            tracer.LineTo(segment.to);
        }
        tracer.Finish();
        ASSERT_EQ(plain.GetPixels(), traced.GetPixels()) << round;
    }
}

TEST(CCurveTracer, KeepsEverySegmentOfADashedLine)
{
    CRecorderCanvas canvas;
    CCurveTracer tracer(canvas, {1, 0, PenStyle::dash});
    for (int y = 0; y < 5; ++y)
    {
        tracer.MoveTo({7, y});
        tracer.LineTo({7, y + 1});
    }
    tracer.Finish();
    EXPECT_EQ(canvas.GetLines().size(), 5u);
}

TEST(PaintCurves, AMillionPointsBecomeALineForEveryColumn)
{
    std::mt19937 random(9);
    std::vector<DataPoint> points;
    for (int i = 0; i < 1'000'000; ++i)
    {
        points.push_back({static_cast<double>(i), std::sin(i * 1e-5) + 1e-9 * static_cast<double>(random())});
    }
    CChartCurve curve = MakeCurve(std::move(points), 0x123456);
    CChartModel model;
    model.AddAxis(0, false);
    model.AddAxis(1, true);
    model.AddCurve(curve, 0, 1);
    model.SetScaleMode(false, false);
    CRecorderCanvas canvas;
    const PixelRect client = {0, 0, 760, 240};
    LayOutChart(model, client, canvas);
    PaintCurves({model, {}, {}, client}, canvas);
    const std::size_t lines = canvas.GetLines(0x123456).size();
    EXPECT_LT(lines, 760u);
    EXPECT_GT(lines, 500u);
}
} // namespace
