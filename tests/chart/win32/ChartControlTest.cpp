#include "chart/CChartControlWrapper.h"
#include "chart/win32/CChartControl.h"
#include "framework/ModuleResources.h"
#include "resources/CursorIds.h"
#include "tests/CPixels.h"
#include "tests/CountHandles.h"
#include "tests/FindImport.h"
#include "tests/chart/MakeChart.h"

#include <functional>
#include <gmock/gmock.h>

namespace
{
int copies = 0; // of pixels
decltype(&BitBlt) originalBitBlt = nullptr;

BOOL WINAPI CountedBitBlt(HDC target, int x, int y, int width, int height, HDC source, int fromX, int fromY,
                          DWORD operation)
{
    ++copies;
    return originalBitBlt(target, x, y, width, height, source, fromX, fromY, operation);
}

// The window around a chart.
class CParent final : public CWnd
{
public:
    int zoomChanges = 0;
    std::function<void()> onZoomChanged;

protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == chartZoomChangedMessage)
        {
            EXPECT_EQ(wParam, 0U);
            EXPECT_EQ(lParam, 0);
            ++zoomChanges;
            if (onZoomChanged)
            {
                onZoomChanged();
            }
        }
        return CWnd::HandleMessage(message, wParam, lParam);
    }
};

// A chart of a laminate in a window of 500 x 300 pixels.
struct ChartWindow
{
    LaminateCurves laminate;
    CWindowHandle frame;
    CParent parent;
    CSimpleChartControl chart;

    explicit ChartWindow(std::int32_t mode = MouseMode::zoomIn)
    {
        RegisterPlainWindowClass(L"Chart test");
        CChartControl::RegisterWindowClass();
        PlainWindowSettings outer{.className = L"Chart test", .style = WS_POPUP | WS_VISIBLE};
        outer.left = outer.top = 0;
        outer.width = 600;
        outer.height = 400;
        frame.reset(CreatePlainWindow(outer));
        EXPECT_TRUE(parent.Attach(frame.get()));
        PlainWindowSettings inner{.className = CChartControl::windowClassName,
                                  .style = WS_CHILD | WS_VISIBLE};
        inner.left = inner.top = 20;
        inner.width = 500;
        inner.height = 300;
        inner.parent = frame.get();
        inner.identifier = 1029;
        EXPECT_NE(CreatePlainWindow(inner), nullptr);
        EXPECT_TRUE(chart.AttachDlgItem(1029, frame.get()));
        laminate.AddTo(chart.GetChart().GetModel(), 2, false);
        chart.SetMouseMode(mode);
        chart.RecomputeLayout();
        UpdateWindow(chart.GetHandle());
    }

    LRESULT Send(UINT message, PixelPoint point)
    {
        return SendMessageW(chart.GetHandle(), message, 0, MAKELPARAM(point.x, point.y));
    }

    void Drag(std::initializer_list<PixelPoint> points)
    {
        Send(WM_LBUTTONDOWN, *points.begin());
        for (const PixelPoint& point : points)
        {
            Send(WM_MOUSEMOVE, point);
        }
        Send(WM_LBUTTONUP, *(points.end() - 1));
    }

    [[nodiscard]] std::vector<std::uint32_t> Read() const { return ReadWindow(chart.GetHandle()); }
};

TEST(ChartControl, PaintsWithOneCopyAndNeverErases)
{
    ChartWindow window;
    const auto picture = window.Read();
    EXPECT_THAT(picture, testing::Contains(0xFF0000U)) << "the first curve";
    EXPECT_THAT(picture, testing::Contains(0xFFFF00U)) << "the second curve";
    void** const import = FindImport(GetModuleHandleW(nullptr), "gdi32", "BitBlt");
    originalBitBlt = reinterpret_cast<decltype(&BitBlt)>(*import);
    *import = reinterpret_cast<void*>(CountedBitBlt);
    window.chart.Invalidate();
    EXPECT_EQ(copies, 0);
    UpdateWindow(window.chart.GetHandle());
    EXPECT_EQ(copies, 1);
    *import = reinterpret_cast<void*>(originalBitBlt);
    EXPECT_EQ(window.Read(), picture);
    EXPECT_EQ(SendMessageW(window.chart.GetHandle(), WM_ERASEBKGND, 0, 0), TRUE);
    EXPECT_NE(SendMessageW(window.chart.GetHandle(), WM_CTLCOLORSTATIC, 0, 0), 0);
    window.chart.GetChart().GetStyle().background = 0x302010;
    window.chart.RemoveCurves();
    window.chart.GetChart().GetModel().GetLegend().clear();
    window.chart.Invalidate();
    EXPECT_EQ(window.Read(), picture) << "not before it is painted";
    UpdateWindow(window.chart.GetHandle());
    EXPECT_EQ(window.Read().front(), 0x102030U);
}

TEST(ChartControl, DragFeedbackErasesItselfToThePixel)
{
    for (const int mode :
         {MouseMode::zoomIn, MouseMode::zoomOut, MouseMode::zoomInHorizontally, MouseMode::zoomInVertically})
    {
        SCOPED_TRACE(mode);
        ChartWindow window(mode);
        window.Send(WM_MOUSEMOVE, {151, 101});
        UpdateWindow(window.chart.GetHandle());
        const auto before = window.Read();
        window.Send(WM_LBUTTONDOWN, {150, 100});
        EXPECT_EQ(GetCapture(), window.chart.GetHandle());
        for (const PixelPoint point : {PixelPoint{151, 101}, {300, 210}, {-40, 500}, {151, 101}})
        {
            window.Send(WM_MOUSEMOVE, point);
            EXPECT_NE(window.Read(), before);
            window.chart.Invalidate(); // a paint in the middle
            UpdateWindow(window.chart.GetHandle());
        }
        window.Send(WM_LBUTTONUP, {151, 101}); // too short to zoom
        EXPECT_EQ(window.Read(), before);
        EXPECT_EQ(GetCapture(), nullptr);
        window.Send(WM_LBUTTONDOWN, {150, 100});
        window.Send(WM_MOUSEMOVE, {300, 210});
        window.chart.SetMouseMode(0);
        EXPECT_EQ(GetCapture(), nullptr);
        window.Send(WM_LBUTTONUP, {300, 210});
        window.Send(WM_MOUSEMOVE, {151, 101});
        UpdateWindow(window.chart.GetHandle());
        EXPECT_EQ(window.Read(), before);
        EXPECT_EQ(window.parent.zoomChanges, 0);
    }
}

TEST(ChartControl, TellsItsParent)
{
    ChartWindow window;
    window.Drag({{150, 60}, {200, 90}, {300, 150}});
    EXPECT_EQ(window.parent.zoomChanges, 1);
    window.Send(WM_LBUTTONDBLCLK, {200, 100});
    EXPECT_EQ(window.parent.zoomChanges, 2);
    window.chart.SetMouseMode(MouseMode::pan);
    window.Drag({{150, 60}, {155, 60}, {170, 70}});
    EXPECT_EQ(window.parent.zoomChanges, 5) << "at every move";
    CChartControlWrapper wrapper(&window.chart.GetChart());
    wrapper.SetRequestedRange({0, 4}, {100, 5});
    EXPECT_EQ(window.parent.zoomChanges, 5);
    EXPECT_NE(GetUpdateRect(window.chart.GetHandle(), nullptr, FALSE), FALSE);
}

TEST(ChartControl, ShowsTheCursorOfItsMode)
{
    ChartWindow window;
    const auto expectCursor = [&](int mode, HCURSOR cursor)
    {
        window.chart.SetMouseMode(mode);
        window.Send(WM_MOUSEMOVE, {10, 10});
        EXPECT_TRUE(cursor != nullptr && GetCursor() == cursor) << mode;
    };
    const auto load = [](int id) { return LoadCursorW(GetModuleInstance(), MAKEINTRESOURCEW(id)); };
    expectCursor(MouseMode::zoomIn, load(IDC_CHART_ZOOM));
    expectCursor(MouseMode::pan, load(IDC_CHART_PAN));
    expectCursor(MouseMode::pickCurve, load(IDC_CHART_PICK));
    expectCursor(0, LoadCursorA(nullptr, IDC_ARROW));
    window.chart.SetCursors(nullptr, nullptr, nullptr);
    expectCursor(MouseMode::pan, LoadCursorA(nullptr, IDC_ARROW));
}

TEST(ChartControl, LaysOutAgainForANewSizeAndFont)
{
    ChartWindow window;
    const PixelRect plot = window.chart.GetChart().GetModel().frame.plot;
    const CFont large(CreateFontA(-20, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, "Tahoma"));
    window.chart.SetFont(large.get());
    window.chart.RecomputeLayout();
    EXPECT_GT(window.chart.GetChart().GetModel().frame.plot.left, plot.left);
    window.Send(WM_MOUSEMOVE, {200, 100});
    SetWindowPos(window.chart.GetHandle(), nullptr, 0, 0, 250, 200, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_LE(window.chart.GetChart().GetModel().frame.plot.right, 250);
    EXPECT_EQ(window.chart.GetChart().GetInteraction().GetPointer().mouse, (PixelPoint{-1, -1}));
    SetWindowPos(window.chart.GetHandle(), nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOZORDER);
    UpdateWindow(window.chart.GetHandle());
}

TEST(ChartControl, ReadsNothingOutForAMouseThatHasLeft)
{
    ChartWindow window;
    const auto mouse = [&window] { return window.chart.GetChart().GetInteraction().GetPointer().mouse; };
    window.Send(WM_MOUSEMOVE, {200, 100});
    EXPECT_EQ(mouse(), (PixelPoint{200, 100})) << "no real mouse is there, so that none leaves";
    window.Send(WM_MOUSELEAVE, {0, 0});
    EXPECT_EQ(mouse(), (PixelPoint{-1, -1}));
    window.Send(WM_LBUTTONDOWN, {150, 60});
    window.Send(WM_MOUSEMOVE, {200, 100});
    window.Send(WM_MOUSELEAVE, {0, 0});
    EXPECT_EQ(mouse(), (PixelPoint{200, 100})) << "a drag goes on outside";
}

TEST(ChartControl, OutlivesItsWindowAlsoInTheMiddleOfAMessage)
{
    ChartWindow window(MouseMode::pan);
    window.parent.onZoomChanged = [&window] { DestroyWindow(window.chart.GetHandle()); };
    window.Drag({{150, 60}, {170, 70}});
    EXPECT_EQ(window.parent.zoomChanges, 1);
    EXPECT_EQ(window.chart.GetHandle(), nullptr);
    window.chart.RecomputeLayout();
    window.chart.ResetZoom();
    window.chart.Invalidate();
    EXPECT_EQ(window.parent.zoomChanges, 1);
}

TEST(ChartControl, LeavesNoHandleBehind)
{
    ExpectRoundsLeaveNothingBehind(1, 200,
                                   [](int)
                                   {
                                       ChartWindow window;
                                       window.Drag({{150, 60}, {200, 90}, {300, 150}});
                                       UpdateWindow(window.chart.GetHandle());
                                   });
}
} // namespace
