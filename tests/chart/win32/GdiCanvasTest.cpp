#include "tests/chart/win32/CPixels.h"

#include "MaterialLibrary/chart/CCurveTracer.h"
#include "MaterialLibrary/chart/win32/CGdiCanvas.h"

#include <algorithm>
#include <array>
#include <gmock/gmock.h>
#include <random>

namespace
{
constexpr int size = 200;

std::size_t CountLit(const CPixels& pixels)
{
    const auto all = pixels.Read();
    return static_cast<std::size_t>(std::ranges::count_if(all, [](std::uint32_t p) { return p != 0; }));
}

// What a loop of LineTo lights for the same segments.
std::vector<std::uint32_t> DrawWithLineTo(const std::vector<PixelPoint>& points, Colour colour)
{
    const CPixels pixels(size, size);
    const CPen pen(CreatePen(PS_SOLID, 0, colour));
    const CSelectScope scope(pixels.GetContext(), pen.Get());
    MoveToEx(pixels.GetContext(), points.front().x, points.front().y, nullptr);
    for (const PixelPoint& point : points)
    {
        LineTo(pixels.GetContext(), point.x, point.y);
    }
    LineTo(pixels.GetContext(), points.back().x + 1, points.back().y);
    return pixels.Read();
}

std::vector<std::uint32_t> DrawWithTracer(const std::vector<PixelPoint>& points, Colour colour)
{
    const CPixels pixels(size, size);
    CGdiCanvas canvas(pixels.GetContext());
    CCurveTracer tracer(canvas, {colour, 0, PenStyle::solid});
    tracer.MoveTo(points.front());
    for (const PixelPoint& point : points)
    {
        tracer.LineTo(point);
    }
    tracer.Finish();
    return pixels.Read();
}

TEST(GdiCanvas, SolidLinesLightBothEnds)
{
    const CPixels pixels(size, size);
    CGdiCanvas canvas(pixels.GetContext());
    const std::array<PixelPoint, 2> line = {{{10, 10}, {19, 10}}};
    const std::array<PixelPoint, 2> dot = {{{50, 50}, {50, 50}}};
    canvas.DrawPolyline({0xFFFFFF, 1, PenStyle::solid}, line);
    EXPECT_EQ(CountLit(pixels), 10U);
    canvas.DrawPolyline({0x0000FF, 0, -1}, dot);
    EXPECT_EQ(CountLit(pixels), 11U);
    EXPECT_EQ(pixels.Read()[50 * size + 50], 0xFF0000U);
}

TEST(GdiCanvas, ClipsAndLeavesTheContextAsItWas)
{
    const CPixels pixels(size, size);
    {
        CGdiCanvas canvas(pixels.GetContext());
        canvas.Clip({0, 0, 5, 5});
        canvas.FillRectangle({0, 0, 10, 10}, 0x00FF00);
        EXPECT_EQ(CountLit(pixels), 25U);
        canvas.Unclip();
        canvas.FillRectangle({0, 0, 10, 10}, 0x00FF00);
        EXPECT_EQ(CountLit(pixels), 100U);
        canvas.Clip({0, 0, 5, 5});
    }
    LineTo(pixels.GetContext(), 0, 100);
    EXPECT_EQ(pixels.Read()[50 * size], 0U) << "the first pen of a context is black";
    EXPECT_EQ(CountLit(pixels), 90U);
}

// Of a hundred thousand points in two hundred columns only a few lines are drawn.
TEST(GdiCanvas, ReducedCurvesLightWhatEverySegmentLights)
{
    std::mt19937 random(7);
    for (const int pointsPerColumn : {1, 2, 3, 7, 500})
    {
        SCOPED_TRACE(pointsPerColumn);
        std::vector<PixelPoint> walk = {{0, 100}};
        for (int i = 0; i < size * pointsPerColumn; ++i)
        {
            const int step = static_cast<int>(random() % 41) - 20;
            walk.push_back({i / pointsPerColumn, std::clamp(walk.back().y + step, -50, size + 50)});
        }
        EXPECT_EQ(DrawWithTracer(walk, 0xFFFFFF), DrawWithLineTo(walk, 0xFFFFFF));
        for (PixelPoint& point : walk)
        {
            point = {static_cast<int>(random() % size), static_cast<int>(random() % size)};
        }
        EXPECT_EQ(DrawWithTracer(walk, 0xFFFFFF), DrawWithLineTo(walk, 0xFFFFFF));
    }
}
} // namespace
