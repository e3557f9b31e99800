#pragma once

#include "chart/Geometry.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// What a chart draws as one curve. The caller owns it and keeps it alive as long as a chart shows it. The
// order of the members is kept.
struct CChartCurve
{
    std::vector<DataPoint> points;
    DataRect bounds; // the owner keeps it current: UpdateBounds after every change of the points
    Colour colour = 0;
    std::int32_t lineStyle = -1; // a PenStyle, or negative: solid lines, and markers where the chart has them
    std::int64_t markerShape = 0; // 0 a square, otherwise a diamond
    std::string name;
    std::vector<std::string> pointLabels; // one per point, or fewer

    // Sets the bounds around all points with finite coordinates; without any they are all 0.
    void UpdateBounds();

    // std::out_of_range "invalid vector<T> subscript" for an index beyond the points.
    [[nodiscard]] const DataPoint& GetPoint(std::int32_t index) const;

    // Empty for a point that has no label, and for -1.
    [[nodiscard]] std::string_view GetPointLabel(std::int32_t index) const;
};
