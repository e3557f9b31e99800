#include "chart/AxisTicks.h"
#include "chart/ChartLayout.h"
#include "chart/ChartTexts.h"
#include "chart/PaintChart.h"
#include "tests/chart/CRecorderCanvas.h"
#include "tests/chart/MakeChart.h"

#include <gtest/gtest.h>
#include <limits>

namespace
{
using Call = CRecorderCanvas::Call;
using Kind = CRecorderCanvas::Kind;

class Painter : public ::testing::Test
{
protected:
    CChartModel model;
    ChartStyle style;
    ChartInteraction interaction;
    PixelRect client = {0, 0, 600, 400};
    CRecorderCanvas canvas;
    CChartCurve first = MakeCurve({{0, 0}, {50, 80}, {100, 100}}, 0x0000AA, "first");
    CChartCurve second = MakeCurve({{0, 100}, {100, 0}}, 0x00BB00, "second");

    void SetUp() override
    {
        model.AddAxis(0, false);
        model.AddAxis(1, true);
        model.AddCurve(first, 0, 1);
        model.AddCurve(second, 0, 1);
        model.SetScaleMode(false, false);
        LayOutChart(model, client, canvas);
    }

    void Paint()
    {
        canvas.calls.clear();
        PaintChart({model, style, interaction, client}, canvas);
    }

    [[nodiscard]] CAxis& Axis(std::int32_t identifier) { return *model.FindAxis(identifier); }
    [[nodiscard]] PixelPoint GetPixel(DataPoint value) const { return GetPixelOf(model, value); }
    // What is drawn in a colour, painted afresh.
    [[nodiscard]] std::vector<Call> PaintAndFind(Kind kind, Colour colour)
    {
        Paint();
        return canvas.Find([=](const Call& call) { return call.kind == kind && call.colour == colour; });
    }
    // The places of the full-height lines in a colour.
    [[nodiscard]] std::vector<int> GetUprights(Colour colour) const
    {
        std::vector<int> places;
        for (const PixelLine& line : canvas.GetLines(colour))
        {
            if (line.from.x == line.to.x && line.from.y == model.frame.plot.top &&
                line.to.y == model.frame.plot.bottom)
            {
                places.push_back(line.from.x);
            }
        }
        return places;
    }
};

TEST_F(Painter, PaintsInOrderWithTheFirstCurveOnTop)
{
    model.GetLegend().push_back({0x0000AA, "entry"});
    interaction.readOutCurve = 1;
    interaction.lastPoint = {300, 100};
    Paint();
    const Call order[] = {{.kind = Kind::Fill},
                          {.kind = Kind::Lines, .colour = 0x808080},
                          {.kind = Kind::Clip},
                          {.kind = Kind::Lines, .colour = 0x00BB00},
                          {.kind = Kind::Lines, .colour = 0x0000AA},
                          {.kind = Kind::Unclip},
                          {.kind = Kind::Text, .colour = 0x00BB00, .text = "second"},
                          {.kind = Kind::Text, .colour = 0xFFFFFF, .text = "entry"}};
    auto place = canvas.calls.begin();
    for (const Call& wanted : order)
    {
        const auto isWanted = [&](const Call& call)
        { return call.kind == wanted.kind && call.colour == wanted.colour && call.text == wanted.text; };
        const auto found = std::ranges::find_if(canvas.calls, isWanted);
        EXPECT_TRUE(found >= place && found != canvas.calls.end()) << wanted.text << wanted.colour;
        place = found;
    }
    EXPECT_EQ(canvas.calls.front().rect, client);
    EXPECT_NE(canvas.calls.back().text.find(", "), std::string::npos); // a read-out
    EXPECT_EQ(place + 3, canvas.calls.end());                          // its background and its text
}

TEST_F(Painter, FramesASingleAxisOnBothSidesAndSeveralInTurn)
{
    const PixelRect plot = model.frame.plot;
    const auto hasLine = [this](PixelLine line)
    {
        const auto lines = canvas.GetLines(0x111111);
        return std::ranges::find(lines, line) != lines.end();
    };
    const PixelLine left = {{plot.left, plot.top}, {plot.left, plot.bottom}};
    const PixelLine right = {{plot.right, plot.top}, {plot.right, plot.bottom}};
    const PixelLine top = {{plot.left, plot.top}, {plot.right, plot.top}};
    const PixelLine bottom = {{plot.left, plot.bottom}, {plot.right, plot.bottom}};
    Axis(0).gridColour = Axis(1).gridColour = 0x111111;
    for (const std::int32_t identifier : {0, 1}) // its only tick is shifted out
    {
        Axis(identifier).visibleMax = Axis(identifier).visibleMin;
        Axis(identifier).pixelShift = identifier == 0 ? -1 : 1;
        Axis(identifier).minorTicks = 0;
    }
    Paint();
    EXPECT_TRUE(hasLine(left) && hasLine(right) && hasLine(top) && hasLine(bottom));
    model.AddAxis(2, true);
    model.AddAxis(3, false);
    Axis(2).gridColour = Axis(3).gridColour = 0x222222;
    Axis(2).tickStep = Axis(3).tickStep = 1;
    Axis(2).scale = Axis(3).scale = 1;
    Paint();
    EXPECT_TRUE(hasLine(left) && hasLine(bottom));
    EXPECT_FALSE(hasLine(right) || hasLine(top));
}

TEST_F(Painter, TicksGridLabelsAndZeroLine)
{
    Axis(0).axisColour = 0x0A0A0A;
    Axis(0).gridColour = 0x0B0B0B;
    Paint();
    const PixelRect plot = model.frame.plot;
    const int intervals = CountTickIntervals(Axis(0), model.GetScale(Direction::Horizontal));
    std::vector<int> expected;
    for (int i = 0; i <= intervals; ++i)
    {
        expected.push_back(plot.left + static_cast<int>(std::lround(i * Axis(0).tickStep * Axis(0).scale)));
    }
    EXPECT_EQ(GetUprights(0x0B0B0B), expected);
    EXPECT_EQ(GetUprights(0x0A0A0A), std::vector<int>{plot.left}); // the zero line
    const std::vector<Call> labels = canvas.FindTexts(" 50 ");
    ASSERT_FALSE(labels.empty());
    EXPECT_EQ(labels[0].colour, 0x0A0A0Au);
    EXPECT_EQ(labels[0].rect.left, GetPixel({50, 0}).x - 12);
    EXPECT_GE(labels[0].rect.top, plot.bottom);
    const std::vector<Call> upright =
        canvas.Find([&](const Call& call) { return call.text == " 50 " && call.rect.right <= plot.left; });
    ASSERT_EQ(upright.size(), 1u);
    EXPECT_EQ((upright[0].rect.top + upright[0].rect.bottom) / 2, GetPixel({0, 50}).y);

    Axis(0).visibleMin = 10; // no zero in the plot
    Axis(0).visibleMax = 110;
    Paint();
    EXPECT_TRUE(GetUprights(0x0A0A0A).empty());
    Axis(0).minorTicks = 0;
    const std::size_t withMinor = canvas.calls.size();
    Paint();
    EXPECT_LT(canvas.calls.size(), withMinor);
}

TEST_F(Painter, ADecadesLinesAreInTheAxisColourAndItsMinorLinesInTheGridColour)
{
    first.points = {{1, 0}, {1000, 100}};
    second.points = {{1, 100}, {1000, 0}};
    first.UpdateBounds();
    second.UpdateBounds();
    Axis(0).lowerLimit = 1e-9;
    Axis(0).axisColour = 0x0A0A0A;
    Axis(0).gridColour = 0x0B0B0B;
    model.RebuildDataRanges();
    model.SetScaleMode(true, false);
    LayOutChart(model, client, canvas);
    Paint();
    const int left = model.frame.plot.left;
    const double scale = Axis(0).scale; // about 180 pixels: minor lines at 2, 4, 6 and 8
    EXPECT_EQ(GetUprights(0x0A0A0A).size(), 4u);
    std::vector<int> minor;
    for (int decade = 0; decade < 3; ++decade)
    {
        for (const double multiple : {2.0, 4.0, 6.0, 8.0})
        {
            minor.push_back(left + static_cast<int>(std::lround((decade + std::log10(multiple)) * scale)));
        }
    }
    EXPECT_EQ(GetUprights(0x0B0B0B), minor);
}

// A shifted axis draws the ticks that stand in the plot.
TEST_F(Painter, ShiftedTicksStayInThePlot)
{
    const PixelRect plot = model.frame.plot;
    for (const std::int32_t shift : {-9, 0, 9})
    {
        Axis(0).pixelShift = Axis(1).pixelShift = shift;
        Axis(0).gridColour = 0x0B0B0B;
        Paint();
        const int intervals = CountTickIntervals(Axis(0), model.GetScale(Direction::Horizontal));
        EXPECT_EQ(GetUprights(0x0B0B0B).size(), static_cast<std::size_t>(intervals + (shift == 0 ? 1 : 0)))
            << shift;
        for (const PixelLine& line : canvas.GetLines(0x0B0B0B))
        {
            EXPECT_TRUE(line.from.x >= plot.left && line.to.x <= plot.right) << shift;
        }
    }
}

TEST_F(Painter, CurvesAreClippedOnTheCutSidesOnly)
{
    const PixelRect plot = model.frame.plot;
    const struct
    {
        double xMin, xMax, yMin, yMax; // requested
        int shift;
        PixelRect clip;
    } rows[] = {{0, 100, 0, 100, 0, client},
                {1, 100, 0, 100, 0, {plot.left, 0, 600, 400}},
                {1, 99, 0, 100, 0, {plot.left, 0, plot.right + 1, 400}},
                {-5, 105, 1, 100, 0, {0, 0, 600, plot.bottom + 1}},
                {-5, 105, 1, 99, 0, {0, plot.top, 600, plot.bottom + 1}},
                {-5, 105, 0, 100, -1, {plot.left, plot.top, 600, 400}},
                {-5, 105, 0, 100, 1, {0, 0, plot.right + 1, plot.bottom + 1}}};
    for (const auto& row : rows)
    {
        Axis(0).requestedMin = row.xMin;
        Axis(0).requestedMax = row.xMax;
        Axis(1).requestedMin = row.yMin;
        Axis(1).requestedMax = row.yMax;
        Axis(0).pixelShift = Axis(1).pixelShift = row.shift;
        EXPECT_EQ(PaintAndFind(Kind::Clip, 0).at(0).rect, row.clip);
    }
}

TEST_F(Painter, CurvesRunFromTheLastPointToTheFirstAndAreCutToTheVisibleRange)
{
    Paint();
    EXPECT_EQ(canvas.GetLines(0x0000AA), (std::vector<PixelLine>{{GetPixel({100, 100}), GetPixel({50, 80})},
                                                                 {GetPixel({50, 80}), GetPixel({0, 0})}}));
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    first.points = {{-1e308, 20}, {30, 20},    {nan, 1},       {40, 40}, {50, infinity},
                    {60, 60},     {60, 1e300}, {1e300, 1e300}, {70, 10}};
    Paint();
    const auto lines = canvas.GetLines(0x0000AA);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0], (PixelLine{GetPixel({70, 10}), GetPixel({100, 40})}));
    EXPECT_EQ(lines[1], (PixelLine{GetPixel({60, 100}), GetPixel({60, 60})}));
    EXPECT_EQ(lines[2], (PixelLine{GetPixel({30, 20}), GetPixel({0, 20})}));
    for (const std::vector<DataPoint>& points : {std::vector<DataPoint>{}, {{5, 5}}})
    {
        first.points = points;
        Paint();
        EXPECT_TRUE(canvas.GetLines(0x0000AA).empty());
    }
    first.points = {{5, 5}, {6, 6}};
    first.colour = style.background; // hidden
    model.GetLegend().push_back({0x0000AA, "kept"});
    Paint();
    EXPECT_TRUE(canvas.GetLines(style.background).empty());
    EXPECT_EQ(canvas.FindTexts("kept").size(), 1u);
}

TEST_F(Painter, PensAndMarkers)
{
    const auto getPen = [this] { return PaintAndFind(Kind::Lines, 0x0000AA).at(0).pen; };
    const auto countMarkers = [this] { return PaintAndFind(Kind::Fill, 0x0000AA).size(); };
    EXPECT_EQ(getPen(), (Pen{0x0000AA, 0, PenStyle::solid}));
    style.bold = true;
    EXPECT_EQ(getPen().width, 2);
    style.lineWidth = 5;
    EXPECT_EQ(getPen().width, 5);
    first.lineStyle = PenStyle::dashDot;
    EXPECT_EQ(getPen().style, PenStyle::dashDot);
    style.flags = ChartStyle::drawMarkers;
    EXPECT_EQ(countMarkers(), 0u); // a style of its own has lines and no markers
    EXPECT_FALSE(canvas.GetLines(0x0000AA).empty());
    first.lineStyle = -1;
    EXPECT_EQ(countMarkers(), 3u);
    EXPECT_TRUE(canvas.GetLines(0x0000AA).empty());
    const PixelPoint at = GetPixel({50, 80});
    EXPECT_EQ(PaintAndFind(Kind::Fill, 0x0000AA).at(1).rect,
              (PixelRect{at.x - 2, at.y - 2, at.x + 3, at.y + 3}));
    first.markerShape = 1;
    EXPECT_EQ(countMarkers(), 0u);
    EXPECT_EQ(canvas.GetLines(0x0000AA).size(), 12u); // diamonds
    first.markerShape = 0;
    first.points[1] = {50, 101}; // outside
    EXPECT_EQ(countMarkers(), 2u);
}

TEST_F(Painter, LegendFillsTwoRows)
{
    const PixelRect plot = model.frame.plot;
    const int h = 12;
    model.GetLegend() = {
        {0x0000FF, "Er"}, {0x00FFFF, std::string(40, 'a')}, {0xFFFF00, std::string(80, 'b')}};
    EXPECT_EQ(PaintAndFind(Kind::Fill, 0x0000FF).at(0).rect,
              (PixelRect{plot.left, plot.bottom + 2 * h + 1, plot.left + 9, plot.bottom + 2 * h + 10}));
    EXPECT_EQ(PaintAndFind(Kind::Fill, 0x00FFFF).at(0).rect.left, plot.left + h + 12 + h);
    const PixelRect nextRow = PaintAndFind(Kind::Fill, 0xFFFF00).at(0).rect;
    EXPECT_EQ(nextRow.left, plot.left);
    EXPECT_EQ(nextRow.top, plot.bottom + 3 * h + 1);
    EXPECT_EQ(canvas.FindTexts("Er")[0].rect.left, plot.left + h);

    model.GetLegend().assign(100, {0x0000FF, "entry"});
    Paint();
    const Call last = canvas.FindTexts("entry").back();
    EXPECT_TRUE(last.rect.bottom <= plot.bottom + 4 * h && last.rect.right <= plot.right);
    model.GetLegend() = {{0x0000FF, std::string(300, 'c')}};
    Paint();
    EXPECT_EQ(canvas.Find([](const Call& call) { return call.text.ends_with("c..."); }).size(), 1u);
}

TEST_F(Painter, TheSelectionHasALabelBesideIt)
{
    interaction.readOutCurve = 0;
    interaction.readOutPosition = {200, 100};
    Paint();
    Call label = canvas.FindTexts("first").at(0);
    EXPECT_EQ(label.rect.left, 202);
    EXPECT_EQ(label.rect.bottom, 98);
    EXPECT_EQ(label.colour, 0x0000AAu);

    interaction.readOutPoint = 1;
    Paint();
    label = canvas.FindTexts(FormatReadOut(Axis(0), Axis(1), {50, 80})).at(0);
    EXPECT_EQ(label.rect.left, GetPixel({50, 80}).x + 2);
    EXPECT_EQ(label.rect.bottom, GetPixel({50, 80}).y - 2);
    first.pointLabels = {"", "the bend"};
    Paint();
    EXPECT_EQ(canvas.FindTexts("the bend").size(), 1u);
    first.pointLabels = {"", "", std::string(30, 'z')}; // kept within the window
    interaction.readOutPoint = 2;
    Paint();
    EXPECT_EQ(canvas.FindTexts(first.pointLabels[2]).at(0).rect.right, 600);

    interaction.readOutPoint = 3;
    EXPECT_THROW(Paint(), std::out_of_range);
    interaction.readOutCurve = 2;
    EXPECT_THROW(Paint(), std::invalid_argument);
}

TEST_F(Painter, ReadOutsShowTheMouseForEveryPairOfAxes)
{
    model.AddAxis(2, true);
    LayOutChart(model, client, canvas);
    const auto countReadOuts = [this]
    {
        Paint();
        return canvas.Find([](const Call& call) { return call.text.find(", ") != std::string::npos; }).size();
    };
    EXPECT_EQ(countReadOuts(), 0u); // the mouse is nowhere
    interaction.lastPoint = GetPixel({50, 50});
    EXPECT_EQ(countReadOuts(), 2u);
    const PixelRect readOut = canvas.FindTexts(FormatReadOut(Axis(0), Axis(1), {50, 50})).at(0).rect;
    const auto backgrounds = canvas.Find([&readOut](const Call& call)
                                         { return call.kind == Kind::Fill && call.rect.Meets(readOut); });
    const int labelBottom = model.frame.plot.bottom + 12 / 4 + 12;
    EXPECT_EQ(backgrounds.at(1).rect, (PixelRect{readOut.left, labelBottom, readOut.right, readOut.bottom}));
    interaction.mode = MouseMode::pan;
    EXPECT_EQ(countReadOuts(), 0u);

    interaction.mode = MouseMode::pickPoint;
    interaction.buttonDown = true;
    interaction.hoveredCurve = 0;
    EXPECT_EQ(countReadOuts(), 1u);
    const PixelPoint snapped = GetPixel({50, 80});
    const PixelRect plot = model.frame.plot;
    const auto cross = canvas.Find([](const Call& call) { return call.kind == Kind::Xor; });
    ASSERT_EQ(cross.size(), 2u);
    EXPECT_EQ(cross[0].points, (std::vector<PixelPoint>{{snapped.x, plot.top}, {snapped.x, plot.bottom}}));
    EXPECT_EQ(cross[1].points, (std::vector<PixelPoint>{{plot.left, snapped.y}, {plot.right, snapped.y}}));
    EXPECT_EQ(cross[0].colour, 0x5C5C5Cu);
    first.points = {{0, -400}, {100, -400}}; // snapped below the plot
    Paint();
    EXPECT_EQ(canvas.Find([](const Call& call) { return call.kind == Kind::Xor; }).size(), 1u);
    first.points.clear();
    EXPECT_EQ(countReadOuts(), 0u);
}

TEST_F(Painter, InversionDarkensBrightColoursAndDotsTheGrid)
{
    style.invertsColours = true;
    const struct
    {
        Colour colour, shown;
    } rows[] = {{0xFFFFFF, 0x000000}, {0x808080, 0x7F7F7F}, {0x7F7F7F, 0x7F7F7F}, {0x00007F, 0x00007F},
                {0x000080, 0xFFFF7F}, {0x800000, 0x7FFFFF}, {0x000000, 0x000000}};
    for (const auto& row : rows)
    {
        EXPECT_EQ(style.GetShownColour(row.colour), row.shown);
    }
    Axis(0).gridColour = 0xCCCCCC;
    Paint();
    EXPECT_TRUE(std::ranges::any_of(canvas.calls,
                                    [](const Call& call) {
                                        return call.pen == Pen{0x333333, 0, PenStyle::dot};
                                    }));
    style.invertsColours = false;
    EXPECT_EQ(style.GetShownColour(0xFFFFFF), 0xFFFFFFu);
}
} // namespace
