#include "MaterialLibrary/chart/CCurveTracer.h"

namespace
{
constexpr std::size_t longestPolyline = 2'048;

bool IsSolid(const Pen& pen)
{
    return pen.style < PenStyle::dash || pen.style > PenStyle::dashDotDot;
}
} // namespace

CCurveTracer::CCurveTracer(ICanvas& canvas_, const Pen& pen_)
    : canvas(canvas_), pen(pen_), reduces(IsSolid(pen_))
{
}

void CCurveTracer::MoveTo(PixelPoint point)
{
    if (!open || point != PixelPoint{column.x, column.last})
    {
        Finish();
        BeginColumn(point);
        open = true;
    }
}

void CCurveTracer::GoToColumn(PixelPoint point)
{
    EndColumn();
    BeginColumn(point);
}

void CCurveTracer::Finish()
{
    if (!open)
    {
        return;
    }
    open = false;
    EndColumn();
    if (points.size() == 1)
    {
        points.push_back(points.front());
    }
    canvas.DrawPolyline(pen, points);
    points.clear();
}

void CCurveTracer::EndColumn()
{
    if (points.size() >= longestPolyline)
    {
        const PixelPoint end = points.back();
        canvas.DrawPolyline(pen, points);
        points.assign(1, end);
    }
    Append(column.first);
    if (column.lowest < std::min(column.first, column.last) ||
        column.highest > std::max(column.first, column.last))
    {
        Append(column.lowest);
        Append(column.highest);
    }
    Append(column.last);
}

void CCurveTracer::Append(int y)
{
    const PixelPoint point = {column.x, y};
    if (points.empty() || points.back() != point)
    {
        points.push_back(point);
    }
}
