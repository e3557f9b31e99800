#include "tests/chart/MakeChart.h"

#include <gtest/gtest.h>

namespace
{
constexpr double largest = std::numeric_limits<double>::max();

TEST(Layout, MarginsComeFromTheWidestLabels)
{
    const struct
    {
        PixelRect client;
        std::size_t verticalAxes;
        bool logarithmic;
    } rows[] = {{{0, 0, 760, 240}, 1, false},
                {{0, 0, 760, 240}, 2, true},
                {{10, 20, 310, 220}, 3, false},
                {{0, 0, 1920, 1080}, 2, false}};
    for (const auto& row : rows)
    {
        LaminateCurves laminate;
        CChartModel model;
        laminate.AddTo(model, row.verticalAxes, row.logarithmic);
        CRecorderCanvas canvas;
        LayOutChart(model, row.client, canvas);
        const int h = 12;
        const int wH = model.frame.widestHorizontalLabel;
        const int wV = model.frame.widestVerticalLabel;
        const PixelRect expected = {row.client.left + std::max(wH / 2, wV) + h / 4, row.client.top + h,
                                    row.client.right - (row.verticalAxes > 1 ? wV : h / 4) - wH / 2,
                                    row.client.bottom - (static_cast<int>(row.verticalAxes) + 3) * h};
        EXPECT_EQ(model.frame.plot, expected);
        EXPECT_EQ(model.frame.lineHeight, h);
        const CAxis& axis = model.GetAxis(Direction::Horizontal, 0);
        const IScale& scale = model.GetScale(Direction::Horizontal);
        EXPECT_LE(axis.visibleMin, axis.requestedMin);
        EXPECT_GE(axis.visibleMax, axis.requestedMax);
        EXPECT_DOUBLE_EQ(axis.scale * GetVisibleExtent(axis, scale), expected.GetWidth());
        model.AddAxis(9, false);
        LayOutChart(model, row.client, canvas); // a row for the read-outs of each pair of axes
        EXPECT_EQ(model.frame.plot.bottom,
                  row.client.bottom - (2 * static_cast<int>(row.verticalAxes) + 3) * h);
    }
}

TEST(Layout, KeepsFortyPixelsOfPlotAndForgetsALargerFont)
{
    LaminateCurves laminate;
    CChartModel model;
    laminate.AddTo(model, 2, false);
    CRecorderCanvas canvas;
    for (const PixelRect client : {PixelRect{0, 0, 0, 0}, {0, 0, 50, 30}, {5, 5, 4, 4}, {0, 0, 5'000, 10}})
    {
        LayOutChart(model, client, canvas);
        EXPECT_GE(model.frame.plot.GetWidth(), 40);
        EXPECT_EQ(model.frame.plot.GetHeight(), 40);
    }
    canvas.character = {12, 30};
    LayOutChart(model, {0, 0, 760, 480}, canvas);
    EXPECT_EQ(model.frame.lineHeight, 30);
    canvas.character = {6, 12};
    LayOutChart(model, {0, 0, 760, 480}, canvas);
    const ChartFrame settled = model.frame;
    LayOutChart(model, {0, 0, 760, 480}, canvas);
    EXPECT_EQ(model.frame.lineHeight, 12);
    EXPECT_EQ(model.frame.widestHorizontalLabel, settled.widestHorizontalLabel);
}

TEST(Layout, WidensRangesThatCannotBeDrawn)
{
    const struct
    {
        bool logarithmic;
        double lo, hi;
        double wideLo, wideHi;
    } rows[] = {
        {false, 0, 0, -0.5, 0.5},
        {false, 4.2, 4.2, 3.7, 4.7},
        {false, -4.2, -4.2, -4.7, -3.7},
        {false, 1.0, 1.0 + 1e-12, 0.5, 1.5 + 1e-12},
        {false, 1.0, 1.0 + 1e-11, 1.0, 1.0 + 1e-11},
        {false, -1.0, 1.0, -1.0, 1.0},
        {true, 5.0, 5.0, 0.5, 50.0},
        {true, 5.0, 6.0, 5.0, 6.0},
        // From broken files and careless hosts.
        {false, 7.0, 3.0, 3.0, 7.0},
        {false, noNumber, 3.0, 1.0, 2.0}, // the data range
        {false, -infinity, infinity, 1.0, 2.0},
        {false, -largest, largest, -1e300, 1e300},
        {false, 0.0, 1e-314, -0.5, 0.5},
        {false, 0.0, 1e-290, 0.0, 1e-290},
        {false, 1e20, 1e20, 1e20 - 1e11, 1e20 + 1e11},
        {false, 1e14, 1e14, 1e14 - 100'000.5, 1e14 + 100'000.5},
        {true, 0.0, 0.0, 1e-3, 1e-2}, // from the lower limit
        {true, -4.0, 1e3, 1e-3, 1e3},
        {true, 0.0, infinity, 1.0, 2.0},
        {true, 0x1p-1074, 1e300, 1e-300, 1e300}, // the first decade has no tick
    };
    for (const auto& row : rows)
    {
        CChartModel model = MakeModel();
        CAxis& axis = *model.FindAxis(0);
        axis.lowerLimit = 1e-3;
        axis.dataMin = 1.0;
        axis.dataMax = 2.0;
        model.SetScaleMode(row.logarithmic, false);
        axis.requestedMin = row.lo;
        axis.requestedMax = row.hi;
        CRecorderCanvas canvas;
        LayOutChart(model, {0, 0, 500, 300}, canvas);
        EXPECT_DOUBLE_EQ(axis.requestedMin, row.wideLo) << row.lo << " " << row.hi;
        EXPECT_DOUBLE_EQ(axis.requestedMax, row.wideHi) << row.lo << " " << row.hi;
        EXPECT_LE(CountTickIntervals(axis, model.GetScale(Direction::Horizontal)), 25);
    }
}

TEST(Layout, FallsBackToLinearWhereAnAxisMayReachZero)
{
    LaminateCurves laminate;
    CChartModel model;
    laminate.AddTo(model, 1, true);
    ASSERT_TRUE(model.GetScale(Direction::Horizontal).IsLogarithmic());
    model.FindAxis(1)->requestedMax = 99.0;
    model.FindAxis(0)->lowerLimit = 0.0;
    CRecorderCanvas canvas;
    LayOutChart(model, {0, 0, 500, 300}, canvas);
    EXPECT_FALSE(model.GetScale(Direction::Horizontal).IsLogarithmic());
    EXPECT_NE(model.FindAxis(1)->requestedMax, 99.0); // as with every change of the scale mode
}

// A pan that is laid out anew leaves a step that is too fine for the range.
TEST(Layout, ListsNoTicksFarBeyondThePlot)
{
    CChartModel model = MakeModel();
    model.frame.plot = {10, 10, 50, 90};
    CAxis& axis = *model.FindAxis(0);
    axis.visibleMax = 1'000.0;
    axis.tickStep = 2.0;
    axis.scale = 5.0;
    EXPECT_EQ(GetDrawnTicks(model, Direction::Horizontal, axis).last, 5);
    axis.visibleMax = 6.0;
    EXPECT_EQ(GetDrawnTicks(model, Direction::Horizontal, axis).last, 3);
}

// A font that grows with every look, and one without any size.
TEST(Layout, EndsWithHostileFonts)
{
    class CFont final : public ITextMeasure
    {
    public:
        explicit CFont(int growth_) : growth(growth_) {}
        PixelSize GetTextExtent(std::string_view) override { return {looks += growth, looks}; }

    private:
        int growth;
        int looks = 0;
    };
    LaminateCurves laminate;
    CChartModel model;
    laminate.AddTo(model, 3, true);
    CFont growing(1'000);
    LayOutChart(model, {0, 0, 760, 240}, growing);
    EXPECT_LE(model.frame.widestVerticalLabel, 4'096);
    CFont flat(-5);
    model.frame = {};
    LayOutChart(model, {0, 0, 760, 240}, flat);
    EXPECT_EQ(model.frame.plot, (PixelRect{0, 0, 760, 240}));
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
    EXPECT_NEAR(titles[1].topLeft.x, titles[2].topLeft.x + 30 + 9 + 3, 3); // in all of the room that is left
    EXPECT_GE(PlaceTickLabels({model, {}, {}, client}, Direction::Vertical, canvas)[2].size(), 1u);
    EXPECT_EQ(FitText(canvas, "abcdef", 36), "abcdef");
    EXPECT_EQ(FitText(canvas, "abcdef", 35), "ab...");
    EXPECT_EQ(FitText(canvas, "abcdef", 24), "a...");
    EXPECT_EQ(FitText(canvas, "abcdef", 23), "");
    EXPECT_EQ(FitText(canvas, "", 0), "");
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
} // namespace
