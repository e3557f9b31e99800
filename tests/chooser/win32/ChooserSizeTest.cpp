#include "framework/DrawingScopes.h"
#include "framework/Profile.h"
#include "tests/FindImport.h"
#include "tests/chooser/win32/CChooserFixture.h"

namespace
{
class ChooserSize : public CChooserFixture
{
protected:
    void SetUp() override
    {
        Choose({[] { templateHeight = Place(ML_CHART).bottom - Place(ML_CHART).top; }});
    }

    void ExpectChartInWorkArea()
    {
        ASSERT_TRUE(IsItemChecked(Dialog(), ML_CHECK_SHOW_GRAPHICALLY));
        EXPECT_TRUE(IsWindowVisible(Item(ML_CHART)));
        EXPECT_GE(2 * (Place(ML_CHART).bottom - Place(ML_CHART).top), templateHeight);
        ExpectNoOverlap();
        RECT window{};
        GetWindowRect(Dialog(), &window);
        RECT work{};
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
        if (IsZoomed(Dialog()) == FALSE)
        {
            UnionRect(&window, &window, &work);
            EXPECT_TRUE(EqualRect(&window, &work));
        }
    }

    void ExpectTogglingTwiceRestores()
    {
        const std::vector<LONG> before = Look();
        Press(ML_CHECK_SHOW_GRAPHICALLY);
        EXPECT_GE(Place(ML_CHART).bottom - Place(ML_CHART).top, templateHeight) << "kept for later";
        Press(ML_CHECK_SHOW_GRAPHICALLY);
        EXPECT_EQ(Look(), before);
    }

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

    static inline int templateHeight = 0; // of the chart
};

// Ways on which the chart used to be lost, or the window to grow beyond the screen.
TEST_F(ChooserSize, AShownChartHasRoomAndTheWindowLiesInTheWorkArea)
{
    const auto maximise = [] { ShowWindow(Dialog(), SW_MAXIMIZE); };
    const auto restore = [] { ShowWindow(Dialog(), SW_RESTORE); };
    const auto toggle = [&] { Press(ML_CHECK_SHOW_GRAPHICALLY); };
    const std::vector<Steps> ways = {
        {toggle, maximise, toggle, restore},
        {maximise, toggle, restore, toggle},
        {[] { Resize(10, 10); }, toggle, toggle},
        {[] { Resize(10, 10); }, maximise, restore},
        {[] { Resize(800, 10'000); }, toggle, toggle},
        {maximise, toggle, toggle},
        {[] { SetWindowPos(Dialog(), nullptr, 0, GetSystemMetrics(SM_CYSCREEN) - 99, 0, 0, SWP_NOSIZE); },
         toggle, toggle},
    };
    for (std::size_t way = 0; way < ways.size(); ++way)
    {
        SCOPED_TRACE("way " + std::to_string(way));
        Steps steps = ways[way];
        steps.emplace_back([&] { ExpectChartInWorkArea(); });
        steps.emplace_back([&] { ExpectTogglingTwiceRestores(); });
        Choose(steps);
    }
    Choose({[] { Resize(10, 10); }});
    Choose({[&] { ExpectChartInWorkArea(); }, [&] { ExpectTogglingTwiceRestores(); }});
}

SIZE monitorSize;

BOOL WINAPI GetSmallMonitor(HMONITOR, MONITORINFO* monitor)
{
    monitor->rcMonitor = monitor->rcWork = {0, 0, monitorSize.cx, monitorSize.cy};
    return TRUE;
}

// How wide a label or a button is to be for its text.
LONG MeasureCaption(HWND item)
{
    wchar_t name[20] = {};
    GetClassNameW(item, name, static_cast<int>(std::size(name)));
    if (name != std::wstring(L"Static") && name != std::wstring(L"Button"))
    {
        return 0;
    }
    wchar_t text[100] = {};
    const int length = GetWindowTextW(item, text, static_cast<int>(std::size(text)));
    const CClientDC context(item);
    const CSelectScope font(context.Get(), reinterpret_cast<HFONT>(SendMessageW(item, WM_GETFONT, 0, 0)));
    SIZE extent{};
    GetTextExtentPoint32W(context.Get(), text, length, &extent);
    const bool isBox = GetDlgCtrlID(item) == ML_CHECK_SHOW_GRAPHICALLY;
    return extent.cx + (isBox ? GetSystemMetrics(SM_CXMENUCHECK) : 0);
}

// Every visible control has room for its text, lies in the window and meets no other.
void ExpectControlsApart(HWND dialog)
{
    RECT client{};
    GetClientRect(dialog, &client);
    std::vector<RECT> others;
    for (HWND item = GetWindow(dialog, GW_CHILD); item != nullptr; item = GetWindow(item, GW_HWNDNEXT))
    {
        const int control = GetDlgCtrlID(item);
        const RECT rect = GetItemRect(dialog, control);
        if (IsWindowVisible(item) != FALSE)
        {
            EXPECT_LE(MeasureCaption(item), rect.right - rect.left) << control;
            EXPECT_TRUE(rect.left >= 0 && rect.right <= client.right) << control;
            EXPECT_TRUE(rect.top >= 0 && rect.bottom <= client.bottom) << control;
            for (const RECT& other : others)
            {
                RECT common{};
                EXPECT_FALSE(IntersectRect(&common, &rect, &other)) << control;
            }
            others.push_back(rect);
        }
    }
}

// The last but one is a screen of 1600 x 1200 pixels at 300 per cent. All this at any scale.
TEST_F(ChooserSize, OnASmallScreenEveryControlIsWithinReach)
{
    void** const import = FindImport(GetModuleHandleW(nullptr), "user32", "GetMonitorInfoW");
    void* const original = std::exchange(*import, reinterpret_cast<void*>(GetSmallMonitor));
    for (const SIZE size : {SIZE{740, 560}, {640, 460}, {533, 400}, {400, 500}})
    {
        const int scale = static_cast<int>(GetDpiForSystem());
        monitorSize = {MulDiv(size.cx, scale, 96), MulDiv(size.cy, scale, 96)};
        for (const int kind : {MLMATERIAL_DIELECTRIC, MLMATERIAL_METAL})
        {
            SCOPED_TRACE(std::to_string(size.cx) + " wide, kind " + std::to_string(kind));
            const auto look = [&]
            {
                EXPECT_EQ(WindowSize().cx, monitorSize.cx);
                EXPECT_LE(WindowSize().cy, monitorSize.cy);
                EXPECT_GE(2 * (Place(ML_CHART).bottom - Place(ML_CHART).top), templateHeight);
                EXPECT_GE(Place(ML_EDIT_ASSIGNED).right - Place(ML_EDIT_ASSIGNED).left,
                          MulDiv(120, scale, 96));
                EXPECT_GE(Place(ML_GRID).bottom - Place(ML_GRID).top, MulDiv(60, scale, 96));
                ExpectControlsApart(Dialog());
            };
            const auto toggle = [&] { Press(ML_CHECK_SHOW_GRAPHICALLY); };
            Choose({look, toggle, [&] { ExpectControlsApart(Dialog()); }, toggle, look}, kind);
        }
    }
    monitorSize = {4000, 4000};
    Choose({[&]
            {
                ExpectControlsApart(Dialog());
                for (const int control : {ML_COMBO_TYPE, ML_COMBO_TECHNOLOGY, ML_COMBO_UNITS})
                {
                    EXPECT_EQ(Place(control).top, Place(ML_EDIT_THICKNESS_MINIMUM).top);
                    EXPECT_EQ(Place(control).bottom, Place(ML_EDIT_THICKNESS_MINIMUM).bottom);
                }
            }});
    *import = original;
}

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
