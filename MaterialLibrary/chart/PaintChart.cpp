#include "chart/PaintChart.h"

#include "chart/CAxisMapping.h"
#include "chart/ChartTexts.h"
#include "chart/CurveSearch.h"

#include <algorithm>

namespace
{
constexpr Colour crossHairColour = 0x5C5C5C;
constexpr int labelGap = 2;       // pixels
constexpr int firstLegendRow = 2; // below the tick labels and the titles
constexpr int lastLegendRow = 3;

// The first read-out shares the row of the horizontal titles, whose other end they take; the further ones
// have rows of their own below the legend.
int GetReadOutTop(const ChartFrame& frame, int number)
{
    const int h = frame.lineHeight;
    return frame.plot.bottom + (number == 0 ? h + h / 8 : (3 + number) * h);
}

void WriteReadOut(const ChartScene& scene, ICanvas& canvas, int number, const CurveAxes& axes,
                  DataPoint point)
{
    const ChartFrame& frame = scene.model.frame;
    const int left = frame.plot.left;
    const int top = GetReadOutTop(frame, number);
    const std::string text =
        FitText(canvas, FormatReadOut(*axes.horizontal, *axes.vertical, point), scene.client.right - left);
    const PixelSize extent = canvas.GetTextExtent(text);
    // The tails of the tick labels hang into the cell of the first one.
    const int labelBottom = frame.GetTickLabelTop() + frame.lineHeight;
    canvas.FillRectangle({left, std::max(top, labelBottom), left + extent.width, top + extent.height},
                         scene.style.background);
    canvas.WriteText({left, top}, text, scene.style.GetShownColour(axes.vertical->axisColour), std::nullopt);
}

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

void PaintLockedCurve(const ChartScene& scene, ICanvas& canvas)
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
        WriteReadOut(scene, canvas, 0, axes, snapped->value);
    }
}

void PaintAxisPairs(const ChartScene& scene, ICanvas& canvas)
{
    const CChartModel& model = scene.model;
    int number = 0;
    for (const CAxis& horizontal : model.GetAxes(Direction::Horizontal))
    {
        for (const CAxis& vertical : model.GetAxes(Direction::Vertical))
        {
            const CurveAxes axes = {&horizontal, &vertical};
            WriteReadOut(scene, canvas, number++, axes,
                         CurveMapping(model, axes).GetValue(scene.pointer.mouse));
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
    const PixelPoint topLeft = PlaceLabel(scene.client, place, canvas.GetTextExtent(text));
    canvas.WriteText(topLeft, text, entry.curve->colour, scene.style.background);
}

void PaintReadOuts(const ChartScene& scene, ICanvas& canvas)
{
    const ChartPointer& pointer = scene.pointer;
    if (!pointer.showsReadOuts || !scene.model.frame.plot.Contains(pointer.mouse))
    {
        return;
    }
    if (pointer.lockedCurve >= 0)
    {
        PaintLockedCurve(scene, canvas);
    }
    else
    {
        PaintAxisPairs(scene, canvas);
    }
}

void PaintLegend(const ChartScene& scene, ICanvas& canvas)
{
    const PixelRect& plot = scene.model.frame.plot;
    const int h = canvas.GetTextExtent("0,").height;
    const int side = h - h / 4;
    int row = firstLegendRow;
    int x = plot.left;
    for (const CLegendEntry& entry : scene.model.GetLegend())
    {
        const int width = h + canvas.GetTextExtent(entry.name).width + h;
        if (x + width > plot.right && x > plot.left)
        {
            ++row;
            x = plot.left;
        }
        if (row > lastLegendRow)
        {
            return;
        }
        const int top = plot.bottom + h * row;
        canvas.FillRectangle({x, top + h / 8, x + side, top + h / 8 + side}, entry.colour);
        canvas.WriteText({x + h, top}, FitText(canvas, entry.name, plot.right - x - h),
                         scene.style.GetShownColour(0xFFFFFF), {});
        x += width;
    }
}
} // namespace

void PaintChart(const ChartScene& scene, ICanvas& canvas)
{
    canvas.FillRectangle(scene.client, scene.style.background);
    PaintAxes(scene, canvas);
    PaintCurves(scene, canvas);
    PaintSelectionLabel(scene, canvas);
    PaintLegend(scene, canvas);
    PaintReadOuts(scene, canvas);
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
