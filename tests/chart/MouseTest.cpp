#include "chart/CViewHistory.h"
#include "chart/ZoomAndPan.h"
#include "tests/chart/MakeChart.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <random>
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

std::string Describe(const CChartInteraction& mouse, const CChartCurve& curve)
{
    const ChartPointer& pointer = mouse.GetPointer();
    std::ostringstream text;
    text << "mode " << mouse.GetMode() << ", mouse " << pointer.mouse.x << ' ' << pointer.mouse.y
         << (pointer.showsReadOuts ? " read out" : "") << ", label of " << pointer.labelledCurve << ' '
         << pointer.labelledPoint << " at " << pointer.labelPosition.x << ' ' << pointer.labelPosition.y
         << ", locked " << pointer.lockedCurve << ", colour " << std::hex << curve.colour;
    return text.str();
}

// A chart of one curve from (0, 0) over (50, 150) to (100, 200) in a window of 500 x 300 pixels.
class Mouse : public ::testing::Test, public IPickListener
{
protected:
    CFakeHost host;
    CChart& chart = host.chart;
    CChartModel& model = chart.GetModel();
    CChartInteraction& mouse = chart.GetInteraction();
    CChartCurve curve;
    CChartCurve more;
    std::string picks;
    std::int32_t modeAfterPick = 0; // where the listener sets one
    CAxis& horizontal = *model.FindAxis(0);
    CAxis& vertical = *model.FindAxis(1);

    void SetUp() override { Start(); }

    void Start()
    {
        chart.RemoveCurves();
        curve = MakeCurve({{0, 0}, {50, 150}, {100, 200}});
        chart.AddCurve(curve, 0, 1);
        Reset();
    }

    void OnPointPicked(const CChartCurve& picked, const DataPoint& where, const DataPoint& on) override
    {
        EXPECT_EQ(&picked, &curve);
        char text[128];
        std::snprintf(text, sizeof text, "picked %.9g, %.9g on the curve %.9g, %.9g\n", where.x, where.y,
                      on.x, on.y);
        picks += text;
        if (modeAfterPick != 0)
        {
            (void)mouse.SetMode(modeAfterPick);
        }
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
        if (word == "start" || word == "remove")
        {
            word == "start" ? Start() : chart.RemoveCurves();
        }
        else if (word == "reset")
        {
            Reset();
        }
        else if (word == "add")
        {
            more = MakeCurve({{1, 1}});
            chart.AddCurve(more, 0, 1);
        }
        else if (word == "forget")
        {
            mouse.ForgetMouse();
        }
        else if (word == "listen")
        {
            mouse.SetPickListener(numbers[0] != 0.0 ? this : nullptr);
            modeAfterPick = static_cast<std::int32_t>(numbers[1]);
        }
        else if (word == "colour")
        {
            curve.colour = static_cast<Colour>(numbers[0]);
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
            return Describe(mouse.SetMode(static_cast<std::int32_t>(numbers[0])));
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
    std::istringstream lines(std::string(std::istreambuf_iterator<char>(file), {}));
    std::string played;
    std::string last[3];
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
        played += line + "\n" + (response.empty() ? "" : response + "\n") + std::exchange(picks, {});
        const std::string now[] = {"x " + Describe(horizontal), "y " + Describe(vertical),
                                   Describe(mouse, curve)};
        for (std::size_t i = 0; i < std::size(now); ++i)
        {
            played += now[i] != last[i] ? now[i] + "\n" : "";
            last[i] = now[i];
        }
    }
    ExpectRecorded("sessions.txt", played);
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
        (void)mouse.SetMode(mode);
        EXPECT_EQ(mouse.OnMove({1, 1}).cursor, cursor) << mode;
    }
    EXPECT_EQ(Drag({100, 100}, {200, 200}), "");
    (void)mouse.SetMode(MouseMode::pickCurve);
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
        (void)mouse.SetMode(mode);
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
        (void)mouse.SetMode(mode);
        (void)mouse.OnButtonDown({100, 100});
        return toLines(mouse.OnMove(to).feedback);
    };
    const auto getLine = [&](std::int32_t mode, std::size_t index) {
        return getLines(mode, {150, 120}).at(index);
    };
    EXPECT_EQ(getLines(MouseMode::zoomOut, {101, 120}).size(), 4u);
    EXPECT_EQ(getLines(MouseMode::zoomOut, {120, 101}).size(), 4u);
    EXPECT_EQ(getLines(MouseMode::zoomOut, {102, 102}).size(), 8u);
    EXPECT_EQ(getLine(1, 0), (PixelLine{{100, 100}, {150, 100}}));
    EXPECT_EQ(getLine(3, 0), (PixelLine{{100, plot.top}, {150, plot.top}}));
    EXPECT_EQ(getLine(3, 2), (PixelLine{{150, plot.bottom}, {100, plot.bottom}}));
    EXPECT_EQ(getLine(4, 0), (PixelLine{{plot.left, 100}, {plot.right, 100}}));
    EXPECT_EQ(getLine(2, 4), (PixelLine{{100, 100}, {plot.left, plot.top}}));
}

// Rounding in the way from pixels to values would cost a tick, on a logarithmic axis a decade.
TEST(Zooming, InOneDirectionLeavesTheOtherAsItIs)
{
    std::mt19937 random(7);
    const auto draw = [&random](double lo, double hi)
    { return std::uniform_real_distribution<double>(lo, hi)(random); };
    for (int i = 0; i < 5'000; ++i)
    {
        CFakeHost host;
        CChartModel& model = host.chart.GetModel();
        CChartInteraction& mouse = host.chart.GetInteraction();
        const bool logarithmic = i % 2 == 1;
        if (logarithmic)
        {
            model.ForEachAxis([](CAxis& axis, const IScale&, Direction) { axis.lowerLimit = 1e-300; });
        }
        const double around = logarithmic ? 0.0 : draw(-1e4, 1e4);
        const auto drawValue = [&] { return around + std::pow(10.0, draw(-9.0, 9.0)); };
        CChartCurve curve = MakeCurve({{drawValue(), drawValue()}, {drawValue(), drawValue()}});
        host.chart.AddCurve(curve, 0, 1);
        model.SetScaleMode(logarithmic, logarithmic);
        host.chart.RecomputeLayout();
        const bool horizontally = i % 4 < 2;
        const CAxis& other = *model.FindAxis(horizontally ? 1 : 0);
        const CAxis before = other;
        const PixelRect& plot = model.frame.plot;
        const int length = plot.GetLength(horizontally ? Direction::Vertical : Direction::Horizontal);
        (void)mouse.SetMode(horizontally ? MouseMode::zoomInHorizontally : MouseMode::zoomInVertically);
        (void)mouse.OnButtonDown({plot.left + 30, plot.top + 30});
        (void)mouse.OnButtonUp({static_cast<int>(draw(plot.left + 40, plot.right)), plot.bottom - 40});
        EXPECT_EQ(other.requestedMin, before.visibleMin) << i;
        EXPECT_EQ(other.requestedMax, before.visibleMax) << i;
        host.chart.RecomputeLayout();
        if (plot.GetLength(horizontally ? Direction::Vertical : Direction::Horizontal) == length)
        {
            EXPECT_EQ(other.visibleMin, before.visibleMin) << i << ": " << Describe(before);
            EXPECT_EQ(other.visibleMax, before.visibleMax) << i << ": " << Describe(before);
        }
    }
}

TEST_F(Mouse, ViewsCanBeGoneBackTo)
{
    CViewHistory history;
    EXPECT_FALSE(history.CanGoBack());
    history.Begin(model);
    std::vector<std::string> views;
    for (int i = 0; i < 3; ++i)
    {
        views.push_back(Describe(horizontal) + Describe(vertical));
        Drag({Plot().left + 30, Plot().top + 30}, {Plot().right - 50, Plot().bottom - 20});
        history.Note(model);
        history.Note(model); // nothing new
    }
    for (; history.CanGoBack(); views.pop_back())
    {
        history.GoBack(model);
        chart.RecomputeLayout();
        ASSERT_FALSE(views.empty());
        EXPECT_EQ(Describe(horizontal) + Describe(vertical), views.back());
    }
    EXPECT_TRUE(views.empty());
    history.GoBack(model); // is where it began
    for (int i = 0; i < 1'000; ++i)
    {
        horizontal.requestedMin = i;
        history.Note(model);
    }
    history.GoBack(model);
    EXPECT_EQ(horizontal.requestedMin, 998.0);
    model.AddAxis(7, true); // asks for nothing in the former views
    history.GoBack(model);
    EXPECT_EQ(horizontal.requestedMin, 997.0);
}

TEST_F(Mouse, AReleasedPanRunsOnToTheNextTickIn180Milliseconds)
{
    const int tick = GetTickPixels(horizontal);
    (void)mouse.SetMode(MouseMode::pan);
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
