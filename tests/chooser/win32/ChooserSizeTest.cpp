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
        ExpectNoOverlap();
        Resize(10, 10);
        ExpectNoOverlap();
        EXPECT_EQ(WindowSize().cx, shown.window.cx) << "the first width is the least";
        Resize(shown.window.cx, shown.window.cy - chartHeight);
        for (int i = 0; i < 51; ++i)
        {
            Press(ML_CHECK_SHOW_GRAPHICALLY);
        }
        EXPECT_TRUE(Look() == shown) << "after fifty times";
        for (int i = 1; i <= 50; ++i)
        {
            Resize(shown.window.cx + 7 * i, shown.window.cy + 3 * i);
        }
        Resize(shown.window.cx, shown.window.cy);
        EXPECT_TRUE(Look() == shown) << "larger and back";
    };
    Choose({toggle});
}

TEST_F(ChooserSize, OpensAsItWasLeft)
{
    SIZE left{};
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
                ExpectNoOverlap();
                Press(ML_CHECK_SHOW_GRAPHICALLY);
                ExpectNoOverlap();
                left = WindowSize();
            }});
    Choose({[&]
            {
                EXPECT_EQ(WindowSize().cy, left.cy);
                ExpectNoOverlap();
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
