#include "chart/CChartMouse.h"
#include "chart/ZoomAndPan.h"
#include "tests/chart/CMouseFixture.h"

namespace
{
using Log = std::vector<std::string>;

TEST_F(CMouseFixture, EveryModeHasItsCursor)
{
    const struct
    {
        std::int32_t mode;
        ChartCursor cursor;
    } rows[] = {{-3, ChartCursor::Arrow}, {0, ChartCursor::Arrow}, {1, ChartCursor::Zoom},
                {2, ChartCursor::Zoom},   {3, ChartCursor::Zoom},  {4, ChartCursor::Zoom},
                {5, ChartCursor::Pan},    {6, ChartCursor::Pick},  {7, ChartCursor::Pick},
                {8, ChartCursor::Arrow},  {99, ChartCursor::Arrow}};
    for (const auto& row : rows)
    {
        chart.GetInteraction().mode = row.mode;
        chart.GetInteraction().buttonDown = false;
        mouse.OnMove({1, 1});
        EXPECT_EQ(host.lastCursor, row.cursor) << row.mode;
    }
    chart.GetInteraction().mode = MouseMode::pickCurve;
    chart.GetInteraction().buttonDown = true;
    mouse.OnMove({1, 1});
    EXPECT_EQ(host.lastCursor, ChartCursor::Arrow);
    chart.GetInteraction().mode = 8;
    chart.GetInteraction().buttonDown = false;
    mouse.OnButtonDown({100, 100});
    mouse.OnButtonUp({200, 200});
    EXPECT_EQ(host.Count("capture") + host.Count("notify"), 0);
}

TEST_F(CMouseFixture, ZoomsInToTheRectangle)
{
    const PixelRect plot = chart.GetModel().frame.plot;
    const double xScale = Horizontal().scale;
    const double yScale = Vertical().scale;
    host.TakeLog();
    Drag({plot.left + 250, plot.bottom - 40}, {plot.left + 100, plot.bottom - 140});
    EXPECT_EQ(host.TakeLog(), (Log{"capture", "release", "notify", "invalidate"}));
    EXPECT_DOUBLE_EQ(Horizontal().requestedMin, 100 / xScale);
    EXPECT_DOUBLE_EQ(Horizontal().requestedMax, 250 / xScale);
    EXPECT_DOUBLE_EQ(Vertical().requestedMin, 40 / yScale);
    EXPECT_DOUBLE_EQ(Vertical().requestedMax, 140 / yScale);
    EXPECT_LE(Horizontal().visibleMin, Horizontal().requestedMin); // laid out

    mouse.OnDoubleClick();
    EXPECT_EQ(host.TakeLog(), (Log{"notify", "invalidate and erase"}));
    EXPECT_EQ(Horizontal().requestedMin, 0.0);
    EXPECT_EQ(Horizontal().requestedMax, 100.0);
    EXPECT_EQ(Vertical().requestedMax, 200.0);
}

TEST_F(CMouseFixture, ShortDragsChangeNothing)
{
    const struct
    {
        std::int32_t mode;
        int dx, dy;
    } rows[] = {{1, 1, 80}, {1, 80, 1}, {1, 0, 0},  {1, -1, -1},
                {2, 1, 80}, {3, 80, 1}, {4, 1, 80}, {2, 0, 0}};
    for (const auto& row : rows)
    {
        chart.GetInteraction().mode = row.mode;
        host.TakeLog();
        Drag({100, 100}, {100 + row.dx, 100 + row.dy});
        EXPECT_EQ(host.TakeLog(), (Log{"capture", "release"})) << row.mode;
        EXPECT_EQ(Horizontal().requestedMax, 100.0);
        EXPECT_FALSE(chart.GetInteraction().buttonDown);
    }
    Drag({100, 100}, {102, 102});
    EXPECT_EQ(host.Count("notify"), 1);
}

TEST_F(CMouseFixture, OneDirectionZoomsLeaveTheOther)
{
    const PixelRect plot = chart.GetModel().frame.plot;
    chart.GetInteraction().mode = MouseMode::zoomInHorizontally;
    Vertical().pixelShift = 5;
    const double seenMin = 5 / Vertical().scale;
    Drag({plot.left + 100, 100}, {plot.left + 200, 110});
    EXPECT_NEAR(Vertical().requestedMin, seenMin, 1e-9); // what is seen stays what is seen
    EXPECT_EQ(Vertical().pixelShift, 0);
    EXPECT_GT(Horizontal().requestedMin, 10.0);
    mouse.OnDoubleClick();
    chart.GetInteraction().mode = MouseMode::zoomInVertically;
    Drag({plot.left + 100, plot.top + 50}, {plot.left + 110, plot.top + 90});
    EXPECT_NEAR(Horizontal().requestedMin, 0.0, 1e-9);
    EXPECT_NEAR(Horizontal().requestedMax, 100.0, 1e-9);
    EXPECT_LT(Vertical().requestedMax, 190.0);
}

TEST_F(CMouseFixture, ZoomingOutSqueezesThePlotIntoTheRectangle)
{
    const PixelRect plot = chart.GetModel().frame.plot;
    const double scale = Horizontal().scale;
    chart.GetInteraction().mode = MouseMode::zoomOut;
    host.TakeLog();
    Drag({plot.left + 100, plot.top + 50}, {plot.left + 300, plot.top + 150});
    EXPECT_EQ(host.TakeLog(), (Log{"capture", "release", "notify", "invalidate"}));
    const int pixels = MultiplyDivide(plot.GetWidth(), plot.GetWidth(), 200);
    EXPECT_DOUBLE_EQ(Horizontal().requestedMin, (200 - pixels / 2.0) / scale);
    EXPECT_DOUBLE_EQ(Horizontal().requestedMax, (200 + pixels / 2.0) / scale);
}

TEST_F(CMouseFixture, ZoomsStayWithinTheLimits)
{
    const PixelRect plot = chart.GetModel().frame.plot;
    Horizontal().lowerLimit = -5.0;
    Horizontal().upperLimit = 101.0;
    for (const std::int32_t mode : {MouseMode::zoomIn, MouseMode::zoomOut})
    {
        chart.GetInteraction().mode = mode;
        Drag({plot.left - 200, plot.top + 100}, {plot.right + 200, plot.top + 150});
        EXPECT_EQ(Horizontal().requestedMin, mode == MouseMode::zoomIn ? -5.0 : Horizontal().requestedMin);
        EXPECT_GE(Horizontal().requestedMin, -5.0);
        EXPECT_LE(Horizontal().requestedMax, 101.0);
    }
}

// The second end is widened by what the first has become.
TEST_F(CMouseFixture, NarrowLinearRangesAreWidenedAndLogarithmicOnesAreNot)
{
    CChartModel& model = chart.GetModel();
    const auto zoomTo = [&](double lo, double hi)
    {
        CAxis& axis = Horizontal();
        axis.visibleMin = lo;
        axis.visibleMax = hi;
        axis.scale = 100.0 / (GetScale(false).Transform(hi) - lo);
        axis.pixelShift = 0;
        ZoomIn(model, {model.frame.plot.left, 100, model.frame.plot.left + 100, 150});
    };
    const double lo = 5.0;
    const double hi = 5.0 + 1e-10;
    zoomTo(lo, hi);
    const double to = lo + 100 / (100.0 / (hi - lo));
    const double centre = (to + lo) / 2;
    const double newLo = centre - std::fabs(to + lo) * 1e-9 * 0.5;
    EXPECT_EQ(Horizontal().requestedMin, newLo);
    EXPECT_EQ(Horizontal().requestedMax, centre + std::fabs(to + newLo) * 1e-9 * 0.5);
    zoomTo(5.0, 5.0 + 1e-7);
    EXPECT_EQ(Horizontal().requestedMin, 5.0);

    Horizontal().lowerLimit = 1e-9;
    model.SetScaleMode(true, false);
    Horizontal().visibleMin = 5.0;
    Horizontal().scale = 1e15;
    ZoomIn(model, {model.frame.plot.left, 100, model.frame.plot.left + 100, 150});
    EXPECT_LT(Horizontal().requestedMax / 5.0 - 1.0, 1e-12);
}

// Whatever is drawn during a drag is gone after it, also when the window is painted on the way.
TEST_F(CMouseFixture, FeedbackErasesItself)
{
    for (const std::int32_t mode : {1, 2, 3, 4})
    {
        chart.GetInteraction().mode = mode;
        mouse.OnSize(); // the mouse is nowhere
        const std::vector<Colour> before = host.screen.GetPixels();
        mouse.OnButtonDown({100, 100});
        mouse.OnMove({101, 100});
        mouse.OnMove({220, 140});
        EXPECT_NE(host.screen.GetPixels(), before) << mode;
        mouse.OnMove({60, 170});
        EXPECT_EQ(host.feedback.size(), mode == MouseMode::zoomOut ? 8u : 4u);

        CRasterCanvas painted(500, 300);
        chart.Paint(*host.client, painted);
        chart.GetInteraction().buttonDown = false;
        CRasterCanvas plain(500, 300);
        chart.Paint(*host.client, plain);
        chart.GetInteraction().buttonDown = true;
        EXPECT_NE(painted.GetPixels(), plain.GetPixels());
        painted.DrawXorLines(host.feedback, 0x5C5C5C);
        EXPECT_EQ(painted.GetPixels(), plain.GetPixels()) << mode;

        mouse.OnMove({101, 101});
        mouse.OnButtonUp({101, 101});
        EXPECT_EQ(host.screen.GetPixels(), before) << mode;
    }
}

TEST_F(CMouseFixture, FeedbackTakesThePlotsEdges)
{
    const PixelRect plot = chart.GetModel().frame.plot;
    const auto getFeedback = [this](std::int32_t mode, PixelPoint to)
    {
        chart.GetInteraction().mode = mode;
        mouse.OnButtonDown({100, 100});
        mouse.OnMove(to);
        const std::vector<PixelLine> lines = host.feedback;
        mouse.OnButtonUp({100, 100});
        return lines;
    };
    EXPECT_EQ(getFeedback(3, {150, 120})[0], (PixelLine{{100, plot.top}, {150, plot.top}}));
    EXPECT_EQ(getFeedback(4, {150, 120})[0], (PixelLine{{plot.left, 100}, {plot.right, 100}}));
    EXPECT_EQ(getFeedback(2, {150, 120})[4], (PixelLine{{100, 100}, {plot.left, plot.top}}));
    EXPECT_EQ(getFeedback(2, {101, 120}).size(), 4u);
}

TEST_F(CMouseFixture, MovingReadsOutThePointOrTheCurve)
{
    const PixelPoint bend = GetPixel({50, 150});
    mouse.OnMove(bend);
    EXPECT_EQ(chart.GetInteraction().readOutCurve, 0);
    EXPECT_EQ(chart.GetInteraction().readOutPoint, 1);
    mouse.OnMove(GetPixel({25, 75}));
    EXPECT_EQ(chart.GetInteraction().readOutCurve, 0);
    EXPECT_EQ(chart.GetInteraction().readOutPoint, -1);
    EXPECT_EQ(chart.GetInteraction().readOutPosition, GetPixel({25, 75}));
    mouse.OnMove(GetPixel({25, 190}));
    EXPECT_EQ(chart.GetInteraction().readOutCurve, -1);
    EXPECT_EQ(host.TakeLog(), (Log(3, "invalidate")));
    mouse.OnMove(bend);
    mouse.OnButtonDown(bend);
    EXPECT_EQ(chart.GetInteraction().readOutCurve, -1);
    mouse.OnButtonUp(bend);
    mouse.OnMove(bend);
    CChartCurve more = MakeCurve({{1, 1}});
    EXPECT_EQ(chart.AddCurve(more, 0, 1), 1);
    EXPECT_EQ(chart.GetInteraction().readOutCurve, -1);
    EXPECT_EQ(chart.GetInteraction().lastPoint, bend);
    mouse.OnSize();
    EXPECT_EQ(chart.GetInteraction().lastPoint, (PixelPoint{-1, -1}));
}

TEST_F(CMouseFixture, HoveringHighlightsAndGivesTheColourBack)
{
    chart.GetInteraction().mode = MouseMode::pickCurve;
    mouse.OnMove(GetPixel({25, 75}));
    EXPECT_EQ(curve.colour, 0xFFFFFFu);
    mouse.OnMove(GetPixel({26, 78}));
    EXPECT_EQ(curve.colour, 0xFFFFFFu);
    mouse.OnMove(GetPixel({25, 190}));
    EXPECT_EQ(curve.colour, 0x0000FFu);
    mouse.OnMove(GetPixel({25, 75}));
    chart.RemoveCurves();
    EXPECT_EQ(curve.colour, 0x0000FFu);
    EXPECT_EQ(chart.GetInteraction().hoveredCurve, -1);
    EXPECT_EQ(chart.GetModel().GetCurveCount(), 0);
}

TEST_F(CMouseFixture, PickingTakesACurveThenAPoint)
{
    class CListener final : public IPickListener
    {
    public:
        void OnPointPicked(const CChartCurve& picked, const DataPoint& where, const DataPoint& on) override
        {
            curve = &picked;
            clicked = where;
            snapped = on;
            ++calls;
        }
        const CChartCurve* curve = nullptr;
        DataPoint clicked;
        DataPoint snapped;
        int calls = 0;
    } listener;
    mouse.SetPickListener(&listener);
    ChartInteraction& interaction = chart.GetInteraction();
    interaction.mode = MouseMode::pickCurve;
    const auto click = [this](PixelPoint at)
    {
        mouse.OnButtonDown(at);
        mouse.OnButtonUp(at);
    };
    click(GetPixel({25, 190})); // beside every curve
    EXPECT_FALSE(interaction.buttonDown);
    click(GetPixel({25, 75}));
    EXPECT_TRUE(interaction.HasLockedCurve());
    EXPECT_EQ(curve.colour, 0x0000FFu);
    EXPECT_EQ(interaction.mode, MouseMode::pickCurve);
    mouse.OnButtonDown(GetPixel({50, 10}));
    EXPECT_EQ(interaction.mode, MouseMode::pickPoint);
    EXPECT_EQ(interaction.lastPoint, GetPixel({50, 150})); // on the curve
    EXPECT_EQ(host.lastCursor, ChartCursor::Arrow);
    mouse.OnButtonUp(GetPixel({50, 10}));
    EXPECT_EQ(listener.calls, 0);
    click(GetPixel({75, 20}));
    EXPECT_EQ(listener.calls, 1);
    EXPECT_EQ(interaction.mode, MouseMode::pickCurve);
    EXPECT_EQ(listener.curve, &curve);
    EXPECT_NEAR(listener.clicked.x, 75.0, 0.2);
    EXPECT_NEAR(listener.clicked.y, 20.0, 0.8);
    EXPECT_EQ(listener.snapped.x, listener.clicked.x);
    EXPECT_NEAR(listener.snapped.y, 175.0, 0.3);
    EXPECT_EQ(host.Count("capture") + host.Count("notify"), 0);

    mouse.SetPickListener(nullptr);
    click(GetPixel({75, 20}));
    click(GetPixel({75, 20}));
    EXPECT_EQ(listener.calls, 1);
    curve.colour = 0x123456;
    chart.RemoveCurves(); // unlocks, and leaves the curve the colour that it has got meanwhile
    EXPECT_EQ(curve.colour, 0x123456u);
    EXPECT_FALSE(interaction.buttonDown);
    click(GetPixel({75, 20}));
}

TEST_F(CMouseFixture, WithoutAWindowNothingIsLaidOut)
{
    const PixelRect before = chart.GetModel().frame.plot;
    host.client.reset();
    mouse.OnSize();
    mouse.OnDoubleClick();
    EXPECT_EQ(chart.GetModel().frame.plot, before);
}
} // namespace
