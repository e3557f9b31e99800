#pragma once

#include "chart/CChartInteraction.h"

// The window that a chart lives in.
class IChartHost
{
public:
    // Lays the chart out for the window's size and font. Does nothing while there is no window.
    virtual void RecomputeLayout() = 0;
    // The whole window is painted again, later, with its background.
    virtual void Invalidate() = 0;

protected:
    ~IChartHost() = default;
};

// A chart in a window, without the window: its model, its looks and what the mouse does to it. It begins with
// the horizontal axis 0 and the vertical axis 1, both linear.
class CChart
{
public:
    // The host is called by the operations only, and must outlive the chart.
    explicit CChart(IChartHost& host_) : host(host_)
    {
        model.AddAxis(0, false);
        model.AddAxis(1, true);
    }
    CChart(const CChart&) = delete;
    CChart& operator=(const CChart&) = delete;
    ~CChart() = default;

    [[nodiscard]] CChartModel& GetModel() { return model; }
    [[nodiscard]] const CChartModel& GetModel() const { return model; }
    [[nodiscard]] ChartStyle& GetStyle() { return style; }
    [[nodiscard]] CChartInteraction& GetInteraction() { return interaction; }

    // As the model's, and no curve is read out any longer.
    std::int64_t AddCurve(CChartCurve& curve, std::int32_t horizontalAxis, std::int32_t verticalAxis)
    {
        interaction.ClearReadOut();
        return model.AddCurve(curve, horizontalAxis, verticalAxis);
    }
    // A highlighted curve gets its own colour back, a locked one is locked no longer.
    void RemoveCurves()
    {
        interaction.ForgetCurves();
        model.RemoveCurves();
    }

    void RecomputeLayout() { host.RecomputeLayout(); }
    void Invalidate() { host.Invalidate(); }

    // In the middle of a drag with its feedback, which the next feedback first erases.
    void Paint(const PixelRect& client, ICanvas& canvas) const
    {
        PaintChart({model, style, interaction.GetPointer(), client}, canvas);
        canvas.DrawXorLines(interaction.GetFeedback().Get(), feedbackColour);
    }

private:
    IChartHost& host;
    CChartModel model;
    ChartStyle style;
    CChartInteraction interaction{model, style};
};
