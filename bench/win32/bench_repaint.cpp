// A chart's window of 760 x 240 pixels painted again, against a bare loop of LineTo over the same segments.

#include "chart/CAxisMapping.h"
#include "chart/win32/CChartControl.h"
#include "framework/DrawingScopes.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <functional>

namespace
{
constexpr int width = 760;
constexpr int height = 240;

CChartCurve MakeCurve(int points, double offset, Colour colour)
{
    CChartCurve curve;
    unsigned random = 1;
    for (int i = 0; i < points; ++i)
    {
        random = random * 1'664'525U + 1'013'904'223U;
        const double noise = 0.02 * static_cast<double>(random >> 16) / 65'536.0;
        curve.points.push_back({static_cast<double>(i), offset + std::sin(5.0 * i / points) + noise});
    }
    curve.colour = colour;
    curve.UpdateBounds();
    return curve;
}

std::vector<POINT> MapCurve(const CChartModel& model, const CChartCurve& curve)
{
    const CAxisMapping horizontal(model, Direction::Horizontal, *model.FindAxis(0));
    const CAxisMapping vertical(model, Direction::Vertical, *model.FindAxis(1));
    std::vector<POINT> pixels;
    for (const DataPoint& point : curve.points)
    {
        pixels.push_back({horizontal.GetPixel(point.x), vertical.GetPixel(point.y)});
    }
    return pixels;
}

void PaintBare(HWND window, const std::vector<std::vector<POINT>>& curves)
{
    const CClientDC target(window);
    const CMemoryDC memory(CreateCompatibleDC(target.Get()));
    const CBitmap bitmap(CreateCompatibleBitmap(target.Get(), width, height));
    const CSelectScope bitmapScope(memory.get(), bitmap.get());
    PatBlt(memory.get(), 0, 0, width, height, BLACKNESS);
    const CPen pen(CreatePen(PS_SOLID, 0, 0x0000FF));
    const CSelectScope penScope(memory.get(), pen.get());
    for (const std::vector<POINT>& points : curves)
    {
        MoveToEx(memory.get(), points.front().x, points.front().y, nullptr);
        for (const POINT& point : points)
        {
            LineTo(memory.get(), point.x, point.y);
        }
    }
    BitBlt(target.Get(), 0, 0, width, height, memory.get(), 0, 0, SRCCOPY);
}

// Milliseconds of the middle one of many calls.
double Measure(const std::function<void()>& call)
{
    std::vector<double> times;
    for (int i = 0; i < 51; ++i)
    {
        const auto start = std::chrono::steady_clock::now();
        call();
        GdiFlush();
        times.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    }
    std::ranges::nth_element(times, times.begin() + 25);
    return times[25];
}

void Compare(int points)
{
    PlainWindowSettings settings{.className = CChartControl::windowClassName, .style = WS_POPUP | WS_VISIBLE};
    settings.left = settings.top = 0;
    settings.width = width;
    settings.height = height;
    const CWindowHandle window(CreatePlainWindow(settings));
    CSimpleChartControl chart;
    if (!chart.Attach(window.get()))
    {
        std::printf("no window\n");
        return;
    }
    CChartCurve curves[] = {MakeCurve(points, 0.0, 0x0000FF), MakeCurve(points, 0.5, 0x00FFFF)};
    std::vector<std::vector<POINT>> pixels;
    for (CChartCurve& curve : curves)
    {
        chart.AddCurve(curve, 0, 1);
    }
    chart.SetScaleMode(false, false);
    chart.RecomputeLayout();
    for (const CChartCurve& curve : curves)
    {
        pixels.push_back(MapCurve(chart.GetChart().GetModel(), curve));
    }
    const double ours = Measure(
        [&]
        {
            InvalidateRect(window.get(), nullptr, FALSE);
            UpdateWindow(window.get());
        });
    const double bare = Measure([&] { PaintBare(window.get(), pixels); });
    std::printf(
        "repaint of two curves of %d points: ours %.3f ms, bare LineTo loop %.3f ms, ours/bare %.2f\n",
        points, ours, bare, ours / bare);
}
} // namespace

int main()
{
    CChartControl::RegisterWindowClass();
    for (const int points : {100, 10'000, 1'000'000})
    {
        Compare(points);
    }
}
