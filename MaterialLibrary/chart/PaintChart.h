#pragma once

#include "chart/CChartModel.h"
#include "chart/ChartInteraction.h"
#include "chart/ChartStyle.h"
#include "chart/ICanvas.h"

// Everything that painting a chart looks at. The model has been laid out for the client area.
struct ChartScene
{
    const CChartModel& model;
    const ChartStyle& style;
    const ChartInteraction& interaction;
    PixelRect client;
};

// Paints the whole chart: background, axes, curves with the first on top, the label of the selected curve or
// point, the legend, and at last what belongs to the mouse in the plot: the cross-hair on a locked curve and
// the read-outs.
void PaintChart(const ChartScene& scene, ICanvas& canvas);

// The stages of it.
void PaintAxes(const ChartScene& scene, ICanvas& canvas);
void PaintCurves(const ChartScene& scene, ICanvas& canvas);
void PaintSelectionLabel(const ChartScene& scene, ICanvas& canvas);
void PaintLegend(const ChartScene& scene, ICanvas& canvas);
void PaintReadOuts(const ChartScene& scene, ICanvas& canvas);

// The end of a text that is too wide gives way to three dots; the whole text where there is room.
[[nodiscard]] std::string FitText(ITextMeasure& measure, std::string_view text, int width);
