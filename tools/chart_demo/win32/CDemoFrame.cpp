#include "tools/chart_demo/win32/CDemoFrame.h"

#include "tools/chart_demo/win32/Laminate.h"

#include <cstdio>

namespace
{
constexpr const wchar_t* frameClassName = L"Chart demonstration";
constexpr int chartId = 1029;
constexpr int firstModeCommand = 100; // and on, in the order of the modes from 1
constexpr int logarithmicCommand = 200;
constexpr int resetCommand = 201;

// The window that gets the menu owns it.
HMENU MakeMenu()
{
    const HMENU bar = CreateMenu();
    const HMENU mouse = CreatePopupMenu();
    const wchar_t* const modes[] = {
        L"Zoom &in\t1", L"Zoom &out\t2",   L"Zoom in &horizontally\t3", L"Zoom in &vertically\t4",
        L"&Pan\t5",     L"Pic&k points\t6"};
    UINT_PTR command = firstModeCommand;
    for (const wchar_t* const mode : modes)
    {
        AppendMenuW(mouse, MF_STRING, command++, mode);
    }
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(mouse), L"&Mouse");
    const HMENU view = CreatePopupMenu();
    AppendMenuW(view, MF_STRING, logarithmicCommand, L"&Logarithmic frequency\tL");
    AppendMenuW(view, MF_STRING, resetCommand, L"&Reset the zoom\tDouble-click");
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(view), L"&View");
    return bar;
}
} // namespace

CDemoFrame::CDemoFrame() : er(MakeErCurve()), lossTangent(MakeLossTangentCurve()) {}

bool CDemoFrame::Show()
{
    RegisterPlainWindowClass(frameClassName);
    CChartControl::RegisterWindowClass();
    PlainWindowSettings frame{.className = frameClassName, .title = L"Chart"};
    frame.left = frame.top = 100;
    frame.width = 900;
    frame.height = 560;
    const HWND window = CreatePlainWindow(frame);
    if (window == nullptr || !Attach(window))
    {
        return false;
    }
    SetMenu(window, MakeMenu());
    PlainWindowSettings child{.className = CChartControl::windowClassName, .style = WS_CHILD | WS_VISIBLE};
    child.parent = window;
    child.identifier = chartId;
    if (CreatePlainWindow(child) == nullptr || !chart.AttachDlgItem(chartId, window))
    {
        return false;
    }
    SetUpChart();
    ShowWindow(window, SW_SHOWNORMAL);
    return true;
}

void CDemoFrame::SetUpChart()
{
    CChartModel& model = chart.GetChart().GetModel();
    chart.SetAxisTitle(0, "Frequency", "MHz");
    chart.SetAxisTitle(1, "Er", "");
    chart.AddAxis(2, true);
    chart.SetAxisTitle(2, "Loss Tangent", "");
    for (const int axis : {0, 1, 2})
    {
        chart.ClearAutomaticPrefix(axis);
    }
    model.FindAxis(0)->lowerLimit = smallestPositiveDouble;
    chart.AddCurve(er, 0, 1);
    chart.AddCurve(lossTangent, 0, 2);
    model.GetLegend() = {{er.colour, er.name}, {lossTangent.colour, lossTangent.name}};
    chart.SetPickListener(this);
    SetMode(MouseMode::zoomIn);
    SetLogarithmic(false);
}

LRESULT CDemoFrame::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == chartZoomChangedMessage)
    {
        ShowRange();
        return 0;
    }
    switch (message)
    {
    case WM_SIZE:
        MoveWindow(chart.GetHandle(), 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
        return 0;
    case WM_COMMAND:
        OnCommand(LOWORD(wParam));
        return 0;
    case WM_CHAR:
        OnCommand(wParam == 'l' || wParam == 'L' ? logarithmicCommand
                                                 : firstModeCommand + static_cast<int>(wParam) - '1');
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    default:
        return CWnd::HandleMessage(message, wParam, lParam);
    }
}

void CDemoFrame::OnCommand(int command)
{
    const std::int32_t mode = command - firstModeCommand + MouseMode::zoomIn;
    if (command == logarithmicCommand)
    {
        SetLogarithmic(!logarithmic);
    }
    else if (command == resetCommand)
    {
        chart.ResetZoom();
    }
    else if (mode >= MouseMode::zoomIn && mode <= MouseMode::pickCurve)
    {
        SetMode(mode);
    }
}

void CDemoFrame::SetMode(std::int32_t mode)
{
    chart.SetMouseMode(mode);
    CheckMenuRadioItem(GetMenu(GetHandle()), firstModeCommand, firstModeCommand + MouseMode::pickCurve - 1,
                       static_cast<UINT>(firstModeCommand + mode - MouseMode::zoomIn), MF_BYCOMMAND);
}

void CDemoFrame::SetLogarithmic(bool wanted)
{
    logarithmic = wanted;
    CheckMenuItem(GetMenu(GetHandle()), logarithmicCommand, wanted ? MF_CHECKED : MF_UNCHECKED);
    chart.SetScaleMode(wanted, false);
    chart.RecomputeLayout();
    chart.Invalidate();
    ShowRange();
}

void CDemoFrame::ShowRange()
{
    double lo = 0.0;
    double hi = 0.0;
    if (chart.GetAxisRange(0, lo, hi))
    {
        char title[80];
        std::snprintf(title, sizeof title, "Chart: %.4g to %.4g MHz", lo, hi);
        SetWindowTextA(GetHandle(), title);
    }
}

void CDemoFrame::OnPointPicked(const CChartCurve& curve, const DataPoint& /*clicked*/,
                               const DataPoint& picked)
{
    char title[120];
    std::snprintf(title, sizeof title, "Chart: picked %s %.5g at %.5g MHz", curve.name.c_str(), picked.y,
                  picked.x);
    SetWindowTextA(GetHandle(), title);
}
