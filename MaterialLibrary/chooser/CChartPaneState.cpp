#include "chooser/CChartPaneState.h"

#include <algorithm>
#include <utility>

CChartPaneState::CChartPaneState(const ChartPaneTemplate& sizes_)
    : sizes(sizes_), rest(sizes.rest), wantedRest(sizes.rest), presentHeight(sizes.rest + sizes.chart),
      hiddenHeight(sizes.chart)
{
}

WindowFrame CChartPaneState::Open(const WindowFrame& left, const WindowFrame& workArea)
{
    WindowFrame opened = left;
    if (shown && GetChartHeight(left.height) < GetLeastChartHeight())
    {
        opened.height = wantedRest + sizes.chart;
    }
    opened.width = std::min(opened.width, workArea.width);
    opened.height = std::min(opened.height, workArea.height);
    Resize(opened.height, ResizedBy::System);
    return MoveIntoWorkArea(opened, workArea);
}

WindowFrame CChartPaneState::Show(const WindowFrame& normal, const WindowFrame& workArea)
{
    shown = true;
    if (const auto former = TakeBack(normal, workArea))
    {
        return *former;
    }
    Step step{normal, normal, wantedRest, 0};
    step.after.height = std::min(normal.height + hiddenHeight, workArea.height);
    const bool fits = step.after.height - normal.height >= hiddenHeight;
    rest = step.after.height - (fits ? hiddenHeight : FitChart(step.after.height, hiddenHeight));
    wantedRest = rest;
    step.after = MoveIntoWorkArea(step.after, workArea);
    step.wantedRestAfter = wantedRest;
    lastStep = step;
    return step.after;
}

WindowFrame CChartPaneState::Hide(const WindowFrame& normal, const WindowFrame& workArea)
{
    const bool isMaximised = normal.height != presentHeight;
    const int chart = std::max(normal.height - (isMaximised ? FitRest(normal.height) : rest), 0);
    hiddenHeight = std::max(chart, sizes.chart);
    shown = false;
    if (const auto former = TakeBack(normal, workArea))
    {
        return *former;
    }
    Step step{normal, normal, wantedRest, wantedRest};
    step.after.height = std::min(std::max(normal.height - chart, sizes.rest), workArea.height);
    step.after = MoveIntoWorkArea(step.after, workArea);
    if (chart >= GetLeastChartHeight())
    {
        lastStep = step; // otherwise showing the chart is to give it more room
    }
    return step.after;
}

void CChartPaneState::Resize(int height, ResizedBy by)
{
    const bool changes = std::exchange(presentHeight, height) != height;
    if (shown && by == ResizedBy::System)
    {
        rest = FitRest(height);
    }
    else if (shown && changes)
    {
        wantedRest = rest;
    }
}

void CChartPaneState::MoveBar(int height, int chart)
{
    const int most = std::max(height - GetLeastRest(), GetLeastChartHeight());
    rest = height - std::clamp(chart, std::min(GetUsefulChartHeight(), most), most);
    wantedRest = rest;
}

void CChartPaneState::SetGridHeight(int grid)
{
    wantedRest = sizes.rest - sizes.grid + std::max(grid, GetLeastGridHeight());
    rest = wantedRest;
}

int CChartPaneState::GetChartHeight(int height) const
{
    return shown ? std::max(height - rest, 0) : 0;
}

// The frame before the last step, where nobody has changed anything since; the user may have moved it.
std::optional<WindowFrame> CChartPaneState::TakeBack(const WindowFrame& normal, const WindowFrame& workArea)
{
    const std::optional<Step> step = std::exchange(lastStep, std::nullopt);
    if (!step || step->after.width != normal.width || step->after.height != normal.height ||
        step->wantedRestAfter != wantedRest)
    {
        return std::nullopt;
    }
    WindowFrame former = step->before;
    if (normal != step->after)
    {
        former.left = normal.left;
        former.top = normal.top;
    }
    former = MoveIntoWorkArea(former, workArea);
    if (former.height > workArea.height)
    {
        return std::nullopt;
    }
    wantedRest = step->wantedRestBefore;
    rest = FitRest(former.height);
    lastStep = Step{normal, former, step->wantedRestAfter, step->wantedRestBefore};
    return former;
}

// The height of a chart in a window that has no room for one beside all else: the grid gives way down to half
// its height, both down to what is still of use, then the chart.
int CChartPaneState::FitChart(int height, int wanted) const
{
    const int besideHalfTheGrid = height - (sizes.rest - sizes.grid / 2);
    const int useful = std::min({wanted, GetUsefulChartHeight(), height - GetLeastRest()});
    return std::max({GetLeastChartHeight(), std::min(wanted, besideHalfTheGrid), useful});
}

// Where the bar stands in a window that the system gave that height.
int CChartPaneState::FitRest(int height) const
{
    const bool hasRoom = height - wantedRest >= GetLeastChartHeight();
    return hasRoom ? wantedRest : height - FitChart(height, sizes.chart);
}
