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

// Every call of a small picture: two linear axes with all that belongs to the mouse, and a decade with two
// vertical axes.
TEST_F(Painter, PaintsTheWholePictureInOrder)
{
    client = {0, 0, 120, 120};
    Axis(0).axisColour = 0x0A0A0A;
    model.SetAxisTitle(1, "Er", "");
    model.GetLegend().push_back({0x0000AA, "entry"});
    LayOutChart(model, client, canvas);
    pointer.labelledCurve = 1;
    pointer.labelPosition = pointer.mouse = {60, 30};
    Paint();
    EXPECT_EQ(canvas.Describe(), R"(
fill 0: 0,0-120,120
lines 808080: 33,12-102,12 33,72-102,72 102,12-102,72 33,12-33,72 33,12-33,72
text a0a0a: 0  24,75-42,87
lines 808080: 42,12-42,15 42,69-42,72 50,12-50,15 50,69-50,72 59,12-59,15 59,69-59,72 68,12-68,72
text a0a0a: 50  56,75-80,87
lines 808080: 76,12-76,15 76,69-76,72 85,12-85,15 85,69-85,72 93,12-93,15 93,69-93,72 102,12-102,72
text a0a0a: 100  87,75-117,87
lines a0a0a: 33,12-33,72
lines 808080: 33,72-102,72
text ffffff: 0  14,66-32,78
lines 808080: 33,64-36,64 99,64-102,64 33,57-36,57 99,57-102,57 33,49-36,49 99,49-102,49 33,42-102,42
text ffffff: 50  8,36-32,48
lines 808080: 33,34-36,34 99,34-102,34 33,27-36,27 99,27-102,27 33,19-36,19 99,19-102,19 33,12-102,12
text ffffff: 100  2,6-32,18
lines ffffff: 33,72-102,72
text ffffff:Er 33,0-45,12
clip 0: 0,0-120,120
lines bb00: 102,72-33,12
lines aa: 102,12-68,24-33,72
unclip 0: 0,0-0,0
text bb00:second 62,16-98,28
fill aa: 33,97-42,106
text ffffff:entry 45,96-75,108
fill 0: 33,87-93,97
text ffffff:38.571, 70 33,85-93,97)");
    model.AddAxis(2, true);
    model.SetAxisTitle(2, "x", "");
    Axis(2).minorTicks = 0;
    first = MakeCurve({{1, 0}, {10, 100}});
    second = MakeCurve({{1, 100}, {10, 0}});
    Axis(0).lowerLimit = 1e-9;
    model.RebuildDataRanges();
    model.SetScaleMode(true, false);
    LayOutChart(model, client, canvas);
    pointer = {};
    Paint();
    EXPECT_EQ(canvas.Describe(), R"(
fill 0: 0,0-120,120
lines 808080: 45,12-85,12 45,60-85,60 85,12-85,60 45,12-45,60
lines a0a0a: 45,12-45,60
text a0a0a: 1000m  24,63-66,75
lines 808080: 73,12-73,60
lines a0a0a: 85,12-85,60
lines 808080: 45,60-85,60
text ffffff: -500m  78,54-120,66
lines 808080: 45,36-85,36
text ffffff: 0  86,30-104,42
lines 808080: 45,12-85,12
text ffffff: 500m  84,6-120,18
lines ffffff: 45,36-85,36
text ffffff:x 79,0-85,12
lines 808080: 45,60-85,60
text ffffff: 0  26,54-44,66
lines 808080: 45,54-48,54 82,54-85,54 45,48-48,48 82,48-85,48 45,42-48,42 82,42-85,42 45,36-85,36
text ffffff: 50  20,30-44,42
lines 808080: 45,30-48,30 82,30-85,30 45,24-48,24 82,24-85,24 45,18-48,18 82,18-85,18 45,12-85,12
text ffffff: 100  14,6-44,18
lines ffffff: 45,60-85,60
text ffffff:Er 45,0-57,12
clip 0: 0,0-120,120
lines ff: 85,60-45,12 85,12-45,60
unclip 0: 0,0-0,0
fill aa: 45,85-54,94
text ffffff:e... 57,84-81,96)");
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
        const auto marks = canvas.GetLines(0x0B0B0B); // also of the interval that has come into view
        EXPECT_TRUE(
            shift <= 0 ||
            std::ranges::any_of(marks, [&](const PixelLine& line)
                                { return line.from.x > plot.left && line.from.x < plot.left + shift; }));
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
    first.pointLabels[2].resize(200, 'z');
    Paint();
    EXPECT_EQ(canvas.FindTexts(first.pointLabels[2]).at(0).rect.left, 0);

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

TEST(Placement, AxesShareASideAndLongTitlesAreShortened)
{
    CChartModel model = MakeModel(2);
    model.SetAxisTitle(3, "third", "");
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
    EXPECT_EQ(titles[2].topLeft.x, titles[0].topLeft.x + 12 + 9);
    EXPECT_GT(titles[1].topLeft.x, titles[2].topLeft.x + 30);
    EXPECT_GE(PlaceTickLabels({model, {}, {}, client}, Direction::Vertical, canvas)[2].size(), 1u);
    EXPECT_EQ(FitText(canvas, "abcdef", 36), "abcdef");
    EXPECT_EQ(FitText(canvas, "abcdef", 35), "ab...");
    EXPECT_EQ(FitText(canvas, "abcdef", 24), "a...");
    EXPECT_EQ(FitText(canvas, "abcdef", 23), "");
    EXPECT_EQ(FitText(canvas, "", 0), "");
}
} // namespace
