#include "chart/CSvgCanvas.h"
#include "chart/CurveSearch.h"
#include "tests/chart/MakeChart.h"

#include <gmock/gmock.h>
#include <random>

namespace
{
using Call = CRecorderCanvas::Call;
using Kind = CRecorderCanvas::Kind;

// Two curves in a small window.
class Painter : public ::testing::Test
{
protected:
    CChartModel model = MakeModel();
    ChartStyle style;
    ChartPointer pointer;
    PixelRect client = {0, 0, 120, 120};
    CRecorderCanvas canvas;
    CChartCurve first = MakeCurve({{0, 0}, {50, 80}, {100, 100}}, 0x0000AA, "first");
    CChartCurve second = MakeCurve({{0, 100}, {100, 0}}, 0x00BB00, "second");
    std::string pictures;

    void SetUp() override
    {
        model.AddCurve(first, 0, 1);
        model.AddCurve(second, 0, 1);
        model.SetAxisTitle(1, "Er", "");
        Axis(0).axisColour = 0x0A0A0A;
        LayOut(false);
    }

    void LayOut(bool logarithmic)
    {
        model.RebuildDataRanges();
        model.SetScaleMode(logarithmic, false);
        LayOutChart(model, client, canvas);
    }

    void Paint()
    {
        canvas.calls.clear();
        PaintChart({model, style, pointer, client}, canvas);
    }

    // Every call of the scene as it stands.
    void Show(std::string_view name)
    {
        Paint();
        pictures += "== " + std::string(name) + canvas.Describe() + "\n\n";
    }

    [[nodiscard]] CAxis& Axis(std::int32_t identifier) { return *model.FindAxis(identifier); }
    [[nodiscard]] PixelPoint GetPixel(DataPoint value) const { return GetPixelOf(model, value); }
};

TEST_F(Painter, Axes)
{
    Show("linear");
    for (const std::int32_t shift : {-9, 9})
    {
        Axis(0).pixelShift = Axis(1).pixelShift = shift;
        Show("shifted");
    }
    Axis(0).pixelShift = Axis(1).pixelShift = 0;
    style.invertsColours = true;
    Show("inverted");
    style.invertsColours = false;
    model.AddAxis(2, true);
    model.SetAxisTitle(2, "x", "");
    Axis(2).minorTicks = 0;
    first = MakeCurve({{1, 0}, {10, 100}}, 0x0000AA);
    second = MakeCurve({{1, 100}, {10, 0}}, 0x00BB00);
    Axis(0).lowerLimit = 1e-9;
    LayOut(true);
    Show("a decade with two vertical axes");
    ExpectRecorded("pictures/axes.txt", pictures);
}

TEST_F(Painter, Curves)
{
    style.bold = true;
    Show("bold");
    style.lineWidth = 5;
    first.lineStyle = PenStyle::dashDot;
    style.flags = ChartStyle::drawMarkers;
    Show("5 wide, a style of its own without markers, and markers without lines");
    first.lineStyle = -1;
    first.markerShape = 1;
    first.points[1] = {50, 101}; // outside
    Show("diamonds");
    style = {};
    first.points = {{-1e308, 20}, {30, 20},    {noNumber, 1},  {40, 40}, {50, infinity},
                    {60, 60},     {60, 1e300}, {1e300, 1e300}, {70, 10}};
    second.points = {{5, 5}}; // no segment
    Show("cut to the visible range, without what is no point");
    first.points.clear();
    second.points = {{5, 5}, {6, 6}};
    second.colour = style.background;
    Show("empty and hidden");
    ExpectRecorded("pictures/curves.txt", pictures);
}

TEST_F(Painter, Legend)
{
    client = {0, 0, 300, 120};
    LayOut(false);
    model.GetLegend() = {
        {0x0000FF, "Er"}, {0x00FFFF, std::string(20, 'a')}, {0xFFFF00, std::string(40, 'b')}};
    Show("two rows");
    model.GetLegend().assign(100, {0x0000FF, "entry"});
    Show("too many");
    model.GetLegend() = {{0x0000FF, std::string(300, 'c')}};
    Show("too long");
    ExpectRecorded("pictures/legend.txt", pictures);
}

TEST_F(Painter, Labels)
{
    pointer.labelledCurve = 1;
    pointer.labelPosition = {60, 30};
    Show("of the curve");
    pointer.labelledCurve = 0;
    pointer.labelledPoint = 1;
    Show("of the point");
    first.pointLabels = {"", "the bend", "zzzzzzzz"};
    Show("by the host");
    pointer.labelledPoint = 2;
    Show("kept within the window");
    first.pointLabels[2].resize(30, 'z');
    Show("wider than the window");
    ExpectRecorded("pictures/labels.txt", pictures);
    pointer.labelledPoint = 3;
    EXPECT_THROW(Paint(), std::out_of_range);
    pointer.labelledCurve = 2;
    EXPECT_THROW(Paint(), std::invalid_argument);
}

TEST_F(Painter, ReadOuts)
{
    model.AddAxis(2, true);
    client = {0, 0, 200, 200};
    LayOut(false);
    pointer.mouse = GetPixel({50, 50});
    Show("for every pair of axes");
    pointer.showsReadOuts = false;
    Show("none");
    pointer.showsReadOuts = true;
    pointer.lockedCurve = 0;
    Show("for the locked curve, with a cross");
    first.points = {{0, -400}, {100, -400}};
    Show("snapped below the plot");
    first.points.clear();
    Show("without points");
    ExpectRecorded("pictures/readouts.txt", pictures);
}

TEST_F(Painter, CurvesAreClippedOnTheCutSidesOnly)
{
    client = {0, 0, 600, 400};
    LayOut(false);
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
        Paint();
        EXPECT_EQ(canvas.Find([](const Call& call) { return call.kind == Kind::Clip; }).at(0).rect, row.clip);
    }
}

TEST(ChartStyle, InversionDarkensBrightColours)
{
    ChartStyle style;
    EXPECT_EQ(style.GetShownColour(0xFFFFFF), 0xFFFFFFu);
    style.invertsColours = true;
    const std::pair<Colour, Colour> rows[] = {
        {0xFFFFFF, 0x000000}, {0x808080, 0x7F7F7F}, {0x7F7F7F, 0x7F7F7F}, {0x00007F, 0x00007F},
        {0x000080, 0xFFFF7F}, {0x800000, 0x7FFFFF}, {0x000000, 0x000000}};
    for (const auto& [colour, shown] : rows)
    {
        EXPECT_EQ(style.GetShownColour(colour), shown);
    }
}

// Records, with the measures of the pictures' typeface.
class CMeasuredRecorder final : public CRecorderCanvas
{
public:
    PixelSize GetTextExtent(std::string_view text) override { return measure.GetTextExtent(text); }

private:
    CSvgCanvas measure{{1, 1}, 12};
};

// How far the drawn lines of a curve stray, in pixels, from where searching in its data finds it: beyond what
// it covers in a pixel to both sides, since a steep line is placed in whole pixels too.
double GetStray(const CChartModel& model, const CRecorderCanvas& canvas, const CChartCurve& curve)
{
    const CurveMapping mapping(
        model, {&model.GetAxis(Direction::Horizontal, 0), &model.GetAxis(Direction::Vertical, 0)});
    const auto find = [&](int x)
    {
        const double value = InterpolateCurve(curve, mapping.GetValue({x, 0}).x).value_or(noNumber);
        return mapping.GetPlace({1.0, value}).y;
    };
    double farthest = 0.0;
    for (const PixelLine& line : canvas.GetLines(curve.colour))
    {
        for (int x = std::min(line.from.x, line.to.x) + 1; x < std::max(line.from.x, line.to.x); ++x)
        {
            const double t = (x - line.from.x) / static_cast<double>(line.to.x - line.from.x);
            const double y = line.from.y + t * (line.to.y - line.from.y);
            const auto [low, high] = std::minmax({find(x), find(x - 1), find(x + 1)});
            farthest = std::max({farthest, low - y, y - high});
        }
    }
    return farthest;
}

TEST(BentLines, RunWhereTheCurveIsFoundInItsData)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<double> decades(0.0, 10.0);
    double straightest = 0.0;
    for (int i = 0; i < 200; ++i)
    {
        CChartModel model = MakeModel();
        model.FindAxis(0)->lowerLimit = 1e-9;
        std::vector<DataPoint> points;
        for (int k = 0; k < 2 + i % 7; ++k)
        {
            points.push_back({std::pow(10.0, decades(random)), decades(random)});
        }
        std::ranges::sort(points, {}, &DataPoint::x);
        CChartCurve curve = MakeCurve(points, 0x0000FE);
        model.AddCurve(curve, 0, 1);
        model.SetScaleMode(true, false);
        model.FindAxis(0)->requestedMin *= i % 2 == 0 ? 1.0 : 30.0; // zoomed
        const PixelRect client = {0, 0, 760, 240};
        for (const bool bent : {false, true})
        {
            curve.straightInData = bent;
            CRecorderCanvas canvas;
            LayOutChart(model, client, canvas);
            PaintChart({model, {}, {}, client}, canvas);
            const double stray = GetStray(model, canvas, curve);
            straightest = std::max(straightest, bent ? 0.0 : stray);
            EXPECT_LE(stray, bent ? 1.0 : 240.0) << i;
        }
    }
    EXPECT_GT(straightest, 50.0) << "of the lines that hosts get";
}

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

std::string Translate(const std::string& text, bool isLong)
{
    return isLong ? text + std::string(text.size() * 3 / 5, 'w') : text;
}

// `isTranslated` into texts that are sixty per cent longer, and more.
void ExpectTextsApart(PixelSize size, std::size_t axes, bool logarithmic, bool hovering, bool isTranslated)
{
    LaminateCurves laminate;
    CChartModel model;
    laminate.AddTo(model, axes, logarithmic);
    for (CAxis& axis : model.GetAxes(Direction::Vertical))
    {
        axis.title = Translate(axis.title, isTranslated);
    }
    model.SetAxisTitle(0, Translate("Frequency", isTranslated), Translate("MHz", isTranslated));
    for (CLegendEntry& entry : model.GetLegend())
    {
        entry.name = Translate(entry.name, isTranslated);
    }
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
            PixelRect room = GetInk(texts[k]); // with a pixel around
            room = {room.left - 1, room.top - 1, room.right + 1, room.bottom + 1};
            EXPECT_FALSE(GetInk(texts[i]).Meets(room))
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
            for (unsigned kind = 0; kind < 8; ++kind)
            {
                ExpectTextsApart(size, axes, (kind & 1) != 0, (kind & 2) != 0, (kind & 4) != 0);
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

TEST(Placement, ATitleStandsBesideTheLegendWhereThatLeavesRoom)
{
    LaminateCurves laminate;
    CChartModel model;
    laminate.AddTo(model, 2, false);
    CRecorderCanvas canvas;
    const PixelRect client = {0, 0, 500, 240};
    LayOutChart(model, client, canvas);
    const auto getRows = [&]
    {
        const auto title = PlaceTitles({model, {}, {}, client}, Direction::Horizontal, canvas)[0];
        return (title.topLeft.y - model.frame.plot.bottom) / model.frame.lineHeight;
    };
    EXPECT_EQ(getRows(), 2);
    model.GetLegend().resize(1);
    model.GetLegend()[0].name = std::string(70, 'n');
    EXPECT_EQ(getRows(), 1) << "the legend's own";
    model.GetLegend().clear();
    EXPECT_EQ(getRows(), 1) << "the read-out's own";
}

TEST(Placement, TitlesAreLeftOutWholeInALowWindow)
{
    LaminateCurves laminate;
    CChartModel model;
    laminate.AddTo(model, 2, false);
    CRecorderCanvas canvas;
    for (const int height : {60, 90, 100, 111, 112, 113, 200})
    {
        const PixelRect client = {0, 0, 500, height};
        LayOutChart(model, client, canvas);
        for (const Direction direction : directions)
        {
            for (const PlacedText& title : PlaceTitles({model, {}, {}, client}, direction, canvas))
            {
                const bool whole = title.topLeft.y >= 0 && title.topLeft.y + 12 <= height;
                EXPECT_EQ(title.text.empty(), !whole) << height;
            }
        }
    }
}

TEST(Placement, EachEdgeBearsTheMarksOfItsOwnAxis)
{
    for (const std::size_t axes : {1u, 2u, 3u})
    {
        LaminateCurves laminate;
        CChartModel model;
        laminate.AddTo(model, axes, false);
        for (CAxis& axis : model.GetAxes(Direction::Vertical))
        {
            axis.gridColour = static_cast<Colour>(axis.identifier);
        }
        CRecorderCanvas canvas;
        const PixelRect client = {0, 0, 760, 240};
        LayOutChart(model, client, canvas);
        PaintChart({model, {}, {}, client}, canvas);
        const PixelRect& plot = model.frame.plot;
        for (std::size_t i = 0; i < axes; ++i)
        {
            int marks[2] = {};
            for (const PixelLine& line : canvas.GetLines(static_cast<Colour>(i + 1)))
            {
                const bool isMark = line.from.y == line.to.y && line.to.x - line.from.x < plot.GetWidth() / 2;
                marks[0] += isMark && line.from.x == plot.left ? 1 : 0;
                marks[1] += isMark && line.to.x == plot.right ? 1 : 0;
            }
            EXPECT_EQ(marks[0] > 0, axes == 1 || i % 2 == 0) << axes << i;
            EXPECT_EQ(marks[1] > 0, axes == 1 || i % 2 == 1) << axes << i;
        }
    }
}

// The texts of the legend with the mouse at a frequency.
std::vector<std::string> GetLegendTexts(CChartModel& model, double frequency, int width)
{
    CMeasuredRecorder canvas;
    const PixelRect client = {0, 0, width, 240};
    LayOutChart(model, client, canvas);
    ChartPointer pointer;
    pointer.mouse = {GetPixelOf(model, {frequency, 0}).x, model.frame.plot.top + 5};
    canvas.calls.clear();
    EXPECT_GE(PaintLegend({model, {}, pointer, client}, canvas), 3);
    std::vector<std::string> texts;
    for (const Call& call : canvas.Find([](const Call& each) { return each.kind == Kind::Text; }))
    {
        texts.push_back(call.text);
        EXPECT_LE(call.rect.right, model.frame.plot.right) << call.text;
    }
    return texts;
}

TEST(Legend, ShowsTheValuesOfItsCurvesUnderTheMouse)
{
    CChartModel model = MakeModel(1);
    CChartCurve er = MakeCurve({{0, 4}, {1'000, 3}});
    CChartCurve loss = MakeCurve({{500, 0.02}, {1'000, 0.03}});
    model.AddCurve(er, 0, 1);
    model.AddCurve(loss, 0, 2);
    model.ClearAutomaticPrefix(2);
    model.SetScaleMode(false, false);
    model.GetLegend() = {
        {1, "Er", {0}}, {2, "Loss", {1}}, {3, "Kept", {0, 1}}, {4, "Bare"}, {5, "Gone", {2}}};
    using testing::ElementsAre;
    EXPECT_THAT(GetLegendTexts(model, 500, 760),
                ElementsAre("Er: 3.5", "Loss: 0.02", "Kept: 3.5, 0.02", "Bare", "Gone"));
    EXPECT_THAT(GetLegendTexts(model, 0, 760), ElementsAre("Er: 4", "Loss", "Kept: 4", "Bare", "Gone"));
    EXPECT_THAT(GetLegendTexts(model, 2'000, 760), ElementsAre("Er", "Loss", "Kept", "Bare", "Gone"))
        << "beside the plot";
    model.GetLegend().clear();
    for (int i = 0; i < 6; ++i)
    {
        model.GetLegend().push_back({1, "a material with a long name, 25", {0, 1}});
    }
    for (const int width : {760, 1'000})
    {
        const std::vector<std::string> texts = GetLegendTexts(model, 500, width);
        ASSERT_EQ(texts.size(), 6u) << width;
        EXPECT_TRUE(texts[0].starts_with("a") && texts[0].ends_with(": 3.5, 0.02")) << texts[0];
    }
}
} // namespace
