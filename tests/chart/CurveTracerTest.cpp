#include "chart/CCurveTracer.h"
#include "tests/chart/MakeChart.h"

#include <bit>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>

namespace
{
// Pixels, with thin lines by the usual midpoint steps; wide lines put a square at every step.
class CRaster final : public CRecorderCanvas
{
public:
    std::vector<bool> pixels = std::vector<bool>(size * size);

    void DrawPolyline(const Pen& pen, std::span<const PixelPoint> points) override
    {
        for (std::size_t i = 1; i < points.size(); ++i)
        {
            Walk(points[i - 1], points[i], pen.width / 2);
        }
    }

private:
    static constexpr int size = 128;

    void Walk(PixelPoint from, PixelPoint to, int reach)
    {
        const int dx = std::abs(to.x - from.x);
        const int dy = std::abs(to.y - from.y);
        for (int error = dx - dy;;)
        {
            Light(from, reach);
            if (from == to)
            {
                return;
            }
            const int twice = 2 * error;
            if (twice > -dy)
            {
                error -= dy;
                from.x += from.x < to.x ? 1 : -1;
            }
            if (twice < dx)
            {
                error += dx;
                from.y += from.y < to.y ? 1 : -1;
            }
        }
    }

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
    for (int round = 0; round < 900; ++round)
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

// What is left is a part of the segment, in the box, with all of it that is there.
TEST(ClipSegment, CutsToTheBox)
{
    std::mt19937 random(4);
    std::uniform_real_distribution<double> near(-6.0, 6.0);
    int visible = 0;
    for (int i = 0; i < 50'000; ++i)
    {
        const auto pick = [&] { return i % 4 == 0 ? std::round(near(random)) : near(random); };
        const DataPoint a = {pick(), pick()};
        const DataPoint b = {pick(), pick()};
        if (a.x == b.x && a.y == b.y)
        {
            continue;
        }
        const auto getPart = [&](const DataPoint& at) // between 0 and 1
        {
            return std::fabs(b.x - a.x) > std::fabs(b.y - a.y) ? (at.x - a.x) / (b.x - a.x)
                                                               : (at.y - a.y) / (b.y - a.y);
        };
        DataPoint from = a;
        DataPoint to = b;
        const bool clipped = ClipSegment(box, from, to);
        const double first = clipped ? getPart(from) : 2.0;
        const double last = clipped ? getPart(to) : -1.0;
        if (clipped)
        {
            ++visible;
            ASSERT_TRUE(box.Contains(from) && box.Contains(to) && first <= last + 1e-9) << i;
            ASSERT_NEAR(from.x, a.x + first * (b.x - a.x), 1e-9);
            ASSERT_NEAR(to.y, a.y + last * (b.y - a.y), 1e-9);
        }
        for (double part = 0.0; part <= 1.0; part += 1.0 / 64)
        {
            const bool inside = box.Contains({a.x + part * (b.x - a.x), a.y + part * (b.y - a.y)});
            ASSERT_TRUE(inside ? part > first - 1e-9 && part < last + 1e-9
                               : part < first + 1e-9 || part > last - 1e-9)
                << i;
        }
    }
    EXPECT_GT(visible, 10'000);
}

TEST(ClipSegment, TakesAnyFiniteNumbers)
{
    DataPoint a = {-1e308, -1e308};
    DataPoint b = {1e308, 1e308};
    ASSERT_TRUE(ClipSegment(box, a, b));
    EXPECT_TRUE(box.Contains(a) && box.Contains(b));
    std::mt19937_64 random(8);
    for (int i = 0; i < 100'000; ++i)
    {
        const auto pick = [&random]
        {
            const auto value = std::bit_cast<double>(random());
            return std::isfinite(value) ? value : 0.0;
        };
        a = {pick(), pick()};
        b = {pick(), pick()};
        if (ClipSegment(box, a, b))
        {
            ASSERT_TRUE(box.Contains(a) && box.Contains(b));
        }
    }
    constexpr double smallest = std::numeric_limits<double>::denorm_min(); // half of it is 0
    a = {0.0, 1.0};
    b = {smallest, 2.0};
    ASSERT_TRUE(ClipSegment({smallest, 0.0, 1.0, 3.0}, a, b));
    EXPECT_TRUE(a.y >= 1.0 && a.y <= 2.0) << a.y;
}

} // namespace
