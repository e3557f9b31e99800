#include "chart/ZoomAndPan.h"
#include "tests/chart/MakeChart.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>

namespace
{
// What the window is to do, but for its cursor.
std::string Describe(const ChartResponse& response)
{
    std::string text = response.feedback.Get().empty() ? "" : "lines ";
    text += response.capture == true ? "capture " : response.capture == false ? "release " : "";
    text += response.animates ? "animate " : "";
    text += response.ranges == RangeChange::Panned ? "panned " : "";
    text += response.ranges == RangeChange::Zoomed ? "zoomed " : "";
    text += response.repaints ? "repaint " : "";
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

// What an axis asks for and shows, exact.
std::string Describe(const CAxis& axis)
{
    char text[160];
    std::snprintf(text, sizeof text, "%.12g to %.12g, seen %.12g to %.12g by %.12g shifted %d",
                  axis.requestedMin, axis.requestedMax, axis.visibleMin, axis.visibleMax, axis.tickStep,
                  axis.pixelShift);
    return text;
}

// A chart of one curve from (0, 0) over (50, 150) to (100, 200) in a window of 500 x 300 pixels.
class Mouse : public ::testing::Test
{
protected:
    CFakeHost host;
    CChart& chart = host.chart;
    CChartModel& model = chart.GetModel();
    CChartInteraction& mouse = chart.GetInteraction();
    CChartCurve curve = MakeCurve({{0, 0}, {50, 150}, {100, 200}});
    CAxis& horizontal = *model.FindAxis(0);
    CAxis& vertical = *model.FindAxis(1);

    void SetUp() override
    {
        chart.AddCurve(curve, 0, 1);
        Reset();
    }

    void Reset(bool logarithmic = false)
    {
        model.SetScaleMode(logarithmic, logarithmic);
        chart.RecomputeLayout();
    }

    [[nodiscard]] const PixelRect& Plot() const { return host.chart.GetModel().frame.plot; }
    [[nodiscard]] PixelPoint GetPixel(DataPoint value) const { return GetPixelOf(model, value); }

    std::string Press(PixelPoint at) { return Describe(mouse.OnButtonDown(at)); }
    std::string Move(PixelPoint at) { return Describe(mouse.OnMove(at)); }
    std::string Release(PixelPoint at)
    {
        const ChartResponse response = mouse.OnButtonUp(at);
        if (response.ranges == RangeChange::Zoomed)
        {
            chart.RecomputeLayout();
        }
        return Describe(response);
    }
    std::string Drag(PixelPoint from, PixelPoint to)
    {
        Press(from);
        Move({(from.x + to.x) / 2, (from.y + to.y) / 2});
        Move(to);
        return Release(to);
    }
    void Click(PixelPoint at)
    {
        Press(at);
        Release(at);
    }

    // Plays a line of a session: a word and numbers. Points are pixels from the plot's top left corner.
    std::string Play(const std::string& line)
    {
        std::istringstream words(line);
        std::string word;
        std::vector<double> numbers;
        words >> word;
        for (double number = 0.0; words >> number;)
        {
            numbers.push_back(number);
        }
        numbers.resize(3);
        const PixelPoint at = {Plot().left + static_cast<int>(numbers[0]),
                               Plot().top + static_cast<int>(numbers[1])};
        CAxis& axis = numbers[0] == 0.0 ? horizontal : vertical;
        if (word == "reset")
        {
            Reset();
        }
        else if (word == "decades")
        {
            curve = MakeCurve({{1, 1}, {1e5, 100}});
            model.RebuildDataRanges();
            horizontal.lowerLimit = vertical.lowerLimit = 1e-9;
            Reset(true);
        }
        else if (word == "mode")
        {
            mouse.SetMode(static_cast<std::int32_t>(numbers[0]));
        }
        else if (word == "limits")
        {
            axis.lowerLimit = numbers[1];
            axis.upperLimit = numbers[2];
        }
        else if (word == "shift")
        {
            axis.pixelShift = static_cast<int>(numbers[1]);
        }
        else if (word == "animate")
        {
            return mouse.Animate(static_cast<std::uint32_t>(numbers[0])) == AnimationStep::Ended ? "ended"
                                                                                                 : "";
        }
        return word == "press" ? Press(at) : word == "move" ? Move(at) : word == "release" ? Release(at) : "";
    }
};

// The file holds lines to play, behind "> ", each followed by what came of it. ML_WRITE_REFERENCE=1 writes it
// anew.
TEST_F(Mouse, SessionsOfZoomingAndPanning)
{
    const std::string path = ML_SOURCE_DIR "/tests/chart/sessions.txt";
    std::ifstream file(path, std::ios::binary);
    const std::string expected(std::istreambuf_iterator<char>(file), {});
    std::istringstream lines(expected);
    std::string played;
    std::string last[2];
    for (std::string line; std::getline(lines, line);)
    {
        if (line.starts_with("#") || line.empty())
        {
            played += line + "\n";
        }
        if (!line.starts_with("> "))
        {
            continue;
        }
        const std::string response = Play(line.substr(2));
        played += line + "\n" + (response.empty() ? "" : response + "\n");
        for (const CAxis* const axis : {&horizontal, &vertical})
        {
            std::string& before = last[axis == &vertical];
            if (const std::string text = (axis == &vertical ? "y " : "x ") + Describe(*axis); text != before)
            {
                played += text + "\n";
                before = text;
            }
        }
    }
    if (std::getenv("ML_WRITE_REFERENCE") != nullptr)
    {
        std::ofstream(path, std::ios::binary) << played;
    }
    EXPECT_EQ(played, expected);
    EXPECT_GT(played.size(), 3'000u);
}

TEST_F(Mouse, EveryModeHasItsCursor)
{
    using enum ChartCursor;
    const std::pair<std::int32_t, ChartCursor> rows[] = {{-3, Arrow}, {0, Arrow}, {1, Zoom},  {2, Zoom},
                                                         {3, Zoom},   {4, Zoom},  {5, Pan},   {6, Pick},
                                                         {7, Pick},   {8, Arrow}, {99, Arrow}};
    for (const auto& [mode, cursor] : rows)
    {
        mouse.SetMode(mode);
        EXPECT_EQ(mouse.OnMove({1, 1}).cursor, cursor) << mode;
    }
    EXPECT_EQ(Drag({100, 100}, {200, 200}), "");
    mouse.SetMode(MouseMode::pickCurve);
    Click(GetPixel({25, 75})); // locked
    EXPECT_EQ(mouse.OnMove({1, 1}).cursor, Arrow);
    EXPECT_EQ(mouse.OnButtonDown({1, 1}).cursor, Arrow);
}

// The second end is widened by what the first has become.
TEST_F(Mouse, NarrowLinearRangesAreWidenedAndLogarithmicOnesAreNot)
{
    const auto zoom = [&](double scale)
    {
        horizontal.visibleMin = 5.0;
        horizontal.scale = scale;
        ZoomIn(model, {Plot().left, 100, Plot().left + 100, 150});
    };
    const double scale = 100 / 1e-10;
    zoom(scale);
    const double to = 5.0 + 100 / scale;
    const double centre = (to + 5.0) / 2;
    const double low = centre - std::fabs(to + 5.0) * 1e-9 * 0.5;
    EXPECT_EQ(horizontal.requestedMin, low);
    EXPECT_EQ(horizontal.requestedMax, centre + std::fabs(to + low) * 1e-9 * 0.5);
    zoom(100 / 1e-7);
    EXPECT_EQ(horizontal.requestedMin, 5.0);
    horizontal.lowerLimit = 1e-9;
    model.SetScaleMode(true, false);
    zoom(1e15);
    EXPECT_LT(horizontal.requestedMax / 5.0 - 1.0, 1e-12);
}

// What is drawn during a drag is drawn once more to erase it, also when the window is painted on the way.
TEST_F(Mouse, FeedbackErasesItself)
{
    const PixelRect plot = Plot();
    const auto toLines = [](const CFeedbackLines& feedback)
    { return std::vector(feedback.Get().begin(), feedback.Get().end()); };
    for (const std::int32_t mode : {1, 2, 3, 4})
    {
        mouse.SetMode(mode);
        std::vector<PixelLine> shown;
        (void)mouse.OnButtonDown({100, 100});
        for (const PixelPoint to : {PixelPoint{101, 100}, {220, 140}, {60, 170}, {101, 101}})
        {
            std::vector<PixelLine> lines = toLines(mouse.OnMove(to).feedback);
            EXPECT_TRUE(std::equal(shown.begin(), shown.end(), lines.begin())) << mode;
            shown.assign(lines.begin() + static_cast<std::ptrdiff_t>(shown.size()), lines.end());
            EXPECT_EQ(shown.size(), mode == MouseMode::zoomOut && to.y > 101 ? 8u : 4u);
            host.canvas.calls.clear();
            chart.Paint({0, 0, 500, 300}, host.canvas);
            std::vector<PixelLine> painted;
            for (const auto& call : host.canvas.calls)
            {
                if (call.kind == CRecorderCanvas::Kind::Xor)
                {
                    EXPECT_EQ(call.colour, 0x5C5C5Cu);
                    painted.push_back({call.points[0], call.points[1]});
                }
            }
            EXPECT_EQ(painted, shown);
        }
        EXPECT_EQ(toLines(mouse.OnButtonUp({101, 101}).feedback), shown);
        EXPECT_TRUE(mouse.GetFeedback().Get().empty());
    }
    const auto getLines = [&](std::int32_t mode, PixelPoint to)
    {
        mouse.SetMode(mode);
        (void)mouse.OnButtonDown({100, 100});
        return toLines(mouse.OnMove(to).feedback);
    };
    const auto getLine = [&](std::int32_t mode, std::size_t index) {
        return getLines(mode, {150, 120}).at(index);
    };
    EXPECT_EQ(getLines(MouseMode::zoomOut, {101, 120}).size(), 4u);
    EXPECT_EQ(getLines(MouseMode::zoomOut, {120, 101}).size(), 4u);
    EXPECT_EQ(getLine(1, 0), (PixelLine{{100, 100}, {150, 100}}));
    EXPECT_EQ(getLine(3, 0), (PixelLine{{100, plot.top}, {150, plot.top}}));
    EXPECT_EQ(getLine(3, 2), (PixelLine{{150, plot.bottom}, {100, plot.bottom}}));
    EXPECT_EQ(getLine(4, 0), (PixelLine{{plot.left, 100}, {plot.right, 100}}));
    EXPECT_EQ(getLine(2, 4), (PixelLine{{100, 100}, {plot.left, plot.top}}));
}

TEST_F(Mouse, MovingReadsOutThePointOrTheCurve)
{
    const PixelPoint bend = GetPixel({50, 150});
    const PixelPoint between = GetPixel({25, 75});
    const auto expectReadOut = [this](std::int64_t labelled, std::int32_t point)
    {
        EXPECT_EQ(mouse.GetPointer().labelledCurve, labelled);
        EXPECT_EQ(mouse.GetPointer().labelledPoint, point);
    };
    EXPECT_EQ(Move(bend), "repaint");
    expectReadOut(0, 1);
    Move(between);
    expectReadOut(0, -1);
    EXPECT_EQ(mouse.GetPointer().labelPosition, between);
    Move(GetPixel({25, 190}));
    expectReadOut(-1, -1);
    Move(bend);
    Press(bend);
    expectReadOut(-1, -1);
    Release(bend);
    Move(bend);
    CChartCurve more = MakeCurve({{1, 1}});
    EXPECT_EQ(chart.AddCurve(more, 0, 1), 1);
    expectReadOut(-1, -1);
    EXPECT_EQ(mouse.GetPointer().mouse, bend);
    EXPECT_TRUE(mouse.GetPointer().showsReadOuts);
    mouse.SetMode(MouseMode::pan);
    EXPECT_FALSE(mouse.GetPointer().showsReadOuts);
    mouse.ForgetMouse();
    EXPECT_EQ(mouse.GetPointer().mouse, (PixelPoint{-1, -1}));
}

TEST_F(Mouse, HoveringHighlightsAndGivesTheColourBack)
{
    mouse.SetMode(MouseMode::pickCurve);
    const std::pair<DataPoint, Colour> rows[] = {
        {{25, 75}, 0xFFFFFF}, {{26, 78}, 0xFFFFFF}, {{25, 190}, 0x0000FF}, {{25, 75}, 0xFFFFFF}};
    for (const auto& [at, colour] : rows)
    {
        EXPECT_EQ(Move(GetPixel(at)), "repaint");
        EXPECT_EQ(curve.colour, colour);
        EXPECT_EQ(mouse.GetPointer().lockedCurve, -1);
    }
    chart.RemoveCurves();
    EXPECT_EQ(curve.colour, 0x0000FFu);
    EXPECT_EQ(model.GetCurveCount(), 0);
    EXPECT_EQ(Release({1, 1}), "");
}

TEST_F(Mouse, PickingTakesACurveThenAPoint)
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
    mouse.SetMode(MouseMode::pickCurve);
    Click(GetPixel({25, 190})); // beside every curve
    EXPECT_EQ(mouse.GetPointer().lockedCurve, -1);
    Press(GetPixel({25, 75}));
    EXPECT_EQ(Release(GetPixel({25, 75})), "repaint");
    EXPECT_EQ(mouse.GetPointer().lockedCurve, 0);
    EXPECT_EQ(curve.colour, 0x0000FFu);
    EXPECT_EQ(mouse.GetMode(), MouseMode::pickCurve);
    EXPECT_EQ(Press(GetPixel({50, 10})), "");
    EXPECT_EQ(mouse.GetMode(), MouseMode::pickPoint);
    EXPECT_EQ(mouse.GetPointer().mouse, GetPixel({50, 150})); // on the curve
    Release(GetPixel({50, 10}));
    EXPECT_EQ(listener.calls, 0);
    Click(GetPixel({75, 20}));
    EXPECT_EQ(listener.calls, 1);
    EXPECT_EQ(mouse.GetMode(), MouseMode::pickCurve);
    EXPECT_EQ(listener.curve, &curve);
    EXPECT_NEAR(listener.clicked.x, 75.0, 0.2);
    EXPECT_NEAR(listener.clicked.y, 20.0, 0.8);
    EXPECT_EQ(listener.snapped.x, listener.clicked.x);
    EXPECT_NEAR(listener.snapped.y, 175.0, 0.3);
    mouse.SetPickListener(nullptr);
    Click(GetPixel({75, 20}));
    Click(GetPixel({75, 20}));
    EXPECT_EQ(listener.calls, 1);
    curve.colour = 0x123456;
    Press(GetPixel({75, 20}));
    chart.RemoveCurves(); // unlocks, and leaves the curve the colour that it has got meanwhile
    EXPECT_EQ(curve.colour, 0x123456u);
    EXPECT_EQ(mouse.GetPointer().lockedCurve, -1);
    EXPECT_EQ(mouse.GetMode(), MouseMode::pickCurve);
    Click(GetPixel({75, 20}));
}

TEST_F(Mouse, AReleasedPanRunsOnToTheNextTickIn180Milliseconds)
{
    const int tick = GetTickPixels(horizontal);
    mouse.SetMode(MouseMode::pan);
    Press({200, 150});
    Move({200 + tick + 10, 150 - 4});
    EXPECT_EQ(Release({200 + tick + 10, 150 - 4}), "release animate repaint");
    std::uint32_t lastShown = 0;
    for (std::uint32_t elapsed = 0; elapsed < 180; ++elapsed)
    {
        const AnimationStep step = mouse.Animate(elapsed);
        ASSERT_EQ(step, elapsed - lastShown == 20 ? AnimationStep::Show : AnimationStep::Wait) << elapsed;
        if (step == AnimationStep::Show)
        {
            lastShown = elapsed;
            EXPECT_EQ(horizontal.pixelShift, 10 + static_cast<int>(elapsed) * (tick - 10) / 180);
            EXPECT_LT(vertical.pixelShift, -4);
            EXPECT_GE(vertical.pixelShift, -GetTickPixels(vertical));
        }
    }
    EXPECT_EQ(mouse.Animate(180), AnimationStep::Ended);
    EXPECT_EQ(mouse.Animate(181), AnimationStep::Ended);
    EXPECT_DOUBLE_EQ(horizontal.visibleMin, -2 * horizontal.tickStep);
    EXPECT_EQ(horizontal.requestedMin, horizontal.visibleMin);
    EXPECT_DOUBLE_EQ(vertical.visibleMin, -vertical.tickStep); // upwards brings lower values in
    EXPECT_EQ(horizontal.pixelShift, 0);
    EXPECT_EQ(vertical.pixelShift, 0);
}

} // namespace
