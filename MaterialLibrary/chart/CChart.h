#pragma once

#include "chart/CChartModel.h"
#include "chart/ChartInteraction.h"
#include "chart/ChartStyle.h"
#include "chart/ICanvas.h"
#include "chart/IChartHost.h"

// A chart in a window, without the window: its model, its looks and what the mouse has done to it. It begins
// with the horizontal axis 0 and the vertical axis 1, both linear.
class CChart
{
public:
    // The host is called by the operations only, and must outlive the chart.
    explicit CChart(IChartHost& host_);
    CChart(const CChart&) = delete;
    CChart& operator=(const CChart&) = delete;
    ~CChart() = default;

    [[nodiscard]] CChartModel& GetModel() { return model; }
    [[nodiscard]] const CChartModel& GetModel() const { return model; }
    [[nodiscard]] ChartStyle& GetStyle() { return style; }
    [[nodiscard]] ChartInteraction& GetInteraction() { return interaction; }
    [[nodiscard]] const ChartInteraction& GetInteraction() const { return interaction; }

    // As the model's, and no curve is read out any longer.
    std::int64_t AddCurve(CChartCurve& curve, std::int32_t horizontalAxis, std::int32_t verticalAxis);
    // A highlighted curve gets its own colour back, a locked one is locked no longer.
    void RemoveCurves();

    // Does nothing while there is no window.
    void RecomputeLayout();

    // Every axis back to its data range; the parent is told.
    void ResetZoom();

    // Highlights the curve under the point, when it is another than before. Whether one is highlighted.
    bool UpdateHover(PixelPoint point);
    void RestoreHoveredColour();

    // The whole window is painted again, with its background.
    void Invalidate() { host.InvalidateChart(true); }

    void Paint(const PixelRect& client, ICanvas& canvas) const;

private:
    IChartHost& host;
    CChartModel model;
    ChartStyle style;
    ChartInteraction interaction;
};
