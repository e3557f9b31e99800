#include "chart/CSvgCanvas.h"
#include "chart/ChartTexts.h"
#include "tests/chart/MakeChart.h"

#include <gtest/gtest.h>

namespace
{
using Call = CRecorderCanvas::Call;
using Kind = CRecorderCanvas::Kind;

class Painter : public ::testing::Test
{
protected:
    CChartModel model = MakeModel();
    ChartStyle style;
    ChartPointer pointer;
    PixelRect client = {0, 0, 600, 400};
    CRecorderCanvas canvas;
    CChartCurve first = MakeCurve({{0, 0}, {50, 80}, {100, 100}}, 0x0000AA, "first");
    CChartCurve second = MakeCurve({{0, 100}, {100, 0}}, 0x00BB00, "second");

    void SetUp() override
    {
        model.AddCurve(first, 0, 1);
        model.AddCurve(second, 0, 1);
        model.SetScaleMode(false, false);
        LayOutChart(model, client, canvas);
    }

    void Paint()
    {
        canvas.calls.clear();
        PaintChart({model, style, pointer, client}, canvas);
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
    pointer.labelledCurve = 1;
    pointer.mouse = {300, 100};
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
}

// Marks of a quarter of a line's height at both edges of the plot.
TEST_F(Painter, LinearMinorTicksStandOnBothSides)
{
    Axis(0).gridColour = 0x0B0B0B;
    Paint();
    const PixelRect plot = model.frame.plot;
    const CAxisMapping mapping(model, Direction::Horizontal, Axis(0));
    std::vector<PixelLine> expected;
    for (int i = 0; i < CountTickIntervals(Axis(0), GetScale(false)); ++i)
    {
        for (const double part : ListMinorParts(Axis(0), GetScale(false)))
        {
            const int x = mapping.GetMinorTickPixel(GetMinorTick(Axis(0), GetScale(false), i, part));
            expected.push_back({{x, plot.top}, {x, plot.top + 3}});
            expected.push_back({{x, plot.bottom - 3}, {x, plot.bottom}});
        }
    }
    std::vector<PixelLine> marks = canvas.GetLines(0x0B0B0B);
    std::erase_if(marks, [&](const PixelLine& line)
                  { return line.from.y == line.to.y || line.to.y - line.from.y == plot.GetHeight(); });
    ASSERT_FALSE(expected.empty());
    EXPECT_EQ(marks, expected);
    Axis(0).minorTicks = 0;
    const std::size_t withMinor = canvas.calls.size();
    Paint();
    EXPECT_EQ(canvas.calls.size(), withMinor - expected.size());
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
    first.points = {{-1e308, 20}, {30, 20},    {noNumber, 1},  {40, 40}, {50, infinity},
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
    pointer.labelledCurve = 0;
    pointer.labelPosition = {200, 100};
    Paint();
    Call label = canvas.FindTexts("first").at(0);
    EXPECT_EQ(label.rect.left, 202);
    EXPECT_EQ(label.rect.bottom, 98);
    EXPECT_EQ(label.colour, 0x0000AAu);

    pointer.labelledPoint = 1;
    Paint();
    label = canvas.FindTexts(FormatReadOut(Axis(0), Axis(1), {50, 80})).at(0);
    EXPECT_EQ(label.rect.left, GetPixel({50, 80}).x + 2);
    EXPECT_EQ(label.rect.bottom, GetPixel({50, 80}).y - 2);
    first.pointLabels = {"", "the bend"};
    Paint();
    EXPECT_EQ(canvas.FindTexts("the bend").size(), 1u);
    first.pointLabels = {"", "", std::string(30, 'z')}; // kept within the window
    pointer.labelledPoint = 2;
    Paint();
    EXPECT_EQ(canvas.FindTexts(first.pointLabels[2]).at(0).rect.right, 600);

    pointer.labelledPoint = 3;
    EXPECT_THROW(Paint(), std::out_of_range);
    pointer.labelledCurve = 2;
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
    pointer.mouse = GetPixel({50, 50});
    EXPECT_EQ(countReadOuts(), 2u);
    const PixelRect readOut = canvas.FindTexts(FormatReadOut(Axis(0), Axis(1), {50, 50})).at(0).rect;
    const auto backgrounds = canvas.Find([&readOut](const Call& call)
                                         { return call.kind == Kind::Fill && call.rect.Meets(readOut); });
    const int labelBottom = model.frame.plot.bottom + 12 / 4 + 12;
    EXPECT_EQ(backgrounds.at(1).rect, (PixelRect{readOut.left, labelBottom, readOut.right, readOut.bottom}));
    pointer.showsReadOuts = false;
    EXPECT_EQ(countReadOuts(), 0u);

    pointer.showsReadOuts = true;
    pointer.lockedCurve = 0;
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

// Records, with the measures of the pictures' typeface.
class CMeasuredRecorder final : public CRecorderCanvas
{
public:
    PixelSize GetTextExtent(std::string_view text) override { return measure.GetTextExtent(text); }

private:
    CSvgCanvas measure{{1, 1}, 12};
};

// What characters cover of a cell: not the blanks at its ends, nor the leading above digits, nor, where
// nothing hangs below the line, the room for that.
PixelRect GetInk(const Call& call)
{
    PixelRect ink = call.rect;
    ink.left += call.text.starts_with(' ') ? 3 : 0;
    ink.right -= call.text.ends_with(' ') ? 3 : 0;
    ink.top += 2;
    ink.bottom -= call.text.find_first_of("gpqyj,") == std::string::npos ? 3 : 0;
    return ink;
}

// Read-outs may cover the horizontal titles in no more than a narrow window, so they are looked at apart.
void ExpectTextsApart(PixelSize size, std::size_t axes, bool logarithmic, bool hovering)
{
    LaminateCurves laminate;
    CChartModel model;
    laminate.AddTo(model, axes, logarithmic);
    CMeasuredRecorder canvas;
    const PixelRect client = {0, 0, size.width, size.height};
    LayOutChart(model, client, canvas);
    ChartPointer pointer;
    if (hovering)
    {
        pointer.mouse = {model.frame.plot.right - 20, model.frame.plot.top + 20};
    }
    PaintChart({model, {}, pointer, client}, canvas);
    const auto texts = canvas.Find([](const Call& call) { return call.kind == Kind::Text; });
    ASSERT_GE(texts.size(), 5 + 2 * axes);
    for (std::size_t i = 0; i < texts.size(); ++i)
    {
        const PixelRect& cell = texts[i].rect;
        EXPECT_TRUE(cell.left >= 0 && cell.top >= 0 && cell.right <= size.width && cell.bottom <= size.height)
            << texts[i].text << size.width;
        for (std::size_t k = 0; k < i; ++k)
        {
            EXPECT_FALSE(GetInk(texts[i]).Meets(GetInk(texts[k])))
                << texts[i].text << "|" << texts[k].text << " " << size.width << " " << axes;
        }
    }
}

TEST(Placement, NoTextMeetsAnotherOrLeavesTheWindow)
{
    for (const PixelSize size : {PixelSize{300, 150}, {760, 240}, {1920, 1080}, {400, 300}})
    {
        for (std::size_t axes = 1; axes <= 3; ++axes)
        {
            for (const unsigned kind : {0u, 1u, 2u, 3u})
            {
                ExpectTextsApart(size, axes, (kind & 1) != 0, (kind & 2) != 0);
            }
        }
    }
}

// Also in letters as large as on a screen of 400 per cent, where the ticks' least distance is soon too
// little.
TEST(Placement, LabelsOfAnAxisDoNotMeet)
{
    for (const int font : {12, 34, 48})
    {
        CSvgCanvas measure{{1, 1}, font};
        for (int width = 300; width <= 2600; width += 50)
        {
            CChartModel model = MakeModel();
            model.SetAxisTitle(0, "Frequency", "MHz");
            CChartCurve curve = MakeCurve({{1.0, 0.0}, {50'000.0, 1.0}});
            model.AddCurve(curve, 0, 1);
            const PixelRect client = {0, 0, width, 400};
            LayOutChart(model, client, measure);
            const auto labels = PlaceTickLabels({model, {}, {}, client}, Direction::Horizontal, measure)[0];
            ASSERT_GE(labels.size(), 1u);
            for (std::size_t i = 1; i < labels.size(); ++i)
            {
                const PlacedText& before = labels[i - 1];
                EXPECT_LE(before.topLeft.x + measure.GetTextExtent(before.text).width, labels[i].topLeft.x)
                    << before.text << " " << font << " " << width;
            }
        }
    }
}

TEST(Placement, LabelledTicksKeepTheirLabelsWhenTheViewMoves)
{
    CChartModel model = MakeModel();
    CChartCurve curve = MakeCurve({{0, 0}, {1'000'000, 1}});
    model.AddCurve(curve, 0, 1);
    model.SetAxisTitle(0, "", "a long unit");
    model.SetScaleMode(false, false);
    CRecorderCanvas canvas;
    const PixelRect client = {0, 0, 600, 300};
    LayOutChart(model, client, canvas);
    CAxis& axis = *model.FindAxis(0);
    for (int moved = 0; moved < 3; ++moved)
    {
        const auto labels = PlaceTickLabels({model, {}, {}, client}, Direction::Horizontal, canvas);
        EXPECT_GE(labels[0].size(), 1u);
        for (const PlacedText& label : labels[0])
        {
            const double value = axis.visibleMin + label.tick * axis.tickStep;
            EXPECT_NEAR(std::remainder(value, 5 * axis.tickStep), 0.0, 1.0) << value;
        }
        axis.visibleMin += axis.tickStep;
        axis.visibleMax += axis.tickStep;
    }
}

TEST(Placement, LongTitlesAreShortenedAndShortOnesAreNot)
{
    CChartModel model = MakeModel(1);
    model.SetAxisTitle(1, "Er", "");
    model.SetAxisTitle(2, std::string(100, 'x'), "");
    CRecorderCanvas canvas;
    const PixelRect client = {0, 0, 300, 200};
    LayOutChart(model, client, canvas);
    const auto titles = PlaceTitles({model, {}, {}, client}, Direction::Vertical, canvas);
    EXPECT_EQ(titles[0].text, "Er");
    EXPECT_EQ(titles[0].topLeft.x, model.frame.plot.left);
    EXPECT_TRUE(titles[1].text.ends_with("x...")) << titles[1].text;
    EXPECT_EQ(titles[1].topLeft.x + canvas.GetTextExtent(titles[1].text).width, model.frame.plot.right);
    EXPECT_GT(titles[1].topLeft.x, titles[0].topLeft.x + 12);
    EXPECT_EQ(FitText(canvas, "abcdef", 36), "abcdef");
    EXPECT_EQ(FitText(canvas, "abcdef", 35), "ab...");
    EXPECT_EQ(FitText(canvas, "abcdef", 24), "a...");
    EXPECT_EQ(FitText(canvas, "abcdef", 23), "");
    EXPECT_EQ(FitText(canvas, "", 0), "");
}
} // namespace
