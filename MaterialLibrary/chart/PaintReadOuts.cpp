#include "chart/CAxisMapping.h"
#include "chart/ChartTexts.h"
#include "chart/CurveSearch.h"
#include "chart/PaintChart.h"

#include <algorithm>

namespace
{
constexpr Colour crossHairColour = 0x5C5C5C;
constexpr int labelGap = 2; // pixels

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
    if (at.x >= plot.left && at.x <= plot.right)
    {
        const PixelLine line = {{at.x, plot.top}, {at.x, plot.bottom}};
        canvas.DrawXorLines({&line, 1}, crossHairColour);
    }
    if (at.y >= plot.top && at.y <= plot.bottom)
    {
        const PixelLine line = {{plot.left, at.y}, {plot.right, at.y}};
        canvas.DrawXorLines({&line, 1}, crossHairColour);
    }
}

void PaintLockedCurve(const ChartScene& scene, ICanvas& canvas)
{
    const CChartModel& model = scene.model;
    const std::int64_t curve = scene.interaction.hoveredCurve;
    const CurveAxes axes = model.GetCurveAxes(model.GetCurve(curve));
    if (!axes)
    {
        return;
    }
    const double x =
        CAxisMapping(model, Direction::Horizontal, *axes.horizontal).GetValue(scene.interaction.lastPoint.x);
    if (const std::optional<SnappedPoint> snapped = SnapToCurve(model, curve, x))
    {
        PaintCrossHair(model.frame.plot, snapped->pixel, canvas);
        WriteReadOut(scene, canvas, 0, axes, snapped->value);
    }
}

void PaintAxisPairs(const ChartScene& scene, ICanvas& canvas)
{
    const CChartModel& model = scene.model;
    const PixelPoint mouse = scene.interaction.lastPoint;
    int number = 0;
    for (const CAxis& horizontal : model.GetAxes(Direction::Horizontal))
    {
        const double x = CAxisMapping(model, Direction::Horizontal, horizontal).GetValue(mouse.x);
        for (const CAxis& vertical : model.GetAxes(Direction::Vertical))
        {
            const double y = CAxisMapping(model, Direction::Vertical, vertical).GetValue(mouse.y);
            WriteReadOut(scene, canvas, number++, {&horizontal, &vertical}, {x, y});
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
} // namespace

void PaintSelectionLabel(const ChartScene& scene, ICanvas& canvas)
{
    const ChartInteraction& interaction = scene.interaction;
    if (interaction.readOutCurve < 0)
    {
        return;
    }
    const CAxisCurve& entry = scene.model.GetCurve(interaction.readOutCurve);
    const CurveAxes axes = scene.model.GetCurveAxes(entry);
    std::string text = entry.curve->name;
    PixelPoint place = interaction.readOutPosition;
    if (interaction.readOutPoint >= 0 && axes)
    {
        const DataPoint& point = entry.curve->GetPoint(interaction.readOutPoint);
        text = entry.curve->GetPointLabel(interaction.readOutPoint);
        if (text.empty())
        {
            text = FormatReadOut(*axes.horizontal, *axes.vertical, point);
        }
        place = {CAxisMapping(scene.model, Direction::Horizontal, *axes.horizontal).GetPixel(point.x),
                 CAxisMapping(scene.model, Direction::Vertical, *axes.vertical).GetPixel(point.y)};
    }
    const PixelPoint topLeft = PlaceLabel(scene.client, place, canvas.GetTextExtent(text));
    canvas.WriteText(topLeft, text, entry.curve->colour, scene.style.background);
}

void PaintReadOuts(const ChartScene& scene, ICanvas& canvas)
{
    const ChartInteraction& interaction = scene.interaction;
    if (!scene.model.frame.plot.Contains(interaction.lastPoint) || interaction.mode == MouseMode::pan)
    {
        return;
    }
    if (interaction.HasLockedCurve())
    {
        PaintLockedCurve(scene, canvas);
    }
    else
    {
        PaintAxisPairs(scene, canvas);
    }
}
