#include "framework/Profile.h"
#include "tests/chooser/win32/CChooserFixture.h"

namespace
{
class ChooserSize : public CChooserFixture
{
protected:
    // The window's size, and where the controls are that move or stretch.
    static std::vector<LONG> Look()
    {
        std::vector<LONG> now = {WindowSize().cx, WindowSize().cy};
        for (const int control :
             {ML_GRID, ML_CHART, IDOK, IDCANCEL, ML_BUTTON_HELP, ML_BUTTON_ASSIGN, ML_EDIT_ASSIGNED})
        {
            const RECT place = Place(control);
            now.insert(now.end(), {place.left, place.top, place.right, place.bottom});
        }
        return now;
    }
};

TEST_F(ChooserSize, HidingTheChartTakesItsHeightFromTheWindow)
{
    const auto toggle = [&]
    {
        const std::vector<LONG> shown = Look();
        const SIZE size = WindowSize();
        const int chartHeight = Place(ML_CHART).bottom - Place(ML_CHART).top;
        Press(ML_CHECK_SHOW_GRAPHICALLY);
        EXPECT_FALSE(IsWindowVisible(Item(ML_CHART)));
        EXPECT_EQ(WindowSize().cy, size.cy - chartHeight);
        EXPECT_EQ(WindowSize().cx, size.cx);
        ExpectNoOverlap();
        Resize(10, 10);
        ExpectNoOverlap();
        EXPECT_EQ(WindowSize().cx, size.cx) << "the first width is the least";
        Resize(size.cx, size.cy - chartHeight);
        for (int i = 0; i < 51; ++i)
        {
            Press(ML_CHECK_SHOW_GRAPHICALLY);
        }
        EXPECT_EQ(Look(), shown) << "after fifty times";
        for (int i = 1; i <= 50; ++i)
        {
            Resize(size.cx + 7 * i, size.cy + 3 * i);
        }
        Resize(size.cx, size.cy);
        EXPECT_EQ(Look(), shown) << "larger and back";
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
                Select(4, 4);
                EXPECT_EQ(Chart().GetModel().GetCurveCount(), 0);
                Press(ML_CHECK_SHOW_GRAPHICALLY);
                EXPECT_EQ(Chart().GetModel().GetCurveCount(), 2) << "it catches up when it is shown";
                ExpectNoOverlap();
                left = WindowSize();
                Resize(10, 10); // leaves no room for the chart
                ExpectNoOverlap();
                Resize(left.cx, left.cy);
            }});
    Choose({[&]
            {
                EXPECT_EQ(WindowSize().cy, left.cy);
                ExpectNoOverlap();
            }});
}
} // namespace
