#pragma once

#include "chart/ICanvas.h"

#include <optional>
#include <vector>

// Cuts the segment from a to b, with finite coordinates, to a box (Cohen and Sutherland). False, with both
// points left anywhere, for a segment wholly outside.
[[nodiscard]] bool ClipSegment(const DataRect& box, DataPoint& a, DataPoint& b);

// Puts a curve's segments, in pixels, together to polylines on a canvas. A million points fall on a few
// hundred columns of pixels, and only what lights pixels is drawn of them. A run of points in one column
// becomes an upright line from the lowest to the highest of them: between two points of a column a line
// lights exactly the pixels between. The line between two such runs is left out where they light all of its
// pixels: a thin line lights pixels at most half a pixel beside it, so its first half lies in the one column
// and its second in the other. The lit pixels are the same, so this is for solid lines; of wide ones the
// second rule is not certain, and a dashed line is left whole. A curve with few points to a column stays one
// polyline.
class CCurveTracer
{
public:
    CCurveTracer(ICanvas& canvas_, const Pen& pen_);
    CCurveTracer(const CCurveTracer&) = delete;
    CCurveTracer& operator=(const CCurveTracer&) = delete;
    ~CCurveTracer() = default;

    // Begins a line, unless the last one ends there.
    void MoveTo(PixelPoint point);
    // There has been a MoveTo since the construction or the last Finish.
    void LineTo(PixelPoint point)
    {
        if (reduces && point.x == current.x)
        {
            current.Extend(point.y);
        }
        else
        {
            GoToColumn(point);
        }
    }
    // Draws what is still kept back.
    void Finish();

private:
    struct Column
    {
        int x = 0;
        int first = 0;
        int lowest = 0;
        int highest = 0;
        int last = 0;
        bool joined = false; // to the column before, by a line
        bool isRun = false;  // of several points

        void Extend(int y)
        {
            lowest = std::min(lowest, y);
            highest = std::max(highest, y);
            last = y;
            isRun = true;
        }
        [[nodiscard]] bool Covers(int y) const { return y >= lowest && y <= highest; }
    };

    [[nodiscard]] bool NeedsLineBetween(const Column& from, const Column& to) const;
    void GoToColumn(PixelPoint point);
    void BeginColumn(PixelPoint point);
    void EndColumn();
    void Append(const Column& column, bool joinedToNext);
    void Append(PixelPoint point);
    void EndPolyline();

    ICanvas& canvas;
    const Pen pen;
    const bool reduces;
    std::optional<Column> previous; // complete
    bool open = false;              // there is a current column
    Column current;
    std::vector<PixelPoint> points; // of the polyline under way
};
