#include "chooser/CChartPaneState.h"

#include <algorithm>
#include <utility>

CChartPaneState::CChartPaneState(int chartHeight, int leastWindowHeight)
    : templateHeight(chartHeight), leastHeight(leastWindowHeight), heightForRest(leastWindowHeight),
      hiddenHeight(chartHeight)
{
}

WindowFrame CChartPaneState::Open(const WindowFrame& left, const WindowFrame& workArea)
{
    WindowFrame opened = left;
    if (shown && GetChartHeight(left.height) < GetLeastChartHeight())
    {
        opened.height = heightForRest + templateHeight;
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
    Step step{normal, normal, heightForRest, 0};
    step.after.height = std::min(normal.height + hiddenHeight, workArea.height);
    const bool fits = step.after.height - normal.height >= hiddenHeight;
    heightForRest = step.after.height - (fits ? hiddenHeight : FitChart(step.after.height, hiddenHeight));
    step.after = MoveIntoWorkArea(step.after, workArea);
    step.heightForRestAfter = heightForRest;
    lastStep = step;
    return step.after;
}

WindowFrame CChartPaneState::Hide(const WindowFrame& normal, const WindowFrame& workArea)
{
    const int chart = GetChartHeight(normal.height);
    hiddenHeight = std::max(chart, templateHeight);
    shown = false;
    if (const auto former = TakeBack(normal, workArea))
    {
        return *former;
    }
    Step step{normal, normal, heightForRest, heightForRest};
    step.after.height = std::min(std::max(normal.height - chart, leastHeight), workArea.height);
    step.after = MoveIntoWorkArea(step.after, workArea);
    if (chart >= GetLeastChartHeight())
    {
        lastStep = step; // otherwise showing the chart is to give it more room
    }
    return step.after;
}

void CChartPaneState::Resize(int height, ResizedBy by)
{
    if (shown && by == ResizedBy::System && GetChartHeight(height) < GetLeastChartHeight())
    {
        heightForRest = height - FitChart(height, templateHeight);
    }
}

int CChartPaneState::GetChartHeight(int height) const
{
    return shown ? std::max(height - heightForRest, 0) : 0;
}

// The frame before the last step, where nobody has changed anything since; the user may have moved it.
std::optional<WindowFrame> CChartPaneState::TakeBack(const WindowFrame& normal, const WindowFrame& workArea)
{
    const std::optional<Step> step = std::exchange(lastStep, std::nullopt);
    if (!step || step->after.width != normal.width || step->after.height != normal.height ||
        step->heightForRestAfter != heightForRest)
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
    heightForRest = step->heightForRestBefore;
    lastStep = Step{normal, former, step->heightForRestAfter, step->heightForRestBefore};
    return former;
}

// The height of a chart in a window that has no room for one beside all else.
int CChartPaneState::FitChart(int height, int wanted) const
{
    return std::max(GetLeastChartHeight(), std::min(wanted, height - leastHeight));
}
