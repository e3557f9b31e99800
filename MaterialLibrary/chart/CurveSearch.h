#pragma once

#include "chart/CChartModel.h"

#include <optional>

// Finding curves and their points near a place in the window.

// The topmost curve, searched from the last to the first, of which a segment passes within some pixels of the
// point; -1 for none.
[[nodiscard]] std::int64_t HitTest(const CChartModel& model, PixelPoint point);

struct CurvePoint
{
    std::int64_t curve;
    std::int32_t point;
};

// Of the points that stand in the plot at most 4 pixels to the left or right of the cursor the one nearest to
// it; of equally near ones the first of the first curve. The cursor has to be in the plot.
[[nodiscard]] std::optional<CurvePoint> FindNearestPoint(const CChartModel& model, PixelPoint cursor);

// The curve's value at a horizontal one, on the last segment that spans it; nothing beside the curve.
[[nodiscard]] std::optional<double> InterpolateCurve(const CChartCurve& curve, double x);

struct SnappedPoint
{
    DataPoint value;
    PixelPoint pixel;
};

// The point of the curve at a horizontal value: on the last segment that spans it, or else the curve's nearer
// end. Nothing for a curve without points or axes. std::invalid_argument for an unknown curve.
[[nodiscard]] std::optional<SnappedPoint> SnapToCurve(const CChartModel& model, std::int64_t curve, double x);
