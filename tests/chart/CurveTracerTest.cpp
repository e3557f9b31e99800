#include "chart/CCurveTracer.h"
#include "tests/chart/MakeChart.h"

#include <gtest/gtest.h>
#include <random>

namespace
{
// The pixels of all lines; wide ones put a square at every step.
class CRaster final : public CRecorderCanvas
{
public:
    std::vector<bool> pixels = std::vector<bool>(size * size);

    void DrawPolyline(const Pen& pen, std::span<const PixelPoint> points) override
    {
        for (std::size_t i = 1; i < points.size(); ++i)
        {
            const PixelPoint from = points[i - 1];
            const double dx = points[i].x - from.x;
            const double dy = points[i].y - from.y;
            const double steps = std::max({std::fabs(dx), std::fabs(dy), 1.0});
            for (double step = 0.0; step <= steps; ++step)
            {
                Light({RoundToPixel(from.x + dx * step / steps), RoundToPixel(from.y + dy * step / steps)},
                      pen.width / 2);
            }
        }
    }

private:
    static constexpr int size = 128;

    void Light(PixelPoint at, int reach)
    {
        for (int y = std::max(at.y - reach, 0); y <= std::min(at.y + reach, size - 1); ++y)
        {
            for (int x = std::max(at.x - reach, 0); x <= std::min(at.x + reach, size - 1); ++x)
            {
                pixels[static_cast<std::size_t>(y * size + x)] = true;
            }
        }
    }
};

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
    for (int round = 0; round < 300; ++round)
    {
        const std::vector<PixelLine> segments = MakeSegments(random, round % 3 == 0);
        const Pen pen = {1, round % 5 == 0 ? 2 : 0, PenStyle::solid};
        CRaster plain;
        CRaster traced;
        CCurveTracer tracer(traced, pen);
        for (const PixelLine& segment : segments)
        {
            const PixelPoint points[] = {segment.from, segment.to};
            plain.DrawPolyline(pen, points);
            tracer.MoveTo(segment.from);
            tracer.LineTo(segment.to);
        }
        tracer.Finish();
        ASSERT_EQ(plain.pixels, traced.pixels) << round;
    }
}

TEST(CCurveTracer, KeepsEverySegmentOfADashedLineOnce)
{
    CRecorderCanvas canvas;
    CCurveTracer tracer(canvas, {1, 0, PenStyle::dash});
    for (int y = 0; y < 3'000; ++y) // more than a polyline takes
    {
        tracer.MoveTo({7, y});
        tracer.LineTo({7, y + 1});
    }
    tracer.Finish();
    tracer.Finish();
    EXPECT_EQ(canvas.GetLines().size(), 3'000u);
    for (const CRecorderCanvas::Call& call : canvas.calls)
    {
        EXPECT_LE(call.points.size(), 2'048u);
    }
}

TEST(CCurveTracer, JoinsColumnsOfWideLinesThatMeet)
{
    for (const auto& [width, lines] : {std::pair(0, 2u), {2, 3u}})
    {
        CRecorderCanvas canvas;
        CCurveTracer tracer(canvas, {1, width, PenStyle::solid});
        tracer.MoveTo({7, 0});
        for (const PixelPoint to : {PixelPoint{7, 10}, {8, 5}, {8, 15}})
        {
            tracer.LineTo(to);
        }
        tracer.Finish();
        EXPECT_EQ(canvas.GetLines().size(), lines);
    }
}

TEST(CCurveTracer, AMillionPointsBecomeALineForEveryColumn)
{
    std::mt19937 random(9);
    std::vector<DataPoint> points;
    for (int i = 0; i < 1'000'000; ++i)
    {
        points.push_back({static_cast<double>(i), std::sin(i * 1e-5) + 1e-9 * static_cast<double>(random())});
    }
    CChartCurve curve = MakeCurve(std::move(points), 0x123456);
    CChartModel model = MakeModel();
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

constexpr DataRect box = {-1, -2, 3, 2};

TEST(ClipSegment, CutsToTheBox)
{
    const struct
    {
        PixelLine segment;
        std::optional<PixelLine> visible;
    } rows[] = {{{{-1, 0}, {3, 2}}, PixelLine{{-1, 0}, {3, 2}}},
                {{{-5, 1}, {7, 1}}, PixelLine{{-1, 1}, {3, 1}}},
                {{{2, 6}, {2, -6}}, PixelLine{{2, 2}, {2, -2}}},
                {{{-4, -4}, {6, 6}}, PixelLine{{-1, -1}, {2, 2}}},
                {{{6, -5}, {-2, 3}}, PixelLine{{3, -2}, {-1, 2}}},
                {{{0, 0}, {0, 9}}, PixelLine{{0, 0}, {0, 2}}},
                {{{-3, -2}, {-1, -2}}, PixelLine{{-1, -2}, {-1, -2}}}, // a corner
                {{{-3, 0}, {0, 4}}, {}},                               // past a corner
                {{{-2, 0}, {-9, 1}}, {}},
                {{{4, -9}, {5, 9}}, {}},
                {{{-9, 3}, {9, 4}}, {}},
                {{{0, -3}, {1, -9}}, {}}};
    const auto toData = [](PixelPoint at) { return DataPoint{1.0 * at.x, 1.0 * at.y}; };
    for (const auto& [segment, visible] : rows)
    {
        DataPoint from = toData(segment.from);
        DataPoint to = toData(segment.to);
        ASSERT_EQ(ClipSegment(box, from, to), visible.has_value()) << segment.from.x;
        if (visible)
        {
            EXPECT_TRUE(from.x == visible->from.x && from.y == visible->from.y) << segment.from.x;
            EXPECT_TRUE(to.x == visible->to.x && to.y == visible->to.y) << segment.from.x;
        }
    }
}

TEST(ClipSegment, TakesAnyFiniteNumbers)
{
    DataPoint a = {-1e308, -1e308};
    DataPoint b = {1e308, 1e308};
    ASSERT_TRUE(ClipSegment(box, a, b));
    EXPECT_TRUE(box.Contains(a) && box.Contains(b));
    constexpr double smallest = std::numeric_limits<double>::denorm_min(); // half of it is 0
    a = {0.0, 1.0};
    b = {smallest, 2.0};
    ASSERT_TRUE(ClipSegment({smallest, 0.0, 1.0, 3.0}, a, b));
    EXPECT_TRUE(a.y >= 1.0 && a.y <= 2.0) << a.y;
}
} // namespace
