#include "chart/ClipSegment.h"

#include <cmath>

namespace
{
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
