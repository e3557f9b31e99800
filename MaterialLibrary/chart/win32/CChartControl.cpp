#include "chart/win32/CChartControl.h"

#include "chart/CSvgCanvas.h"
#include "chart/CurveSearch.h"
#include "chart/win32/ChartPictures.h"
#include "framework/Clipboard.h"
#include "framework/DrawingScopes.h"
#include "framework/ModuleResources.h"
#include "resources/CursorIds.h"

#include <algorithm>
#include <cstdlib>
#include <windowsx.h>

const UINT chartZoomChangedMessage = RegisterWindowMessageA("__QZ_ChartControl_CCM_ZOOMCHANGED__");

namespace
{
HFONT MakeLabelFont()
{
    constexpr int height = -10;
    constexpr int weight = 500;
    return CreateFontA(height, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                       CLIP_DEFAULT_PRECIS, DRAFT_QUALITY, DEFAULT_PITCH, "MS Shell Dlg");
}

HCURSOR LoadChartCursor(int identifier)
{
    return LoadCursorW(GetModuleInstance(), MAKEINTRESOURCEW(identifier));
}

PixelPoint ToPoint(LPARAM lParam)
{
    return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
}

PixelRect ToPixelRect(const RECT& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}
} // namespace

void CChartControl::RegisterWindowClass()
{
    // With a cursor of its own the class would show it for a moment at every move of the mouse. A window of
    // another size has another layout everywhere.
    RegisterPlainWindowClass(windowClassName, CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW, nullptr, nullptr);
}

CChartControl::CChartControl()
    : ownFont(MakeLabelFont()), font(ownFont.get()), measure(font),
      arrowCursor(LoadCursorA(nullptr, IDC_ARROW))
{
    background.reset(CreateSolidBrush(chart.GetStyle().background));
    SetCursors(LoadChartCursor(IDC_CHART_ZOOM), LoadChartCursor(IDC_CHART_PAN),
               LoadChartCursor(IDC_CHART_PICK));
}

void CChartControl::SetAxisTitle(std::int32_t identifier, std::string_view title, std::string_view unit)
{
    chart.GetModel().SetAxisTitle(identifier, title, unit);
}

void CChartControl::ClearAutomaticPrefix(std::int32_t identifier)
{
    chart.GetModel().ClearAutomaticPrefix(identifier);
}

std::int64_t CChartControl::AddCurve(CChartCurve& curve, std::int32_t horizontalAxis,
                                     std::int32_t verticalAxis)
{
    return chart.AddCurve(curve, horizontalAxis, verticalAxis);
}

void CChartControl::SetScaleMode(bool horizontalLogarithmic, bool verticalLogarithmic)
{
    chart.GetModel().SetScaleMode(horizontalLogarithmic, verticalLogarithmic);
}

std::int64_t CChartControl::HitTest(PixelPoint point) const
{
    return ::HitTest(chart.GetModel(), point);
}

bool CChartControl::GetAxisRange(std::int32_t identifier, double& lo, double& hi) const
{
    return chart.GetModel().GetAxisRange(identifier, lo, hi);
}

void CChartControl::SetFont(HFONT labelFont)
{
    font = labelFont;
    measure.SetFont(font);
}

void CChartControl::SetCursors(HCURSOR zoom, HCURSOR pan, HCURSOR pick)
{
    zoomCursor = zoom;
    panCursor = pan;
    pickCursor = pick;
}

bool CChartControl::CopyPicture()
{
    RECT client{};
    if (GetHandle() == nullptr || GetClientRect(GetHandle(), &client) == FALSE)
    {
        return false;
    }
    const ChartPointer noPointer;
    const ChartScene scene = {chart.GetModel(), chart.GetStyle(), noPointer, ToPixelRect(client)};
    CGlobalMemory bitmap = DrawBitmap(scene, font);
    CMetafile metafile = DrawMetafile(scene, font);
    CClipboard clipboard(GetHandle());
    const bool tookMetafile = metafile && clipboard.Put(std::move(metafile));
    const bool tookBitmap = bitmap && clipboard.Put(CF_DIB, std::move(bitmap));
    return tookMetafile && tookBitmap;
}

std::string CChartControl::DrawSvg()
{
    RECT client{};
    if (GetHandle() != nullptr)
    {
        GetClientRect(GetHandle(), &client);
    }
    LOGFONTW face{};
    GetObjectW(font, sizeof face, &face);
    return DrawSvgPicture(chart.GetModel(), chart.GetStyle(), {client.right, client.bottom},
                          std::max(std::abs(static_cast<int>(face.lfHeight)), 1));
}

LRESULT CChartControl::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_PAINT:
        OnPaint();
        return 0;
    case WM_ERASEBKGND:
        return TRUE;
    case WM_CTLCOLORMSGBOX:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORDLG:
    case WM_CTLCOLORSCROLLBAR:
    case WM_CTLCOLORSTATIC:
        return reinterpret_cast<LRESULT>(background.get());
    case WM_SIZE:
    {
        const LRESULT answer = Default(message, wParam, lParam);
        RecomputeLayout();
        chart.GetInteraction().ForgetMouse();
        return answer;
    }
    case WM_MOUSEMOVE:
        AskForLeaving();
        Apply(chart.GetInteraction().OnMove(ToPoint(lParam)));
        return 0;
    case WM_MOUSELEAVE:
        if (!capture)
        {
            chart.GetInteraction().ForgetMouse();
            Repaint(false);
        }
        return 0;
    case WM_LBUTTONDOWN:
        Apply(chart.GetInteraction().OnButtonDown(ToPoint(lParam)));
        return 0;
    case WM_LBUTTONUP:
        Apply(chart.GetInteraction().OnButtonUp(ToPoint(lParam)));
        return 0;
    case WM_LBUTTONDBLCLK:
        ResetZoom();
        return Default(message, wParam, lParam);
    default:
        return CWnd::HandleMessage(message, wParam, lParam);
    }
}

// The window is told when the mouse leaves it. A move that only somebody's message tells of leaves no window.
void CChartControl::AskForLeaving()
{
    POINT place{};
    if (GetCursorPos(&place) != FALSE && WindowFromPoint(place) == GetHandle())
    {
        TRACKMOUSEEVENT request = {sizeof request, TME_LEAVE, GetHandle(), 0};
        TrackMouseEvent(&request);
    }
}

void CChartControl::OnPaint()
{
    const CPaintDC paint(GetHandle());
    RECT client{};
    GetClientRect(GetHandle(), &client);
    if (client.right <= 0 || client.bottom <= 0)
    {
        return;
    }
    const CMemoryDC memory(CreateCompatibleDC(paint.Get()));
    const CBitmap bitmap(CreateCompatibleBitmap(paint.Get(), client.right, client.bottom));
    if (!memory || !bitmap)
    {
        return;
    }
    const CSelectScope bitmapScope(memory.get(), bitmap.get());
    const CSelectScope fontScope(memory.get(), font);
    CGdiCanvas canvas(memory.get());
    chart.Paint(ToPixelRect(client), canvas);
    BitBlt(paint.Get(), 0, 0, client.right, client.bottom, memory.get(), 0, 0, SRCCOPY);
}

void CChartControl::SetMouseCursor(ChartCursor cursor)
{
    HCURSOR shown = nullptr;
    switch (cursor)
    {
    case ChartCursor::Zoom:
        shown = zoomCursor;
        break;
    case ChartCursor::Pan:
        shown = panCursor;
        break;
    case ChartCursor::Pick:
        shown = pickCursor;
        break;
    case ChartCursor::Arrow:
        break;
    }
    SetCursor(shown != nullptr ? shown : arrowCursor);
}

void CChartControl::Apply(const ChartResponse& response)
{
    if (response.cursor)
    {
        SetMouseCursor(*response.cursor);
    }
    DrawFeedback(response.feedback.Get());
    if (response.capture == true)
    {
        capture.emplace(GetHandle());
    }
    else if (response.capture == false)
    {
        capture.reset();
    }
    if (response.animates)
    {
        Animate();
    }
    if (response.ranges == RangeChange::Panned)
    {
        Repaint(false);
        NotifyZoomChanged();
    }
    else if (response.ranges == RangeChange::Zoomed)
    {
        ShowZoom(false);
    }
    else if (response.repaints)
    {
        Repaint(false);
    }
}

void CChartControl::DrawFeedback(std::span<const PixelLine> lines)
{
    if (GetHandle() != nullptr && !lines.empty()) // null would be the screen
    {
        const CClientDC client(GetHandle());
        CGdiCanvas(client.Get()).DrawXorLines(lines, feedbackColour);
    }
}

void CChartControl::Animate()
{
    const DWORD start = GetTickCount();
    AnimationStep step{};
    while ((step = chart.GetInteraction().Animate(GetTickCount() - start)) != AnimationStep::Ended)
    {
        if (step == AnimationStep::Wait)
        {
            Sleep(1);
        }
        else if (GetHandle() != nullptr)
        {
            Repaint(false);
            UpdateWindow(GetHandle());
        }
    }
}

void CChartControl::ResetZoom()
{
    chart.GetModel().ResetRanges();
    ShowZoom(true);
}

void CChartControl::ShowZoom(bool erase)
{
    RecomputeLayout();
    NotifyZoomChanged();
    Repaint(erase);
}

void CChartControl::RecomputeLayout()
{
    RECT client{};
    if (GetHandle() != nullptr && GetClientRect(GetHandle(), &client) != FALSE)
    {
        LayOutChart(chart.GetModel(), ToPixelRect(client), measure);
    }
}

void CChartControl::Repaint(bool erase)
{
    if (GetHandle() != nullptr) // null would be every window of the desktop
    {
        InvalidateRect(GetHandle(), nullptr, erase ? TRUE : FALSE);
    }
}

void CChartControl::NotifyZoomChanged()
{
    if (const HWND parent = GetHandle() != nullptr ? GetParent(GetHandle()) : nullptr)
    {
        SendMessageA(parent, chartZoomChangedMessage, 0, 0);
    }
}
