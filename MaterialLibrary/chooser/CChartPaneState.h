#pragma once

// How the controls of the chooser follow its window.
enum class ChooserLayout
{
    WithChart,   // the chart takes what the user adds or takes away
    WithoutChart // the grid does
};

// What the chooser remembers about its chart while the user resizes the window. Showing the chart makes the
// window higher by the chart. When the user then makes the window lower than it was before, no chart is left
// and the grid gives way instead, until there is room for a chart again.
class CChartPaneState
{
public:
    // The chart has been shown in a window that had this size without it, in pixels.
    void Show(int widthWithoutChart, int heightWithoutChart);

    void Hide();

    // The user has given the window another height. True when the layout changes by that.
    [[nodiscard]] bool Resize(int height);

    // How high the chart is in a window of that height.
    [[nodiscard]] int GetRoomForChart(int height) const
    {
        return sizingState > 0 && height > expandedHeight ? height - expandedHeight : 0;
    }

    [[nodiscard]] ChooserLayout GetLayout() const
    {
        return sizingState > 0 ? ChooserLayout::WithChart : ChooserLayout::WithoutChart;
    }

private:
    int expandedWidth = 0;
    int expandedHeight = 0;
    int sizingState = 0; // 1: with the chart, -1: the chart is shown but there is no room, 0: not shown
};
