#include "chart/CSvgCanvas.h"
#include "tests/chart/MakeChart.h"

#include <gtest/gtest.h>

namespace
{
TEST(CSvgCanvas, WritesEachCall)
{
    CSvgCanvas canvas({30, 20}, 10);
    const PixelPoint points[] = {{1, 2}, {4, 2}, {4, 9}};
    canvas.DrawPolyline({0x0000FF, 0, PenStyle::solid}, points);
    canvas.DrawPolyline({0x0000FF, 0, PenStyle::solid}, std::span(points).first(2)); // in one path
    canvas.DrawPolyline({0x332211, 3, PenStyle::dot}, points);
    const PixelPoint dot[] = {{3, 4}, {3, 4}};
    canvas.DrawPolyline({0xFFFFFF, 0, PenStyle::solid}, dot);
    canvas.Clip({1, 2, 5, 9});
    canvas.WriteText({2, 3}, " 4 < 5 ", 0xFFFFFF, 0x010203);
    canvas.WriteText({2, 3}, "  ", 0xFFFFFF, {}); // nothing to be seen
    canvas.Clip({6, 7, 5, 9});
    const PixelLine line = {{0, 0}, {3, 0}};
    canvas.DrawXorLines({&line, 1}, 0x5C5C5C);
    canvas.DrawPolyline({1, 0, PenStyle::dashDotDot}, dot);
    ExpectRecorded("pictures/calls.svg", canvas.GetDocument());
}

TEST(CSvgCanvas, MeasuresEachCharacter)
{
    CSvgCanvas large({1, 1}, 1'000);
    EXPECT_EQ(large.GetTextExtent("i").width, 222);
    EXPECT_EQ(large.GetTextExtent("W").width, 944);
    std::string all;
    for (char c = ' '; c <= '~'; ++c)
    {
        all += c;
    }
    EXPECT_EQ(large.GetTextExtent(all).width, 50'058);
    CSvgCanvas canvas({1, 1}, 10);
    EXPECT_EQ(canvas.GetTextExtent("MMMM").width, 34);    // rounded up as a whole
    EXPECT_EQ(canvas.GetTextExtent("\xC3\xA9").width, 6); // one character
    EXPECT_EQ(canvas.GetTextExtent("").height, 12);
}

TEST(CSvgCanvas, WritesUtf8WhateverTheTextWas)
{
    const struct
    {
        const char* text;
        const char* xml;
    } rows[] = {{"a<b>&\"c", "a&lt;b&gt;&amp;&quot;c"},
                {"25 \xC2\xB0\x43", "25 \xC2\xB0\x43"},
                {"25 \xB0\x43", "25 \xC2\xB0\x43"},                           // Latin-1
                {"\x80 \x93x\x94", "\xE2\x82\xAC \xE2\x80\x9Cx\xE2\x80\x9D"}, // Windows-1252
                {"\x81\x8D\x8F\x90\x9D", "?????"},
                {"tab\there\x01\x7F", "tab?here??"},
                {"\xC0\xAF", "\xC3\x80\xC2\xAF"},                 // overlong: not UTF-8
                {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xE2\x82\xAC"}, // a surrogate
                {"\xEF\xBF\xBF", "\xC3\xAF\xC2\xBF\xC2\xBF"},     // no character
                {"\xF0\x9F\x93\x88", "\xF0\x9F\x93\x88"},
                {"\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF"}, // the last one
                {"\xF4\x90\x80\x80", "\xC3\xB4\x3F\xE2\x82\xAC\xE2\x82\xAC"},
                {"\xE2\x82", "\xC3\xA2\xE2\x80\x9A"}}; // cut off
    for (const auto& row : rows)
    {
        CSvgCanvas canvas({1, 1}, 10);
        canvas.WriteText({}, row.text, 0, {});
        EXPECT_NE(canvas.GetDocument().find(std::string(">") + row.xml + "</text>"), std::string::npos)
            << row.text;
    }
}
} // namespace
