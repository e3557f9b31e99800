// The dialog as a window that changes its size: where its controls stand.
#include "chooser/win32/CChooseMaterialDlg.h"
#include "framework/DialogItems.h"
#include "framework/Profile.h"
#include "framework/WindowScopes.h"
#include "resources/DialogIds.h"
#include "shared/CtrlAutoMover/win32/WindowPlacement.h"

#include <algorithm>
#include <utility>

namespace
{
// Of the dialog's client area, in dialog units.
constexpr SIZE templateUnits = {505, 322};

constexpr int largestHeight = 30'000; // in pixels at any scale

// In pixels, with the one that the template has at that scale.
constexpr const char* gridHeightName = "GridHeight";

// What stands below the chart.
constexpr int bottomControls[] = {
    IDOK, IDCANCEL, ML_BUTTON_HELP, ML_BUTTON_ASSIGN, ML_BUTTON_UNASSIGN, ML_LABEL_ASSIGNED, ML_EDIT_ASSIGNED,
};

SIZE GetWindowSize(HWND window)
{
    RECT rect{};
    GetWindowRect(window, &rect);
    return {rect.right - rect.left, rect.bottom - rect.top};
}
} // namespace

// The system makes no dialog larger than the screen, but places the controls of one.
void CChooseMaterialDlg::TakeTemplateSize()
{
    RECT wanted{0, 0, templateUnits.cx, templateUnits.cy};
    MapDialogRect(GetHandle(), &wanted);
    RECT client{};
    GetClientRect(GetHandle(), &client);
    templateWidth = wanted.right;
    const SIZE window = GetWindowSize(GetHandle());
    SetWindowPos(GetHandle(), nullptr, 0, 0, window.cx + wanted.right - client.right,
                 window.cy + wanted.bottom - client.bottom, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CChooseMaterialDlg::CreateBar()
{
    const auto begin = [this] { paneBeforeBar = chartPane; };
    bar.Create(GetHandle(), ML_DIVIDER, GetDlgItem(GetHandle(), ML_GRID),
               {begin, [this](int down) { return MoveBar(down); }});
    chart.SetOnMoveBar([this] { bar.TakeFocus(); });
    const RECT gridRect = GetItemRect(GetHandle(), ML_GRID);
    SetWindowPos(bar.GetHandle(), nullptr, gridRect.left, gridRect.bottom, gridRect.right - gridRect.left,
                 GetItemRect(GetHandle(), ML_CHART).top - gridRect.bottom, SWP_NOZORDER | SWP_NOACTIVATE);
}

void CChooseMaterialDlg::CreateMover()
{
    const SIZE size = GetWindowSize(GetHandle());
    const RECT gridRect = GetItemRect(GetHandle(), ML_GRID);
    const RECT chartRect = GetItemRect(GetHandle(), ML_CHART);
    const int chartHeight = chartRect.bottom - chartRect.top;
    templateGridHeight = gridRect.bottom - gridRect.top;
    gapAboveChart = chartRect.top - gridRect.bottom;
    gapBelowChart = GetItemRect(GetHandle(), ML_BUTTON_ASSIGN).top - chartRect.bottom;
    mover = std::make_unique<CCtrlAutoMover>(this);
    mover->minWidth = size.cx;
    mover->minHeight = size.cy - chartHeight;
    chartPane = CChartPaneState({chartHeight, size.cy - chartHeight, templateGridHeight});
    LayOutControls();
}

void CChooseMaterialDlg::LayOutControls()
{
    mover->RemoveAllGroups();
    const bool withChart = chartPane.GetLayout(GetWindowSize(GetHandle()).cy) == ChooserLayout::WithChart;
    const int groups[] = {
        mover->AddGroup(leftEdge, topEdge, rightEdge, withChart ? topEdge : bottomEdge, {ML_GRID}),
        mover->AddGroup(leftEdge, withChart ? topEdge : bottomEdge, rightEdge,
                        withChart ? topEdge : bottomEdge, {ML_DIVIDER}),
        mover->AddGroup(leftEdge, withChart ? topEdge : bottomEdge, rightEdge, bottomEdge, {ML_CHART}),
        mover->AddGroup(rightEdge, bottomEdge, rightEdge, bottomEdge, {IDOK, IDCANCEL, ML_BUTTON_HELP}),
        mover->AddGroup(leftEdge, bottomEdge, leftEdge, bottomEdge,
                        {ML_BUTTON_ASSIGN, ML_BUTTON_UNASSIGN, ML_LABEL_ASSIGNED, ML_EDIT_ASSIGNED}),
    };
    for (const int group : groups)
    {
        mover->SetProportional(group, GetHandle(), 1.0, 1.0, 1.0, 1.0);
    }
}

void CChooseMaterialDlg::ToggleChart()
{
    showChart = IsItemChecked(GetHandle(), ML_CHECK_SHOW_GRAPHICALLY);
    ShowOrHideChart();
    if (showChart)
    {
        chart.Refresh(); // the selection may have changed meanwhile
    }
}

// The window grows or shrinks by the chart; a maximised one does so when it is restored.
void CChooseMaterialDlg::ShowOrHideChart()
{
    const HWND dialog = GetHandle();
    mover->RemoveAllGroups();
    ShowItem(dialog, ML_CHART, showChart);
    ShowItem(dialog, ML_DIVIDER, showChart);
    const bool snapped = IsSnapped(dialog); // keeps its size
    const SIZE before = GetWindowSize(dialog);
    const WindowFrame frame = snapped ? WindowFrame{0, 0, before.cx, before.cy} : GetNormalFrame(dialog);
    const WindowFrame room = snapped ? frame : GetWorkArea(frame);
    const WindowFrame next = showChart ? chartPane.Show(frame, room) : chartPane.Hide(frame, room);
    if (!snapped)
    {
        const CFlagScope scope(changingSize);
        SetNormalFrame(dialog, next);
    }
    const int height = GetWindowSize(dialog).cy;
    for (const int control : bottomControls)
    {
        ShiftItem(dialog, control, 0, height - before.cy);
    }
    chartPane.Resize(height, ResizedBy::System);
    StackGridAndChart();
    LayOutControls();
    bar.BeginAnew();
}

// Shares the room above the bottom controls between chart and grid. A hidden chart keeps its height for the
// time when it is shown again.
void CChooseMaterialDlg::StackGridAndChart()
{
    const int chartHeight = chartPane.GetChartHeight(GetWindowSize(GetHandle()).cy);
    const RECT gridRect = GetItemRect(GetHandle(), ML_GRID);
    const int chartTop = GetItemRect(GetHandle(), ML_BUTTON_ASSIGN).top - gapBelowChart - chartHeight;
    SetControlHeight(ML_GRID, gridRect.top, chartTop - gapAboveChart - gridRect.top);
    SetControlHeight(ML_DIVIDER, chartTop - gapAboveChart, gapAboveChart);
    SetControlHeight(ML_CHART, chartTop, showChart ? chartHeight : chartPane.GetHiddenHeight());
}

// From where it stood when its user took it.
int CChooseMaterialDlg::MoveBar(int down)
{
    const int height = GetWindowSize(GetHandle()).cy;
    chartPane = paneBeforeBar;
    const int chartHeight = chartPane.GetChartHeight(height);
    if (down != 0)
    {
        chartPane.MoveBar(height, chartHeight - down);
    }
    StackGridAndChart();
    LayOutControls();
    return chartHeight - chartPane.GetChartHeight(height);
}

void CChooseMaterialDlg::ReadGridHeight()
{
    const auto stored = ParseNumberPair(ReadProfileString(GetRuntimeClassName(), gridHeightName, ""));
    if (showChart && stored && stored->second > 0)
    {
        chartPane.SetGridHeight(
            MulDiv(std::clamp<int>(stored->first, 0, largestHeight), templateGridHeight, stored->second));
    }
}

// With a hidden chart the height is the window's, and the next chart takes none of it.
void CChooseMaterialDlg::StoreGridHeight() const
{
    if (showChart)
    {
        StoreProfileString(GetRuntimeClassName(), gridHeightName,
                           FormatNumberPair({chartPane.GetGridHeight(), templateGridHeight}));
    }
}

void CChooseMaterialDlg::SetControlHeight(int control, int top, int height)
{
    const RECT rect = GetItemRect(GetHandle(), control);
    SetWindowPos(GetDlgItem(GetHandle(), control), nullptr, rect.left, top, rect.right - rect.left, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

// A dialog that was left on a larger screen, or at a smaller scale, opens no larger than this one.
void CChooseMaterialDlg::KeepInWorkArea()
{
    const WindowFrame left = GetNormalFrame(GetHandle());
    const WindowFrame workArea = GetWorkArea(left);
    if (workArea.width < mover->minWidth)
    {
        NarrowControls(templateWidth - (mover->minWidth - workArea.width));
    }
    mover->minWidth = std::min(mover->minWidth, workArea.width);
    mover->minHeight = std::min(mover->minHeight, workArea.height);
    ReadGridHeight();
    if (const WindowFrame frame = chartPane.Open(left, workArea); frame != left)
    {
        const CFlagScope scope(changingSize);
        SetNormalFrame(GetHandle(), frame);
    }
    chartPane.Resize(GetWindowSize(GetHandle()).cy, ResizedBy::System);
    StackGridAndChart();
    LayOutControls();
}

// A combo box takes its height from its font, an edit box from the template.
void CChooseMaterialDlg::AlignCombos()
{
    const RECT edit = GetItemRect(GetHandle(), ML_EDIT_THICKNESS_MINIMUM);
    constexpr auto shownField = static_cast<WPARAM>(-1);
    for (const int control : {ML_COMBO_TYPE, ML_COMBO_TECHNOLOGY, ML_COMBO_UNITS})
    {
        LRESULT height = SendDlgItemMessageW(GetHandle(), control, CB_GETITEMHEIGHT, shownField, 0);
        for (int attempt = 0; attempt < 2; ++attempt) // not every system takes the height that it gives
        {
            const RECT combo = GetItemRect(GetHandle(), control);
            height += (edit.bottom - edit.top) - (combo.bottom - combo.top);
            SendDlgItemMessageW(GetHandle(), control, CB_SETITEMHEIGHT, shownField, height);
        }
    }
}

void CChooseMaterialDlg::OnResized()
{
    const bool normal = !IsZoomed(GetHandle()) && !IsIconic(GetHandle()) && !IsSnapped(GetHandle());
    const bool byUser = std::exchange(wasNormal, normal) && normal;
    if (changingSize || !opened || IsIconic(GetHandle()))
    {
        return;
    }
    const int height = GetWindowSize(GetHandle()).cy;
    chartPane.Resize(height, byUser ? ResizedBy::User : ResizedBy::System);
    const int gridBottom = GetItemRect(GetHandle(), ML_BUTTON_ASSIGN).top - gapBelowChart - gapAboveChart -
                           chartPane.GetChartHeight(height);
    if (GetItemRect(GetHandle(), ML_GRID).bottom != gridBottom)
    {
        StackGridAndChart();
        LayOutControls(); // measured in the window's present size
    }
    bar.BeginAnew();
}
