// The bar between the list and the chart.
#include "framework/Profile.h"
#include "tests/chooser/win32/CChooserFixture.h"

namespace
{
class ChooserBar : public CChooserFixture
{
protected:
    [[nodiscard]] static int Height(int control) { return Place(control).bottom - Place(control).top; }

    static void PressKey(WPARAM key)
    {
        if ((SendMessageW(GetFocus(), WM_GETDLGCODE, key, 0) & (DLGC_WANTARROWS | DLGC_WANTMESSAGE)) != 0)
        {
            SendMessageW(GetFocus(), WM_KEYDOWN, key, 0);
        }
    }
};

TEST_F(ChooserBar, IsDraggedWithinItsLimitsAndEscapeTakesADragBack)
{
    const auto drag = [&]
    {
        const int list = Height(ML_GRID);
        const int chart = Height(ML_CHART);
        SetFocus(Item(ML_EDIT_THICKNESS_MINIMUM));
        DragBar(40);
        EXPECT_EQ(Height(ML_GRID), list + 40);
        EXPECT_EQ(Height(ML_CHART), chart - 40);
        EXPECT_EQ(GetFocus(), Item(ML_EDIT_THICKNESS_MINIMUM));
        EXPECT_EQ(GetCapture(), nullptr);
        DragBar(-100, false);
        EXPECT_EQ(Height(ML_GRID), list + 40) << "taken back";
        DragBar(600);
        EXPECT_EQ(Height(ML_CHART), (3 * chart + 3) / 4);
        SendMessageW(Item(ML_DIVIDER), WM_MOUSEMOVE, 0, MAKELPARAM(40, -20));
        EXPECT_EQ(Height(ML_CHART), (3 * chart + 3) / 4) << "without the button";
        DragBar(-600);
        EXPECT_EQ(Height(ML_GRID), (list + 2) / 3);
        ExpectNoOverlap();
        Resize(WindowSize().cx, WindowSize().cy + 90);
        EXPECT_EQ(Height(ML_GRID), (list + 2) / 3) << "the chart takes it";
    };
    Choose({drag});
}

TEST_F(ChooserBar, ATextThatWillNotDoKeepsTheFocusAndTheBar)
{
    const auto drag = [&]
    {
        const int list = Height(ML_GRID);
        SetFocus(Item(ML_EDIT_THICKNESS_MINIMUM));
        SetItemText(Dialog(), ML_EDIT_THICKNESS_MINIMUM, "none");
        DragBar(40);
        EXPECT_EQ(messages.boxes.size(), 1U);
        EXPECT_EQ(Height(ML_GRID), list);
        EXPECT_EQ(GetFocus(), Item(ML_EDIT_THICKNESS_MINIMUM));
        SetItemText(Dialog(), ML_EDIT_THICKNESS_MINIMUM, "0");
    };
    Choose({drag});
}

TEST_F(ChooserBar, MovesByKeysFromTheChartsMenu)
{
    const auto move = [&]
    {
        const int list = Height(ML_GRID);
        SetFocus(Item(ML_BUTTON_ASSIGN));
        const auto takeBar = [] { MaterialChart().Execute(ChartCommand::MoveBar); };
        takeBar();
        EXPECT_EQ(GetFocus(), Item(ML_DIVIDER));
        PressKey(VK_END);
        const int largest = Height(ML_GRID);
        EXPECT_GT(largest, list);
        PressKey(VK_DOWN);
        PressKey(VK_UP);
        const int up = Height(ML_GRID);
        EXPECT_LT(up, largest) << "a key beyond the end counts for nothing";
        PressKey(VK_RETURN);
        EXPECT_EQ(GetFocus(), Item(ML_BUTTON_ASSIGN));
        takeBar();
        PressKey(VK_HOME);
        PressKey(VK_NEXT);
        ShowWindow(Dialog(), SW_MAXIMIZE);
        PressKey(VK_PRIOR);
        PressKey(VK_ESCAPE);
        EXPECT_EQ(GetFocus(), Item(ML_BUTTON_ASSIGN));
        ShowWindow(Dialog(), SW_RESTORE);
        takeBar();
        const int before = Height(ML_GRID);
        PressKey(VK_HOME);
        EXPECT_NE(Height(ML_GRID), before);
        PressKey(VK_ESCAPE);
        EXPECT_EQ(Height(ML_GRID), before);
        ExpectNoOverlap();
    };
    Choose({move});
}

TEST_F(ChooserBar, StandsWhereItWasLeft)
{
    int list = 0;
    int window = 0;
    Choose({[&]
            {
                Resize(WindowSize().cx, WindowSize().cy + 80);
                DragBar(60);
                list = Height(ML_GRID);
                window = WindowSize().cy;
            }});
    const auto expectAsLeft = [&]
    {
        EXPECT_EQ(Height(ML_GRID), list);
        EXPECT_EQ(WindowSize().cy, window);
        ExpectNoOverlap();
    };
    const auto toggle = [&] { Press(ML_CHECK_SHOW_GRAPHICALLY); };
    Choose({expectAsLeft, [] { ShowWindow(Dialog(), SW_MAXIMIZE); },
            [&] { EXPECT_EQ(Height(ML_GRID), list); }, toggle, toggle,
            [] { ShowWindow(Dialog(), SW_RESTORE); }, expectAsLeft, toggle});
    EXPECT_EQ(ReadProfileInteger("SelectMaterial", "ShowChart", 1), 0);
    const auto expectList = [&] { EXPECT_EQ(Height(ML_GRID), list); };
    Choose({expectList, toggle, expectList});
    const std::string kept = ReadProfileString("CChooseMaterialDlg", "GridHeight", "");
    EXPECT_EQ(kept, std::to_string(list) + ",224") << "the second is the scale";
    for (const char* const value : {"150,112", "-2000000000,1", "x", "300,0", "2000000000,224"})
    {
        StoreProfileString("CChooseMaterialDlg", "GridHeight", value);
        Choose({[&]
                {
                    EXPECT_EQ(Height(ML_GRID) == 300, value == std::string("150,112")) << value;
                    EXPECT_GE(Height(ML_CHART), 172 / 2);
                    ExpectNoOverlap();
                }});
    }
}
} // namespace
