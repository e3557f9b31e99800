#pragma once

#include "MaterialLibrary/chart/ICanvas.h"

#include <vector>

// Puts a curve's segments, in pixels, together to polylines on a canvas. A million points fall on a few
// hundred columns of pixels: of a run of points in one column only the first, the lowest, the highest and the
// last are drawn. Between two points of a column a solid line lights exactly the pixels between, so the lit
// pixels are the same. A dashed line is left whole.
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
        if (reduces && point.x == column.x)
        {
            column.Extend(point.y);
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

        void Extend(int y)
        {
            lowest = std::min(lowest, y);
            highest = std::max(highest, y);
            last = y;
        }
    };

    void GoToColumn(PixelPoint point);
    void BeginColumn(PixelPoint point) { column = {point.x, point.y, point.y, point.y, point.y}; }
    void EndColumn();
    void Append(int y);

    ICanvas& canvas;
    const Pen pen;
    const bool reduces;
    bool open = false; // there is a column under way
    Column column;
    std::vector<PixelPoint> points; // of the polyline under way
};
