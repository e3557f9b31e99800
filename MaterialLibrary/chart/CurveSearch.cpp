#include "chart/CurveSearch.h"

#include "chart/CAxisMapping.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{
constexpr int hitDistance = 3;  // pixels
constexpr int readDistance = 4; // pixels

// Whether the line from a to b, two coordinates along and across an edge, meets the edge at `along` between
// `acrossMin` and `acrossMax`.
bool CrossesEdge(double aAlong, double aAcross, double bAlong, double bAcross, double along, double acrossMin,
                 double acrossMax)
{
    const double t = (along - aAlong) / (bAlong - aAlong);
    const double across = aAcross + t * (bAcross - aAcross);
    return t >= 0.0 && t <= 1.0 && across >= acrossMin && across <= acrossMax;
}

bool Touches(const DataRect& rect, const DataPoint& a, const DataPoint& b)
{
    // Most segments lie wholly on one side.
    if ((a.x < rect.xMin && b.x < rect.xMin) || (a.x > rect.xMax && b.x > rect.xMax) ||
        (a.y < rect.yMin && b.y < rect.yMin) || (a.y > rect.yMax && b.y > rect.yMax))
    {
        return false;
    }
    return rect.Contains(a) || rect.Contains(b) ||
           CrossesEdge(a.x, a.y, b.x, b.y, rect.xMin, rect.yMin, rect.yMax) ||
           CrossesEdge(a.x, a.y, b.x, b.y, rect.xMax, rect.yMin, rect.yMax) ||
           CrossesEdge(a.y, a.x, b.y, b.x, rect.yMin, rect.xMin, rect.xMax) ||
           CrossesEdge(a.y, a.x, b.y, b.x, rect.yMax, rect.xMin, rect.xMax);
}

DataPoint Interpolate(const DataPoint& a, const DataPoint& b, double x)
{
    const double extent = b.x - a.x;
    const double t = std::fabs(extent) <= 1e-12 ? 0.5 : (x - a.x) / extent;
    return {x, a.y + t * (b.y - a.y)};
}

// On the last segment that spans x.
std::optional<DataPoint> FindOnCurve(const std::vector<DataPoint>& points, double x)
{
    for (std::size_t i = points.size(); i > 1; --i)
    {
        const DataPoint& a = points[i - 2];
        const DataPoint& b = points[i - 1];
        if (x >= std::min(a.x, b.x) && x <= std::max(a.x, b.x))
        {
            return Interpolate(a, b, x);
        }
    }
    return std::nullopt;
}

DataPoint GetNearerEnd(const std::vector<DataPoint>& points, double x)
{
    const bool lastIsNearer = std::fabs(points.back().x - x) < std::fabs(points.front().x - x);
    return lastIsNearer ? points.back() : points.front();
}

std::int64_t Square(std::int64_t value)
{
    return value * value;
}
} // namespace

std::int64_t HitTest(const CChartModel& model, PixelPoint point)
{
    for (std::int64_t index = model.GetCurveCount() - 1; index >= 0; --index)
    {
        const CAxisCurve& entry = model.GetCurve(index);
        const CurveAxes axes = model.GetCurveAxes(entry);
        if (!axes)
        {
            continue;
        }
        const CurveMapping mapping(model, axes);
        const DataPoint low = mapping.GetValue({point.x - hitDistance, point.y + hitDistance});
        const DataPoint high = mapping.GetValue({point.x + hitDistance, point.y - hitDistance});
        const DataRect rect = {low.x, low.y, high.x, high.y};
        const std::vector<DataPoint>& points = entry.curve->points;
        for (std::size_t i = points.size(); i > 1; --i)
        {
            if (Touches(rect, points[i - 2], points[i - 1]))
            {
                return index;
            }
        }
    }
    return -1;
}

std::optional<CurvePoint> FindNearestPoint(const CChartModel& model, PixelPoint cursor)
{
    const PixelRect& plot = model.frame.plot;
    if (!plot.Contains(cursor))
    {
        return std::nullopt;
    }
    std::optional<CurvePoint> nearest;
    std::int64_t nearestDistance = std::numeric_limits<std::int64_t>::max();
    for (std::int64_t index = 0; index < model.GetCurveCount(); ++index)
    {
        const CAxisCurve& entry = model.GetCurve(index);
        const CurveAxes axes = model.GetCurveAxes(entry);
        if (!axes)
        {
            continue;
        }
        const CurveMapping mapping(model, axes);
        const double xMin = mapping.horizontal.GetValue(cursor.x - readDistance);
        const double xMax = mapping.horizontal.GetValue(cursor.x + readDistance);
        const std::vector<DataPoint>& points = entry.curve->points;
        for (std::size_t i = 0; i < points.size(); ++i)
        {
            if (!(points[i].x >= xMin && points[i].x <= xMax) || !std::isfinite(points[i].y))
            {
                continue;
            }
            const PixelPoint pixel = mapping.GetPixel(points[i]);
            const std::int64_t distance = Square(pixel.x - cursor.x) + Square(pixel.y - cursor.y);
            if (plot.Spans(Direction::Vertical, pixel.y) && distance < nearestDistance)
            {
                nearestDistance = distance;
                nearest = {index, static_cast<std::int32_t>(i)};
            }
        }
    }
    return nearest;
}

std::optional<double> InterpolateCurve(const CChartCurve& curve, double x)
{
    const std::optional<DataPoint> point = FindOnCurve(curve.points, x);
    return point && std::isfinite(point->y) ? std::optional(point->y) : std::nullopt;
}

std::optional<SnappedPoint> SnapToCurve(const CChartModel& model, std::int64_t curve, double x)
{
    const CAxisCurve& entry = model.GetCurve(curve);
    const CurveAxes axes = model.GetCurveAxes(entry);
    if (!axes || entry.curve->points.empty())
    {
        return std::nullopt;
    }
    const std::vector<DataPoint>& points = entry.curve->points;
    const DataPoint value = FindOnCurve(points, x).value_or(GetNearerEnd(points, x));
    return SnappedPoint{value, CurveMapping(model, axes).GetPixel(value)};
}
