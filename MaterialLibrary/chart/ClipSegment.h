#pragma once

#include "chart/Geometry.h"

// On which sides of a box a point lies, as a sum of these; 0 inside, edges included.
struct Outcode
{
    static constexpr unsigned left = 1;
    static constexpr unsigned below = 2;
    static constexpr unsigned right = 4;
    static constexpr unsigned above = 8;
};

[[nodiscard]] inline unsigned GetOutcode(const DataRect& box, const DataPoint& point)
{
    return (point.x < box.xMin ? Outcode::left : 0u) | (point.y < box.yMin ? Outcode::below : 0u) |
           (point.x > box.xMax ? Outcode::right : 0u) | (point.y > box.yMax ? Outcode::above : 0u);
}

// Cuts the segment from a to b, with finite coordinates, to a box (Cohen and Sutherland). False, with both
// points left anywhere, for a segment wholly outside.
[[nodiscard]] bool ClipSegment(const DataRect& box, DataPoint& a, DataPoint& b);
