#pragma once

#include "chart/CChartModel.h"
#include "chart/ICanvas.h"

// Distributes a client area: the plot, and around it room for the widest labels, the titles, the legend and
// the read-outs; then each axis's visible range from tick to tick, its step and its scale. Requested ranges
// that cannot be drawn are widened. Comes to an end for every range and every size.
void LayOutChart(CChartModel& model, PixelRect client, ITextMeasure& measure);

// How a chart is drawn, apart from what its axes and curves say themselves.
struct ChartStyle
{
    static constexpr std::int32_t drawLines = 1;
    static constexpr std::int32_t drawMarkers = 2;

    Colour background = 0x000000;
    std::int32_t flags = drawLines;
    std::int32_t markerRadius = 3;                             // of a diamond
    std::int32_t markerHalfSide = MultiplyDivide(3, 100, 141); // of the square in the same circle
    std::int32_t lineWidth = 0;                                // of curves; 0 is one pixel
    Colour highlight = 0xFFFFFF;                               // of the curve under the mouse
    bool bold = false;                                         // curves at least 2 pixels wide
    bool invertsColours = false; // for a light background: bright axis and grid colours become dark

    // An axis or grid colour as it is drawn.
    [[nodiscard]] Colour GetShownColour(Colour colour) const
    {
        constexpr Colour brightBits = 0x808080;
        return invertsColours && (colour & brightBits) != 0 ? 0xFFFFFF - (colour & 0xFFFFFF) : colour;
    }
};

// What the mouse shows on a chart.
struct ChartPointer
{
    PixelPoint mouse = {-1, -1};   // in the plot it is read out
    bool showsReadOuts = true;     // not while it pans
    std::int64_t lockedCurve = -1; // has the cross-hair and the only read-out
    std::int64_t labelledCurve = -1;
    std::int32_t labelledPoint = -1; // -1: the curve as a whole
    PixelPoint labelPosition;        // of the curve as a whole
};

// Everything that painting a chart looks at. The model has been laid out for the client area.
struct ChartScene
{
    const CChartModel& model;
    const ChartStyle& style;
    const ChartPointer& pointer;
    PixelRect client;

    // Whether the mouse is where its place has values to show.
    [[nodiscard]] bool ReadsOutMouse() const
    {
        return pointer.showsReadOuts && model.frame.plot.Contains(pointer.mouse);
    }
};

// Paints the whole chart: background, axes, curves with the first on top, the label of the selected curve or
// point, the legend, and at last what belongs to the mouse in the plot: the cross-hair on a locked curve and
// the read-outs.
void PaintChart(const ChartScene& scene, ICanvas& canvas);

// Three stages of it. The last one answers the first row of text below the plot that the legend leaves free.
void PaintAxes(const ChartScene& scene, ICanvas& canvas);
void PaintCurves(const ChartScene& scene, ICanvas& canvas);
[[nodiscard]] int PaintLegend(const ChartScene& scene, ICanvas& canvas);

// How many entries the legend has room for, once the model has been laid out.
[[nodiscard]] std::size_t CountLegendEntries(const ChartScene& scene, ITextMeasure& measure);

struct PlacedText
{
    std::string text;
    PixelPoint topLeft;
    int tick = 0; // which tick a label belongs to
};

// The labels of the drawn ticks, for every axis of the direction in order. Horizontal axes have them below
// the plot, vertical ones of even index on its left, of odd index on its right. Every so manyth tick has one,
// counted from value 0, so that a pan does not change which. Where several axes share a side, the first one
// leaves room for the others, whose labels stand between.
[[nodiscard]] std::vector<std::vector<PlacedText>>
PlaceTickLabels(const ChartScene& scene, Direction direction, ITextMeasure& measure);

// The titles, one per axis in order. Horizontal axes have theirs at the right end of the legend's first row,
// or where that is taken close below the tick labels; vertical axes above the plot, on the side where their
// labels stand. Where the window has no room for their row they are empty.
[[nodiscard]] std::vector<PlacedText> PlaceTitles(const ChartScene& scene, Direction direction,
                                                  ITextMeasure& measure);

// Where the first row of the legend stands, and where its entries end; at the plot's left side where it has
// none.
struct LegendRow
{
    int top = 0;
    int right = 0;
};
[[nodiscard]] LegendRow GetFirstLegendRow(const ChartScene& scene, ITextMeasure& measure);

// The end of a text that is too wide gives way to three dots; the whole text where there is room.
[[nodiscard]] std::string FitText(ITextMeasure& measure, std::string_view text, int width);
