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

// What the dialog's template has, in pixels.
struct ChartPaneTemplate
{
    int chart = 0; // the height of the chart
    int rest = 0;  // the height of the window less the chart's
    int grid = 0;
};

// Decides how the chooser shares the height of its window between grid and chart, in pixels.
//
// Showing the chart makes the window higher by the chart as far as the work area allows, then the grid gives
// way, down to a third of its height in the template. A shown chart has at least half of its own. Only
// while the user makes the window lower than it was without the chart, the chart gives way, down to nothing;
// showing it again and everything that the system does brings it back. Whoever shows and hides the chart in
// turn gets the former window again.
//
// The user moves the bar between the two. Where it leaves the chart too little in another window, it stands
// elsewhere in that one.
class CChartPaneState
{
public:
    CChartPaneState() = default;

    // For a window as the template has it.
    explicit CChartPaneState(const ChartPaneTemplate& sizes);

    // The grid has so much less for good: controls above or below it take two rows instead of one.
    void TakeFromGrid(int height) { sizes.grid -= height; }

    // Where a window opens that was left in that frame, perhaps on a larger screen or at another scale: no
    // larger than the work area, and higher than it was left where a shown chart would have no room.
    [[nodiscard]] WindowFrame Open(const WindowFrame& left, const WindowFrame& workArea);

    // `normal` is the frame of the window while it is not maximised; the answer is the one it has then, which
    // lies in the work area unless that is too small for the window's least height.
    [[nodiscard]] WindowFrame Show(const WindowFrame& normal, const WindowFrame& workArea);
    [[nodiscard]] WindowFrame Hide(const WindowFrame& normal, const WindowFrame& workArea);

    // The window has this height now.
    void Resize(int height, ResizedBy by);

    // Moves the bar in a window of that height so that the shown chart has the height `chart`, as far as
    // that leaves enough to both.
    void MoveBar(int height, int chart);

    // The grid's height beside the chart wherever there is room for it, to be set again in a later dialog
    // before that opens.
    [[nodiscard]] int GetGridHeight() const { return wantedRest - sizes.rest + sizes.grid; }
    void SetGridHeight(int grid);

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
        int wantedRestBefore = 0;
        int wantedRestAfter = 0;
    };

    [[nodiscard]] std::optional<WindowFrame> TakeBack(const WindowFrame& normal, const WindowFrame& workArea);
    [[nodiscard]] int GetLeastChartHeight() const { return (sizes.chart + 1) / 2; }
    [[nodiscard]] int GetUsefulChartHeight() const { return (3 * sizes.chart + 3) / 4; }
    [[nodiscard]] int GetLeastGridHeight() const { return (sizes.grid + 2) / 3; } // that the bar leaves
    [[nodiscard]] int GetLeastRest() const { return sizes.rest - sizes.grid + GetLeastGridHeight(); }
    [[nodiscard]] int FitChart(int height, int wanted) const;
    [[nodiscard]] int FitRest(int height) const;

    ChartPaneTemplate sizes;
    bool shown = true;
    int rest = 0;          // of the window, for everything but the chart while that is shown
    int wantedRest = 0;    // where there is room for it
    int presentHeight = 0; // of the window
    int hiddenHeight = 0;
    std::optional<Step> lastStep;
};
