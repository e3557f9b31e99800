#pragma once

#include "chart/CChartModel.h"

#include <cmath>

// The ticks of an axis over its visible range, each computed from its number.

// One tick of the axis in whole pixels.
[[nodiscard]] int GetTickPixels(const CAxis& axis);

// From the visible minimum to the visible maximum, in units or decades.
[[nodiscard]] double GetVisibleExtent(const CAxis& axis, const IScale& scale);

// Tick intervals from the visible minimum to the visible maximum.
[[nodiscard]] int CountTickIntervals(const CAxis& axis, const IScale& scale);

// The value of tick `index`, counted from the visible minimum. What a pan's rounding leaves next to 0 is 0.
[[nodiscard]] double GetAxisTick(const CAxis& axis, const IScale& scale, int index);

// The ticks that stand inside the plot, which may be shifted by a part of an interval: the first and the last
// number.
struct TickRange
{
    int first = 0;
    int last = -1;
};
[[nodiscard]] TickRange GetDrawnTicks(const CChartModel& model, Direction direction, const CAxis& axis);

// Where the minor ticks of every interval stand: as parts of the step on a linear axis, as multiples of the
// decade's first value on a logarithmic one.
[[nodiscard]] std::vector<double> ListMinorParts(const CAxis& axis, const IScale& scale);

// The value of such a part of the interval that begins at tick `index`.
[[nodiscard]] double GetMinorTick(const CAxis& axis, const IScale& scale, int index, double part);

// Between the values of one axis and client pixels, as the last layout placed it and a pan shifted it.
class CAxisMapping
{
public:
    CAxisMapping(const CChartModel& model, Direction direction, const CAxis& axis);

    // Where a curve passes.
    [[nodiscard]] int GetPixel(double value) const { return fixedPixel + RoundToPixel(GetDistance(value)); }

    // The same for a value in the visible range, quicker, on an axis that has been laid out.
    [[nodiscard]] bool IsLaidOut() const { return laidOut; }
    [[nodiscard]] int GetVisiblePixel(double value) const
    {
        return fixedPixel + static_cast<int>(AddHalf(GetDistance(value)));
    }

    // The same before it is rounded to a pixel.
    [[nodiscard]] double GetPlace(double value) const { return fixedPixel + GetDistance(value); }

    // Where a tick stands, by its number from the visible minimum: GetValue gives exactly its value there.
    [[nodiscard]] int GetTickPixel(int index) const;

    // Where a minor tick stands. As the ticks it is counted from the axis's lower end.
    [[nodiscard]] int GetMinorTickPixel(double value) const;

    [[nodiscard]] bool IsLogarithmic() const { return logarithmic; }

    [[nodiscard]] double GetValue(int pixel) const { return scale.GetValueAtPixel(pixel, placement); }

private:
    [[nodiscard]] double GetDistance(double value) const
    {
        const double transformed = logarithmic ? std::log10(value) : value; // the scale's Transform, inlined
        return (transformed - origin) * signedScale;
    }

    const IScale& scale;
    const bool logarithmic;
    AxisPlacement placement;
    double transformedMin;
    double origin; // a curve passes fixedPixel there, when transformed
    int fixedPixel;
    double signedScale;
    bool laidOut; // the visible range is no longer than a window
};

// The same for a pair of axes.
struct CurveMapping
{
    CurveMapping(const CChartModel& model, const CurveAxes& axes)
        : horizontal(model, Direction::Horizontal, *axes.horizontal),
          vertical(model, Direction::Vertical, *axes.vertical)
    {
    }

    [[nodiscard]] PixelPoint GetPixel(const DataPoint& value) const
    {
        return {horizontal.GetPixel(value.x), vertical.GetPixel(value.y)};
    }
    [[nodiscard]] PixelPoint GetVisiblePixel(const DataPoint& value) const
    {
        return {horizontal.GetVisiblePixel(value.x), vertical.GetVisiblePixel(value.y)};
    }
    // Pixels that are not rounded.
    [[nodiscard]] DataPoint GetPlace(const DataPoint& value) const
    {
        return {horizontal.GetPlace(value.x), vertical.GetPlace(value.y)};
    }
    [[nodiscard]] DataPoint GetValue(PixelPoint pixel) const
    {
        return {horizontal.GetValue(pixel.x), vertical.GetValue(pixel.y)};
    }

    CAxisMapping horizontal;
    CAxisMapping vertical;
};
