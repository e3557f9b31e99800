#include "chooser/CChartPaneState.h"

void CChartPaneState::Show(int widthWithoutChart, int heightWithoutChart)
{
    sizingState = 1;
    expandedWidth = widthWithoutChart;
    expandedHeight = heightWithoutChart;
}

void CChartPaneState::Hide()
{
    sizingState = 0;
    expandedWidth = 0;
    expandedHeight = 0;
}

bool CChartPaneState::Resize(int height)
{
    if (sizingState > 0 && height < expandedHeight)
    {
        sizingState = -1;
        return true;
    }
    if (sizingState < 0 && height > expandedHeight)
    {
        sizingState = 1;
        return true;
    }
    return false;
}
