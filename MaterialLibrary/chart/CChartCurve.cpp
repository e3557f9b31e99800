#include "chart/CChartCurve.h"

#include <cmath>
#include <stdexcept>

void CChartCurve::UpdateBounds()
{
    bounds = {};
    bool any = false;
    for (const DataPoint& point : points)
    {
        if (!std::isfinite(point.x) || !std::isfinite(point.y))
        {
            continue;
        }
        if (!any)
        {
            bounds = {point.x, point.y, point.x, point.y};
            any = true;
            continue;
        }
        if (point.x < bounds.xMin)
        {
            bounds.xMin = point.x;
        }
        else if (point.x > bounds.xMax)
        {
            bounds.xMax = point.x;
        }
        if (point.y < bounds.yMin)
        {
            bounds.yMin = point.y;
        }
        else if (point.y > bounds.yMax)
        {
            bounds.yMax = point.y;
        }
    }
}

const DataPoint& CChartCurve::GetPoint(std::int32_t index) const
{
    if (index < 0 || static_cast<std::size_t>(index) >= points.size())
    {
        throw std::out_of_range("invalid vector<T> subscript");
    }
    return points[static_cast<std::size_t>(index)];
}

std::string_view CChartCurve::GetPointLabel(std::int32_t index) const
{
    if (index < 0 || static_cast<std::size_t>(index) >= pointLabels.size())
    {
        return {};
    }
    return pointLabels[static_cast<std::size_t>(index)];
}
