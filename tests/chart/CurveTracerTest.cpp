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

// The part of the segment within the box by its parameters, or an empty one.
struct Part
{
    long double from = 0;
    long double to = 1;
};

Part FindPart(const DataPoint& a, const DataPoint& b)
{
    Part part;
    const auto cut = [&part](long double start, long double extent, long double lo, long double hi)
    {
        if (extent == 0)
        {
            part.to = start >= lo && start <= hi ? part.to : -1;
            return;
        }
        part.from = std::max(part.from, std::min((lo - start) / extent, (hi - start) / extent));
        part.to = std::min(part.to, std::max((lo - start) / extent, (hi - start) / extent));
    };
    cut(a.x, static_cast<long double>(b.x) - a.x, box.xMin, box.xMax);
    cut(a.y, static_cast<long double>(b.y) - a.y, box.yMin, box.yMax);
    return part;
}

TEST(ClipSegment, CutsToTheBox)
{
    std::mt19937 random(4);
    std::uniform_real_distribution<double> near(-6.0, 6.0);
    int visible = 0;
    for (int i = 0; i < 200'000; ++i)
    {
        const auto pick = [&] { return i % 4 == 0 ? std::round(near(random)) : near(random); };
        const DataPoint a = {pick(), pick()};
        const DataPoint b = {pick(), pick()};
        const Part part = FindPart(a, b);
        DataPoint from = a;
        DataPoint to = b;
        const bool clipped = ClipSegment(box, from, to);
        if (part.to - part.from > 1e-9L || part.to - part.from < -1e-9L)
        {
            ASSERT_EQ(clipped, part.to > part.from) << i;
        }
        if (clipped)
        {
            ++visible;
            ASSERT_TRUE(box.Contains(from) && box.Contains(to));
            ASSERT_NEAR(from.x, static_cast<double>(a.x + part.from * (b.x - a.x)), 1e-9);
            ASSERT_NEAR(from.y, static_cast<double>(a.y + part.from * (b.y - a.y)), 1e-9);
            ASSERT_NEAR(to.x, static_cast<double>(a.x + part.to * (b.x - a.x)), 1e-9);
            ASSERT_NEAR(to.y, static_cast<double>(a.y + part.to * (b.y - a.y)), 1e-9);
        }
    }
    EXPECT_GT(visible, 50'000);
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
