#pragma once

#include "shared/CtrlAutoMover/WindowFrame.h"

#include <optional>

// How the controls of the chooser follow its window.
enum class ChooserLayout
{
    WithChart,   // the chart takes what the user adds or takes away
    WithoutChart // the grid does
};

// Who gave the window another size: its user, who sees what it costs while dragging, or the system, which
// opens, maximises and restores it.
enum class ResizedBy
{
    User,
    System
};

// Decides how the chooser shares the height of its window between grid and chart, in pixels.
//
// Showing the chart makes the window higher by the chart as far as the work area allows, then the grid gives
// way. A shown chart has at least half the height that the dialog's template gives it. Only while the user
// makes the window lower than it was without the chart, the chart gives way, down to nothing; showing it
// again and everything that the system does brings it back. Whoever shows and hides the chart in turn gets
// the former window again.
class CChartPaneState
{
public:
    CChartPaneState() = default;

    // For a window as the template has it, with a chart of that height; `leastHeight` is the window's height
    // less the chart's.
    CChartPaneState(int chartHeight, int leastHeight);

    // Where a window opens that was left in that frame, perhaps on a larger screen or at another scale: no
    // larger than the work area, and higher than it was left where a shown chart would have no room.
    [[nodiscard]] WindowFrame Open(const WindowFrame& left, const WindowFrame& workArea);

    // `normal` is the frame of the window while it is not maximised; the answer is the one it has then, which
    // lies in the work area unless that is too small for the window's least height.
    [[nodiscard]] WindowFrame Show(const WindowFrame& normal, const WindowFrame& workArea);
    [[nodiscard]] WindowFrame Hide(const WindowFrame& normal, const WindowFrame& workArea);

    // The window has this height now.
    void Resize(int height, ResizedBy by);

    // How high the chart is in a window of that height; 0 while it is hidden.
    [[nodiscard]] int GetChartHeight(int height) const;

    // How high the chart is to be when it is shown again.
    [[nodiscard]] int GetHiddenHeight() const { return hiddenHeight; }

    [[nodiscard]] ChooserLayout GetLayout(int height) const
    {
        return GetChartHeight(height) > 0 ? ChooserLayout::WithChart : ChooserLayout::WithoutChart;
    }

private:
    // What the last Show or Hide did, to be undone by the next.
    struct Step
    {
        WindowFrame before;
        WindowFrame after;
        int heightForRestBefore = 0;
        int heightForRestAfter = 0;
    };

    [[nodiscard]] std::optional<WindowFrame> TakeBack(const WindowFrame& normal, const WindowFrame& workArea);
    [[nodiscard]] int GetLeastChartHeight() const { return (templateHeight + 1) / 2; }
    [[nodiscard]] int FitChart(int height, int wanted) const;

    int templateHeight = 0;
    int leastHeight = 0;
    bool shown = true;
    int heightForRest = 0; // of the window, for everything but the chart while that is shown
    int hiddenHeight = 0;
    std::optional<Step> lastStep;
};
