#include "chart/PaintChart.h"

#include "chart/CAxisMapping.h"
#include "chart/ChartTexts.h"
#include "chart/CurveSearch.h"

#include <algorithm>

namespace
{
constexpr Colour crossHairColour = 0x5C5C5C;
constexpr int labelGap = 2; // pixels

// Where the read-outs stand: rows of their own below the legend. Where there is one row less than read-outs,
// the last ones share it.
class CReadOutRows
{
public:
    CReadOutRows(const ChartScene& scene_, int firstRow, ICanvas& canvas_)
        : scene(scene_), canvas(canvas_), row(firstRow)
    {
        const CChartModel& model = scene.model;
        lastRow = static_cast<int>(model.GetAxes(Direction::Horizontal).size() *
                                   model.GetAxes(Direction::Vertical).size()) +
                  2;
    }

    void Write(const CurveAxes& axes, DataPoint point)
    {
        const ChartFrame& frame = scene.model.frame;
        const int left = frame.plot.left + used;
        const std::string text = FitText(canvas, FormatReadOut(*axes.horizontal, *axes.vertical, point),
                                         scene.client.right - left);
        canvas.WriteText({left, frame.plot.bottom + row * frame.lineHeight}, text,
                         scene.style.GetShownColour(axes.vertical->axisColour), scene.style.background);
        if (row < lastRow)
        {
            ++row;
        }
        else
        {
            used += canvas.GetTextExtent(text).width + frame.lineHeight;
        }
    }

private:
    const ChartScene& scene;
    ICanvas& canvas;
    int row;
    int lastRow;
    int used = 0; // pixels of the last row
};

void PaintCrossHair(const PixelRect& plot, PixelPoint at, ICanvas& canvas)
{
    if (plot.Spans(Direction::Horizontal, at.x))
    {
        const PixelLine line = {{at.x, plot.top}, {at.x, plot.bottom}};
        canvas.DrawXorLines({&line, 1}, crossHairColour);
    }
    if (plot.Spans(Direction::Vertical, at.y))
    {
        const PixelLine line = {{plot.left, at.y}, {plot.right, at.y}};
        canvas.DrawXorLines({&line, 1}, crossHairColour);
    }
}

void PaintLockedCurve(const ChartScene& scene, CReadOutRows& readOuts, ICanvas& canvas)
{
    const CChartModel& model = scene.model;
    const std::int64_t curve = scene.pointer.lockedCurve;
    const CurveAxes axes = model.GetCurveAxes(model.GetCurve(curve));
    if (!axes)
    {
        return;
    }
    const double x =
        CAxisMapping(model, Direction::Horizontal, *axes.horizontal).GetValue(scene.pointer.mouse.x);
    if (const std::optional<SnappedPoint> snapped = SnapToCurve(model, curve, x))
    {
        PaintCrossHair(model.frame.plot, snapped->pixel, canvas);
        readOuts.Write(axes, snapped->value);
    }
}

void PaintAxisPairs(const ChartScene& scene, CReadOutRows& readOuts)
{
    const CChartModel& model = scene.model;
    for (const CAxis& horizontal : model.GetAxes(Direction::Horizontal))
    {
        for (const CAxis& vertical : model.GetAxes(Direction::Vertical))
        {
            const CurveAxes axes = {&horizontal, &vertical};
            readOuts.Write(axes, CurveMapping(model, axes).GetValue(scene.pointer.mouse));
        }
    }
}

// The cell of a label beside a place, moved back into the window where it would stick out.
PixelPoint PlaceLabel(const PixelRect& client, PixelPoint place, PixelSize extent)
{
    const int left = std::min(place.x + labelGap, client.right - extent.width);
    const int top = place.y - labelGap - extent.height;
    return {std::max(left, client.left), std::max(top, client.top)};
}

void PaintSelectionLabel(const ChartScene& scene, ICanvas& canvas)
{
    const ChartPointer& pointer = scene.pointer;
    if (pointer.labelledCurve < 0)
    {
        return;
    }
    const CAxisCurve& entry = scene.model.GetCurve(pointer.labelledCurve);
    const CurveAxes axes = scene.model.GetCurveAxes(entry);
    std::string text = entry.curve->name;
    PixelPoint place = pointer.labelPosition;
    if (pointer.labelledPoint >= 0 && axes)
    {
        const DataPoint& point = entry.curve->GetPoint(pointer.labelledPoint);
        text = entry.curve->GetPointLabel(pointer.labelledPoint);
        if (text.empty())
        {
            text = FormatReadOut(*axes.horizontal, *axes.vertical, point);
        }
        place = CurveMapping(scene.model, axes).GetPixel(point);
    }
    text = FitText(canvas, text, scene.client.GetWidth());
    const PixelPoint topLeft = PlaceLabel(scene.client, place, canvas.GetTextExtent(text));
    canvas.WriteText(topLeft, text, entry.curve->colour, scene.style.background);
}

void PaintReadOuts(const ChartScene& scene, int firstRow, ICanvas& canvas)
{
    CReadOutRows readOuts(scene, firstRow, canvas);
    if (scene.pointer.lockedCurve >= 0)
    {
        PaintLockedCurve(scene, readOuts, canvas);
    }
    else
    {
        PaintAxisPairs(scene, readOuts);
    }
}
} // namespace

void PaintChart(const ChartScene& scene, ICanvas& canvas)
{
    canvas.FillRectangle(scene.client, scene.style.background);
    PaintAxes(scene, canvas);
    PaintCurves(scene, canvas);
    PaintSelectionLabel(scene, canvas);
    const int rowBelowLegend = PaintLegend(scene, canvas);
    if (scene.ReadsOutMouse())
    {
        PaintReadOuts(scene, rowBelowLegend, canvas);
    }
}

std::string FitText(ITextMeasure& measure, std::string_view text, int width)
{
    if (measure.GetTextExtent(text).width <= width)
    {
        return std::string(text);
    }
    // The longest beginning that fits, by halving.
    const auto shorten = [text](std::size_t length) { return std::string(text.substr(0, length)) + "..."; };
    std::size_t fits = 0;
    std::size_t tooLong = text.size();
    while (tooLong - fits > 1)
    {
        const std::size_t middle = fits + (tooLong - fits) / 2;
        (measure.GetTextExtent(shorten(middle)).width <= width ? fits : tooLong) = middle;
    }
    return fits > 0 ? shorten(fits) : std::string();
}
