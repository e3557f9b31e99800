#include "chooser/CChartPaneState.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace
{
// The chooser's window without its controls: what its user, its host and the system do to it.
class CWindowModel
{
public:
    CWindowModel(int dpi, WindowFrame work)
        : least(396 * dpi / 96), chart(172 * dpi / 96), grid(224 * dpi / 96), workArea(work)
    {
        workArea.height = std::max(workArea.height, least);
        frame = {0, 0, 700, least + chart};
        pane = CChartPaneState({chart, least, grid});
    }

    // Where it was left, with the box and the bar as they were left.
    void Open(const CWindowModel& left)
    {
        if (!left.shown)
        {
            Toggle();
        }
        pane.SetGridHeight(left.pane.GetGridHeight() * grid / left.grid);
        frame = left.frame;
        frame.height = std::max(frame.height, least);
        frame = pane.Open(frame, workArea);
        Settle();
    }

    void Toggle()
    {
        shown = !shown;
        frame = shown ? pane.Show(frame, workArea) : pane.Hide(frame, workArea);
        frame.height = std::max(frame.height, least);
        Settle();
    }

    // By hand, within the work area.
    void Drag(int top, int height)
    {
        frame.top = std::clamp(top, workArea.top, workArea.top + workArea.height - least);
        frame.height = std::clamp(height, least, workArea.top + workArea.height - frame.top);
        maximised = false;
        dragged = true;
        pane.Resize(frame.height, ResizedBy::User);
    }

    void MoveBar(int chartHeight)
    {
        if (shown)
        {
            pane.MoveBar(GetHeight(), chartHeight);
            dragged = false;
        }
    }

    void Maximise(bool on)
    {
        if (maximised != on)
        {
            maximised = on;
            Settle();
        }
    }

    void ExpectInOrder() const
    {
        const int height = GetHeight();
        const int chartHeight = pane.GetChartHeight(height);
        EXPECT_TRUE(dragged || !shown || 2 * chartHeight >= chart) << chartHeight;
        EXPECT_TRUE(shown || chartHeight == 0);
        EXPECT_LT(chartHeight, height - least / 2) << "something is left for the grid";
        EXPECT_GE(pane.GetHiddenHeight(), chart);
        EXPECT_GE(height, least);
        EXPECT_EQ(frame, MoveIntoWorkArea(frame, workArea));
        EXPECT_LE(frame.height, workArea.height);
    }

    void ExpectTogglingTwiceRestores()
    {
        const WindowFrame before = frame;
        const int chartBefore = pane.GetChartHeight(GetHeight());
        const bool anyChart = shown && 2 * pane.GetChartHeight(frame.height) < chart;
        Toggle();
        ExpectInOrder();
        Toggle();
        ExpectInOrder();
        if (!anyChart) // or the chart has got its room back
        {
            EXPECT_EQ(frame, before);
            EXPECT_EQ(pane.GetChartHeight(GetHeight()), chartBefore);
        }
    }

private:
    [[nodiscard]] int GetHeight() const { return maximised ? workArea.height : frame.height; }
    void Settle()
    {
        dragged = false;
        pane.Resize(GetHeight(), ResizedBy::System);
    }

    int least;
    int chart;
    int grid;
    WindowFrame workArea;
    WindowFrame frame;
    CChartPaneState pane;
    bool shown = true;
    bool maximised = false;
    bool dragged = false;
};

TEST(ChartPaneState, AShownChartHasRoomAfterTenThousandActs)
{
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto pick = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    const auto makeWindow = [&]
    {
        constexpr int scales[] = {96, 120, 144, 192, 288};
        return CWindowModel(scales[pick(5)], {0, pick(2) * 30, 1920, 600 + pick(1500)});
    };
    CWindowModel window = makeWindow();
    window.Open(makeWindow());
    for (int act = 0; act < 10'000 && !testing::Test::HasFailure(); ++act)
    {
        switch (pick(7))
        {
        case 0:
        {
            const CWindowModel closed = window;
            window = makeWindow();
            window.Open(closed);
            break;
        }
        case 1:
            window.Drag(pick(1500), pick(2000));
            break;
        case 5:
            window.MoveBar(pick(2000) - 200);
            break;
        case 2:
            window.Maximise(true);
            break;
        case 3:
            window.Maximise(false);
            break;
        case 4:
            window.ExpectTogglingTwiceRestores();
            break;
        default:
            window.Toggle();
            break;
        }
        SCOPED_TRACE(act);
        window.ExpectInOrder();
    }
}

TEST(ChartPaneState, AChartGivesWayToWhoDragsAndComesBack)
{
    CChartPaneState pane({172, 396, 224});
    pane.Resize(450, ResizedBy::User);
    EXPECT_EQ(pane.GetChartHeight(450), 54);
    EXPECT_EQ(pane.GetLayout(396), ChooserLayout::WithoutChart);
    EXPECT_EQ(pane.GetChartHeight(700), 304) << "the grid stays as it was";
    const WindowFrame screen = {0, 0, 1000, 700};
    pane.Resize(396, ResizedBy::User);
    EXPECT_EQ(pane.Hide({0, 300, 500, 396}, screen).height, 396);
    EXPECT_EQ(pane.Show({0, 300, 500, 396}, screen), (WindowFrame{0, 132, 500, 568}));
    EXPECT_EQ(pane.Hide({5, 100, 500, 568}, screen), (WindowFrame{5, 100, 500, 396})) << "moved meanwhile";
}

TEST(ChartPaneState, ABarStandsWhereItWasPutWhereverThereIsRoom)
{
    const WindowFrame screen = {0, 0, 1000, 1000};
    const WindowFrame normal = {0, 0, 500, 568};
    CChartPaneState pane({172, 396, 224});
    pane.MoveBar(568, -5);
    EXPECT_EQ(pane.GetChartHeight(568), 129) << "three quarters of its height";
    pane.MoveBar(568, 999);
    EXPECT_EQ(pane.GetGridHeight(), 75) << "a third of its height";
    EXPECT_EQ(pane.GetChartHeight(396), 149) << "of the least window";
    pane.Resize(1000, ResizedBy::System);
    pane.MoveBar(1000, 172);
    const auto restoreAndMaximise = [&]
    {
        pane.Resize(568, ResizedBy::System);
        EXPECT_EQ(pane.GetChartHeight(568), 172);
        pane.Resize(1000, ResizedBy::System);
        EXPECT_EQ(pane.GetChartHeight(1000), 172);
    };
    restoreAndMaximise();
    EXPECT_EQ(pane.Hide(normal, screen).height, 396) << "maximised";
    EXPECT_EQ(pane.Show({0, 0, 500, 396}, screen), normal);
    restoreAndMaximise();
    pane.Resize(568, ResizedBy::System);
    pane.Resize(570, ResizedBy::User);
    pane.Resize(1000, ResizedBy::System);
    EXPECT_EQ(pane.GetGridHeight(), 224) << "as its user left it";
}

// A screen of 1200 pixels at three times the usual scale.
TEST(ChartPaneState, WithLittleRoomTheGridGivesWayFirst)
{
    CChartPaneState pane({516, 1188, 672});
    EXPECT_EQ(pane.Open({0, 0, 2000, 1704}, {0, 0, 1600, 1200}).height, 1200);
    EXPECT_EQ(pane.GetGridHeight(), 672);
    EXPECT_EQ(pane.GetChartHeight(1200), 387) << "three quarters of its height";
    pane.Resize(1400, ResizedBy::System);
    EXPECT_EQ(pane.GetChartHeight(1400), 516) << "beside more than half of the grid";
    pane.Resize(1050, ResizedBy::System);
    EXPECT_EQ(pane.GetChartHeight(1050), 310) << "beside a third of the grid";
    pane.Resize(800, ResizedBy::System);
    EXPECT_EQ(pane.GetChartHeight(800), 258) << "half its height";
}

TEST(ChartPaneState, OpensWithRoomForTheChartThatIsShown)
{
    const WindowFrame screen = {0, 0, 1000, 700};
    CChartPaneState shown({172, 396, 224});
    EXPECT_EQ(shown.Open({9, 300, 500, 420}, screen), (WindowFrame{9, 132, 500, 568}));
    EXPECT_EQ(shown.Open({9, 9, 500, 500}, screen), (WindowFrame{9, 9, 500, 500})) << "has more than half";
    EXPECT_EQ(shown.Open({9, 9, 500, 482}, screen), (WindowFrame{9, 9, 500, 482})) << "has just half";
    EXPECT_EQ(shown.Open({9, 9, 5000, 900}, screen), screen);
    CChartPaneState hidden({172, 396, 224});
    static_cast<void>(hidden.Hide({9, 9, 500, 568}, screen));
    EXPECT_EQ(hidden.Open({9, 9, 500, 396}, screen), (WindowFrame{9, 9, 500, 396}));
}
} // namespace
