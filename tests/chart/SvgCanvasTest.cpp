#include "chart/CSvgCanvas.h"
#include "tests/chart/MakeChart.h"

#include <gtest/gtest.h>

namespace
{
// Every element that is opened is closed in order, and no character stands outside of what XML allows.
void ExpectWellFormed(const std::string& document)
{
    std::vector<std::string> open;
    for (std::size_t i = document.find("?>") + 2; i < document.size(); ++i)
    {
        ASSERT_GE(static_cast<unsigned char>(document[i]), 0x0Au);
        if (document[i] != '<')
        {
            continue;
        }
        const std::size_t end = document.find('>', i);
        ASSERT_NE(end, std::string::npos);
        const std::string tag = document.substr(i + 1, end - i - 1);
        ASSERT_EQ(std::ranges::count(tag, '"') % 2, 0) << tag;
        ASSERT_EQ(tag.find('<'), std::string::npos) << tag;
        if (tag.starts_with('/'))
        {
            ASSERT_FALSE(open.empty());
            ASSERT_EQ("/" + open.back(), tag);
            open.pop_back();
        }
        else if (!tag.ends_with('/'))
        {
            open.push_back(tag.substr(0, tag.find(' ')));
        }
        i = end;
    }
    ASSERT_TRUE(open.empty());
}

TEST(CSvgCanvas, WritesAWholeChart)
{
    LaminateCurves laminate;
    laminate.curves[0].name = "<Er> & \"more\"";
    CChartModel model;
    laminate.AddTo(model, 3, true);
    CSvgCanvas canvas({760, 240}, 12);
    LayOutChart(model, {0, 0, 760, 240}, canvas);
    ChartPointer pointer;
    pointer.mouse = {300, 100};
    pointer.labelledCurve = 0;
    PaintChart({model, {}, pointer, {0, 0, 760, 240}}, canvas);
    const std::string document = canvas.GetDocument();
    ExpectWellFormed(document);
    EXPECT_NE(document.find("&lt;Er&gt; &amp; &quot;more&quot;"), std::string::npos);
    EXPECT_NE(document.find("width=\"760\" height=\"240\""), std::string::npos);
}

TEST(CSvgCanvas, DrawsEachCall)
{
    CSvgCanvas canvas({10, 10}, 10);
    const PixelPoint points[] = {{1, 2}, {4, 2}, {4, 9}};
    canvas.DrawPolyline({0x0000FF, 0, PenStyle::solid}, points);
    canvas.DrawPolyline({0x0000FF, 0, PenStyle::solid}, std::span(points).first(2));
    canvas.DrawPolyline({0x332211, 3, PenStyle::dot}, points);
    const PixelPoint dot[] = {{3, 4}, {3, 4}};
    canvas.DrawPolyline({0xFFFFFF, 0, PenStyle::solid}, dot);
    canvas.Clip({1, 2, 5, 9});
    canvas.WriteText({2, 3}, " 4 < 5 ", 0xFFFFFF, 0x010203);
    const PixelLine line = {{0, 0}, {3, 0}};
    canvas.DrawXorLines({&line, 1}, 0x5C5C5C);
    const std::string document = canvas.GetDocument();
    ExpectWellFormed(document);
    for (const char* const part :
         {"stroke=\"#ff0000\" d=\"M1.5 2.5l3 0 0 7M1.5 2.5l3 0\"/>", "stroke=\"#112233\" stroke-width=\"3\"",
          "stroke-dasharray", "d=\"M3.5 4.5h.01\"", "<rect x=\"1\" y=\"2\" width=\"4\" height=\"7\"",
          "fill=\"#030201\"", ">4 &lt; 5</text>", "difference"})
    {
        EXPECT_NE(document.find(part), std::string::npos) << part;
    }
}

// As the typeface's own metrics have them.
TEST(CSvgCanvas, MeasuresEachCharacter)
{
    const std::pair<int, std::string_view> rows[] = {{191, "'"},
                                                     {222, "ijl"},
                                                     {260, "|"},
                                                     {278, " !,./:;I[\\]ft"},
                                                     {333, "()-`r"},
                                                     {334, "{}"},
                                                     {355, "\""},
                                                     {389, "*"},
                                                     {469, "^"},
                                                     {500, "Jcksvxyz"},
                                                     {556, "#$0123456789?L_abdeghnopqu"},
                                                     {584, "+<=>~"},
                                                     {611, "FTZ"},
                                                     {667, "&ABEKPSVXY"},
                                                     {722, "CDHNRUw"},
                                                     {778, "GOQ"},
                                                     {833, "Mm"},
                                                     {889, "%"},
                                                     {944, "W"},
                                                     {1015, "@"}};
    std::size_t count = 0;
    for (const auto& [width, characters] : rows)
    {
        for (const char& c : characters)
        {
            EXPECT_EQ(CSvgCanvas({1, 1}, 1'000).GetTextExtent({&c, 1}).width, width) << c;
            ++count;
        }
    }
    EXPECT_EQ(count, 95u);
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
                {"\x81", "?"},
                {"tab\there\x01\x7F", "tab?here??"},
                {"\xC0\xAF", "\xC3\x80\xC2\xAF"},                 // overlong: not UTF-8
                {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xE2\x82\xAC"}, // a surrogate
                {"\xEF\xBF\xBF", "\xC3\xAF\xC2\xBF\xC2\xBF"},     // no character
                {"\xF0\x9F\x93\x88", "\xF0\x9F\x93\x88"},
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
