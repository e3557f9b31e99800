#include "chart/win32/CGdiCanvas.h"
#include "tests/CPixels.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>

namespace
{
constexpr int size = 200;

std::size_t CountLit(const CPixels& pixels)
{
    const auto all = pixels.Read();
    return static_cast<std::size_t>(std::ranges::count_if(all, [](std::uint32_t p) { return p != 0; }));
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
} // namespace
