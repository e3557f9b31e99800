#include "chart/CCurveTracer.h"

#include <cstdlib>

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
    if (!open || point != PixelPoint{current.x, current.last})
    {
        Finish();
        BeginColumn(point);
    }
}

void CCurveTracer::GoToColumn(PixelPoint point)
{
    EndColumn();
    BeginColumn(point);
}

void CCurveTracer::Finish()
{
    EndColumn();
    if (previous)
    {
        Append(*previous, false);
        previous.reset();
    }
}

bool CCurveTracer::NeedsLineBetween(const Column& from, const Column& to) const
{
    if (!reduces || pen.width > 1 || !from.isRun || !to.isRun || std::abs(to.x - from.x) != 1)
    {
        return true;
    }
    // Half way the line changes the column; a row more on both sides for how renderers round.
    const int rows = std::abs(to.first - from.last);
    const int reach = std::min(rows, rows / 2 + 1);
    const int direction = to.first > from.last ? reach : -reach;
    return !from.Covers(from.last + direction) || !to.Covers(to.first - direction);
}

void CCurveTracer::BeginColumn(PixelPoint point)
{
    current = {point.x, point.y, point.y, point.y, point.y, false, false};
    open = true;
}

void CCurveTracer::EndColumn()
{
    if (!open)
    {
        return;
    }
    open = false;
    if (previous)
    {
        current.joined = NeedsLineBetween(*previous, current);
        Append(*previous, current.joined);
    }
    previous = current;
}

void CCurveTracer::Append(const Column& column, bool joinedToNext)
{
    const bool endsAreExtremes = column.lowest == std::min(column.first, column.last) &&
                                 column.highest == std::max(column.first, column.last);
    if (endsAreExtremes)
    {
        Append({column.x, column.first});
        Append({column.x, column.last});
    }
    else
    {
        if (column.joined)
        {
            Append({column.x, column.first});
        }
        EndPolyline();
        const PixelPoint upright[] = {{column.x, column.lowest}, {column.x, column.highest}};
        canvas.DrawPolyline(pen, upright);
        if (joinedToNext)
        {
            Append({column.x, column.last});
        }
    }
    if (!joinedToNext)
    {
        EndPolyline();
    }
}

void CCurveTracer::Append(PixelPoint point)
{
    if (!points.empty() && points.back() == point)
    {
        return;
    }
    points.push_back(point);
    if (points.size() >= longestPolyline)
    {
        EndPolyline();
        points.assign(1, point);
    }
}

void CCurveTracer::EndPolyline()
{
    if (points.size() == 1)
    {
        points.push_back(points.front());
    }
    if (!points.empty())
    {
        canvas.DrawPolyline(pen, points);
        points.clear();
    }
}
