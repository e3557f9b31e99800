#include "framework/Profile.h"
#include "tests/chooser/win32/CChooserFixture.h"

namespace
{
// Where the controls are that move or stretch.
struct Arrangement
{
    SIZE window{};
    std::vector<RECT> places;

    friend bool operator==(const Arrangement& a, const Arrangement& b)
    {
        return a.window.cx == b.window.cx && a.window.cy == b.window.cy &&
               std::equal(a.places.begin(), a.places.end(), b.places.begin(), b.places.end(),
                          [](const RECT& x, const RECT& y) { return EqualRect(&x, &y) != FALSE; });
    }
};

class ChooserSize : public CChooserFixture
{
protected:
    static Arrangement Look()
    {
        Arrangement now{WindowSize(), {}};
        for (const int control :
             {ML_GRID, ML_CHART, IDOK, IDCANCEL, ML_BUTTON_HELP, ML_BUTTON_ASSIGN, ML_EDIT_ASSIGNED})
        {
            now.places.push_back(Place(control));
        }
        return now;
    }

    // The visible parts stand one below the other within the window.
    static void ExpectNoOverlap(const char* when)
    {
        const bool charted = IsWindowVisible(Item(ML_CHART)) != FALSE;
        RECT client{};
        GetClientRect(Dialog(), &client);
        EXPECT_GT(Place(ML_GRID).bottom, Place(ML_GRID).top) << when;
        if (charted)
        {
            EXPECT_LE(Place(ML_GRID).bottom, Place(ML_CHART).top) << when;
            EXPECT_LE(Place(ML_CHART).top, Place(ML_CHART).bottom) << when;
        }
        const RECT above = charted ? Place(ML_CHART) : Place(ML_GRID);
        EXPECT_LE(above.bottom, Place(IDOK).top) << when;
        EXPECT_LE(Place(IDOK).bottom, client.bottom) << when;
        EXPECT_LE(Place(ML_BUTTON_HELP).right, client.right) << when;
        EXPECT_EQ(Place(IDOK).top, Place(ML_BUTTON_ASSIGN).top) << when;
        EXPECT_LE(Place(ML_EDIT_ASSIGNED).right, Place(IDOK).left) << when;
    }
};

TEST_F(ChooserSize, HidingTheChartTakesItsHeightFromTheWindow)
{
    const auto toggle = [&]
    {
        const Arrangement shown = Look();
        const int chartHeight = Place(ML_CHART).bottom - Place(ML_CHART).top;
        Press(ML_CHECK_SHOW_GRAPHICALLY);
        EXPECT_FALSE(IsWindowVisible(Item(ML_CHART)));
        EXPECT_EQ(WindowSize().cy, shown.window.cy - chartHeight);
        EXPECT_EQ(WindowSize().cx, shown.window.cx);
        ExpectNoOverlap("hidden");
        for (int i = 0; i < 51; ++i)
        {
            Press(ML_CHECK_SHOW_GRAPHICALLY);
        }
        EXPECT_TRUE(Look() == shown) << "after fifty times";
    };
    Choose({toggle});
}

TEST_F(ChooserSize, NothingOverlapsAtAnySizeInEitherState)
{
    const auto resize = [&]
    {
        const Arrangement first = Look();
        const auto [width, height] = WindowSize();
        for (const int smaller : {1, 40, 1000})
        {
            Resize(width - smaller, height - smaller);
            ExpectNoOverlap("smaller");
        }
        EXPECT_EQ(WindowSize().cx, width) << "the first width is the least";
        Press(ML_CHECK_SHOW_GRAPHICALLY);
        ExpectNoOverlap("smallest, hidden");
        Resize(width + 300, height + 400);
        ExpectNoOverlap("large, hidden");
        Press(ML_CHECK_SHOW_GRAPHICALLY);
        ExpectNoOverlap("large, shown");
        Resize(width, height - 60);
        ExpectNoOverlap("lower than before the chart was shown");
        Press(ML_CHECK_SHOW_GRAPHICALLY);
        ExpectNoOverlap("small again, hidden");
        Press(ML_CHECK_SHOW_GRAPHICALLY);
        Resize(width, height + 500);
        ExpectNoOverlap("high, shown");
        ShowWindow(Dialog(), SW_MAXIMIZE);
        ExpectNoOverlap("maximised, shown");
        Press(ML_CHECK_SHOW_GRAPHICALLY);
        ExpectNoOverlap("maximised, hidden");
        Press(ML_CHECK_SHOW_GRAPHICALLY);
        ExpectNoOverlap("maximised, shown again");
        ShowWindow(Dialog(), SW_RESTORE);
        ExpectNoOverlap("restored");
    };
    Choose({resize});
}

TEST_F(ChooserSize, ResizingBackAndForthReturnsEveryControl)
{
    const auto resize = [&]
    {
        const Arrangement first = Look();
        for (int i = 1; i <= 100; ++i)
        {
            Resize(first.window.cx + 7 * i, first.window.cy + 3 * i);
        }
        Resize(first.window.cx, first.window.cy);
        EXPECT_TRUE(Look() == first);
    };
    Choose({resize});
}

TEST_F(ChooserSize, OpensAsItWasLeft)
{
    SIZE left{};
    RECT chart{};
    Choose({[&]
            {
                Press(ML_CHECK_SHOW_GRAPHICALLY);
                Resize(WindowSize().cx + 111, WindowSize().cy + 77);
                left = WindowSize();
            }});
    EXPECT_EQ(ReadProfileInteger("SelectMaterial", "ShowChart", 1), 0);
    Choose({[&]
            {
                EXPECT_FALSE(IsItemChecked(Dialog(), ML_CHECK_SHOW_GRAPHICALLY));
                EXPECT_FALSE(IsWindowVisible(Item(ML_CHART)));
                EXPECT_EQ(WindowSize().cx, left.cx);
                EXPECT_EQ(WindowSize().cy, left.cy);
                ExpectNoOverlap("reopened, hidden");
                Press(ML_CHECK_SHOW_GRAPHICALLY);
                ExpectNoOverlap("reopened, shown");
                left = WindowSize();
                chart = Place(ML_CHART);
            }});
    Choose({[&]
            {
                EXPECT_EQ(WindowSize().cy, left.cy);
                ExpectNoOverlap("reopened, shown");
            }});
}

TEST_F(ChooserSize, AHiddenChartCatchesUpWhenItIsShown)
{
    const auto selectHidden = [&]
    {
        Press(ML_CHECK_SHOW_GRAPHICALLY);
        Select(4, 4);
        EXPECT_EQ(Chart().GetModel().GetCurveCount(), 0);
        Press(ML_CHECK_SHOW_GRAPHICALLY);
        EXPECT_EQ(Chart().GetModel().GetCurveCount(), 2);
    };
    Choose({selectHidden});
}
} // namespace
