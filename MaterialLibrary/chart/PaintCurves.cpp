#include "chart/CAxisMapping.h"
#include "chart/CCurveTracer.h"
#include "chart/PaintChart.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace
{
// Cut at the plot only on the sides where the view is cut; elsewhere a curve may run into the margins.
PixelRect GetClipArea(const ChartScene& scene)
{
    const PixelRect& plot = scene.model.frame.plot;
    PixelRect area = scene.client;
    const auto horizontal = scene.model.GetAxes(Direction::Horizontal);
    if (!horizontal.empty())
    {
        const CAxis& axis = horizontal.front();
        area.left = axis.requestedMin > axis.dataMin || axis.pixelShift < 0 ? plot.left : area.left;
        area.right = axis.requestedMax < axis.dataMax || axis.pixelShift > 0 ? plot.right + 1 : area.right;
    }
    const auto vertical = scene.model.GetAxes(Direction::Vertical);
    if (!vertical.empty())
    {
        const CAxis& axis = vertical.front();
        area.top = axis.requestedMax < axis.dataMax || axis.pixelShift < 0 ? plot.top : area.top;
        area.bottom = axis.requestedMin > axis.dataMin || axis.pixelShift > 0 ? plot.bottom + 1 : area.bottom;
    }
    return area;
}

class CCurvePainter
{
public:
    CCurvePainter(const ChartScene& scene_, const CAxisCurve& entry, const CurveAxes& axes, ICanvas& canvas_)
        : style(scene_.style), curve(*entry.curve), mapping(scene_.model, axes),
          bends(curve.straightInData && mapping.horizontal.IsLogarithmic()),
          canvas(canvas_), visible{axes.horizontal->visibleMin, axes.vertical->visibleMin,
                                   axes.horizontal->visibleMax, axes.vertical->visibleMax}
    {
    }

    void Paint()
    {
        if (curve.points.empty() || !mapping.horizontal.IsLaidOut() || !mapping.vertical.IsLaidOut())
        {
            return;
        }
        if (curve.lineStyle >= 0 || (style.flags & ChartStyle::drawLines) != 0)
        {
            PaintLines();
        }
        if (curve.lineStyle < 0 && (style.flags & ChartStyle::drawMarkers) != 0)
        {
            PaintMarkers();
        }
    }

private:
    static constexpr int deepest = 30; // halvings of a line

    // From the last point to the first.
    void PaintLines()
    {
        const std::int32_t width = curve.thin   ? 0
                                   : style.bold ? std::max(style.lineWidth, 2)
                                                : style.lineWidth;
        CCurveTracer tracer(canvas, {curve.colour, width, std::max(curve.lineStyle, PenStyle::solid)});
        const std::span<const DataPoint> points = curve.points;
        bool fromIsVisible = visible.Contains(points.back());
        bool atFrom = false; // the tracer is
        for (std::size_t i = points.size() - 1; i > 0; --i)
        {
            const DataPoint& from = points[i];
            const DataPoint& to = points[i - 1];
            const bool toIsVisible = visible.Contains(to);
            if (fromIsVisible && toIsVisible && !bends)
            {
                if (!atFrom)
                {
                    tracer.MoveTo(mapping.GetVisiblePixel(from));
                }
                tracer.LineTo(mapping.GetVisiblePixel(to));
            }
            else
            {
                TraceVisiblePart(from, to, tracer);
            }
            atFrom = fromIsVisible && toIsVisible && !bends;
            fromIsVisible = toIsVisible;
        }
        tracer.Finish();
    }

    void TraceVisiblePart(DataPoint from, DataPoint to, CCurveTracer& tracer) const
    {
        if (std::isfinite(from.x) && std::isfinite(from.y) && std::isfinite(to.x) && std::isfinite(to.y) &&
            ClipSegment(visible, from, to))
        {
            tracer.MoveTo(mapping.GetVisiblePixel(from));
            if (bends)
            {
                TraceBentLine(from, to, tracer, deepest);
            }
            tracer.LineTo(mapping.GetVisiblePixel(to));
        }
    }

    // Points of the straight line between two values, as many as it takes for the lines between their pixels
    // to run beside it by less than a pixel.
    void TraceBentLine(const DataPoint& from, const DataPoint& to, CCurveTracer& tracer, int depth) const
    {
        constexpr double unseen = 0.25; // pixels
        const DataPoint a = mapping.GetPlace(from);
        const DataPoint b = mapping.GetPlace(to);
        const DataPoint middle = GetMiddle(from, to);
        const DataPoint m = mapping.GetPlace(middle);
        const double straight = a.y + (b.y - a.y) * ((m.x - a.x) / (b.x - a.x));
        if (depth > 0 && std::fabs(b.x - a.x) > 1.0 && std::fabs(m.y - straight) > unseen)
        {
            TraceBentLine(from, middle, tracer, depth - 1);
            tracer.LineTo(mapping.GetVisiblePixel(middle));
            TraceBentLine(middle, to, tracer, depth - 1);
        }
    }

    // In the middle of the line's pixels.
    static DataPoint GetMiddle(const DataPoint& from, const DataPoint& to)
    {
        const double x = std::sqrt(from.x) * std::sqrt(to.x);
        const double t = (x - from.x) / (to.x - from.x);
        return {x, from.y + t * (to.y - from.y)};
    }

    // One for every visible point that ends a segment.
    void PaintMarkers()
    {
        if (curve.points.size() < 2)
        {
            return;
        }
        std::optional<PixelPoint> previous;
        for (std::size_t i = curve.points.size(); i > 0; --i)
        {
            const DataPoint& point = curve.points[i - 1];
            if (visible.Contains(point) && previous != mapping.GetVisiblePixel(point))
            {
                previous = mapping.GetVisiblePixel(point);
                PaintMarker(*previous);
            }
        }
    }

    void PaintMarker(PixelPoint at)
    {
        if (curve.markerShape == 0)
        {
            const int reach = style.markerHalfSide;
            canvas.FillRectangle({at.x - reach, at.y - reach, at.x + reach + 1, at.y + reach + 1},
                                 curve.colour);
            return;
        }
        const int reach = style.markerRadius;
        const PixelPoint corners[] = {{at.x - reach, at.y},
                                      {at.x, at.y - reach},
                                      {at.x + reach, at.y},
                                      {at.x, at.y + reach},
                                      {at.x - reach, at.y}};
        canvas.DrawPolyline({curve.colour, 0, PenStyle::solid}, corners);
    }

    const ChartStyle& style;
    const CChartCurve& curve;
    const CurveMapping mapping;
    const bool bends;
    ICanvas& canvas;
    const DataRect visible;
};
} // namespace

void PaintCurves(const ChartScene& scene, ICanvas& canvas)
{
    canvas.Clip(GetClipArea(scene));
    for (std::int64_t index = scene.model.GetCurveCount() - 1; index >= 0; --index)
    {
        const CAxisCurve& entry = scene.model.GetCurve(index);
        const CurveAxes axes = scene.model.GetCurveAxes(entry);
        if (axes && entry.curve->colour != scene.style.background)
        {
            CCurvePainter(scene, entry, axes, canvas).Paint();
        }
    }
    canvas.Unclip();
}
