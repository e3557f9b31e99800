#include "chart/CCurveTracer.h"

#include <cmath>
#include <cstdlib>

namespace
{
constexpr std::size_t longestPolyline = 2'048;

// On which sides of a box a point lies, as a sum of these; 0 inside, edges included.
struct Outcode
{
    static constexpr unsigned left = 1;
    static constexpr unsigned below = 2;
    static constexpr unsigned right = 4;
    static constexpr unsigned above = 8;
};

unsigned GetOutcode(const DataRect& box, const DataPoint& point)
{
    return (point.x < box.xMin ? Outcode::left : 0u) | (point.y < box.yMin ? Outcode::below : 0u) |
           (point.x > box.xMax ? Outcode::right : 0u) | (point.y > box.yMax ? Outcode::above : 0u);
}

// The value at `at` on the line from (from, a) to (to, b), also where differences exceed the largest double.
double InterpolateAt(double at, double from, double to, double a, double b)
{
    const double extent = to / 2.0 - from / 2.0; // 0 for the smallest numbers there are
    const double t = extent != 0.0 ? (at / 2.0 - from / 2.0) / extent : 0.0;
    const double difference = b - a;
    return std::isfinite(difference) ? a + t * difference : a * (1.0 - t) + b * t;
}

// Moves an end outside to the first edge it is beyond.
DataPoint MoveToEdge(const DataRect& box, unsigned outcode, const DataPoint& a, const DataPoint& b)
{
    if ((outcode & Outcode::left) != 0)
    {
        return {box.xMin, InterpolateAt(box.xMin, a.x, b.x, a.y, b.y)};
    }
    if ((outcode & Outcode::below) != 0)
    {
        return {InterpolateAt(box.yMin, a.y, b.y, a.x, b.x), box.yMin};
    }
    if ((outcode & Outcode::right) != 0)
    {
        return {box.xMax, InterpolateAt(box.xMax, a.x, b.x, a.y, b.y)};
    }
    return {InterpolateAt(box.yMax, a.y, b.y, a.x, b.x), box.yMax};
}
} // namespace

bool ClipSegment(const DataRect& box, DataPoint& a, DataPoint& b)
{
    constexpr int mostCuts = 8; // four do; rounding may put a corner's point outside once more
    for (int cut = 0; cut < mostCuts; ++cut)
    {
        const unsigned codeA = GetOutcode(box, a);
        const unsigned codeB = GetOutcode(box, b);
        if ((codeA | codeB) == 0)
        {
            return true;
        }
        if ((codeA & codeB) != 0)
        {
            return false;
        }
        DataPoint& outside = codeA != 0 ? a : b;
        outside = MoveToEdge(box, codeA != 0 ? codeA : codeB, a, b);
    }
    return false;
}

CCurveTracer::CCurveTracer(ICanvas& canvas_, const Pen& pen_)
    : canvas(canvas_), pen(pen_), reduces(pen_.IsSolid())
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
