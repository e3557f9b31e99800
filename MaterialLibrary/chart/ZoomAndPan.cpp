#include "chart/ZoomAndPan.h"

#include "chart/CAxisMapping.h"

namespace
{
void RequestWithinLimits(CAxis& axis, double lo, double hi)
{
    axis.requestedMin = lo <= axis.lowerLimit ? axis.lowerLimit : lo;
    axis.requestedMax = hi >= axis.upperLimit ? axis.upperLimit : hi;
    axis.pixelShift = 0;
}

// Hosts rely on the second end being widened by what the first has become.
void WidenNarrowRange(CAxis& axis)
{
    constexpr double narrowest = 1e-9;
    double& lo = axis.requestedMin;
    double& hi = axis.requestedMax;
    if ((hi - lo) / std::fabs(hi + lo) < narrowest)
    {
        const double centre = (hi + lo) / 2.0;
        lo = centre - std::fabs(hi + lo) * narrowest * 0.5;
        hi = centre + std::fabs(hi + lo) * narrowest * 0.5;
    }
}

struct PixelSpan
{
    double from;
    double to;
};

// The rectangle's extent along an axis, in pixels from where the visible minimum stands.
PixelSpan GetSpan(const CChartModel& model, Direction direction, const CAxis& axis, const PixelRect& rect)
{
    const PixelRect& plot = model.frame.plot;
    if (direction == Direction::Horizontal)
    {
        const double origin = plot.left + axis.pixelShift;
        return {rect.left - origin, rect.right - origin};
    }
    const double origin = plot.bottom + axis.pixelShift;
    return {origin - rect.bottom, origin - rect.top};
}

// Whether the rectangle spans the plot and the axis stands where its values are.
bool CoversAxis(const CChartModel& model, Direction direction, const PixelSpan& span)
{
    return span.from == 0.0 && span.to == model.frame.plot.GetLength(direction);
}

// `sign` is -1 where moving the picture with the pixels lowers the values, +1 where it raises them.
void PanAxis(CAxis& axis, const IScale& scale, int pixels, int sign)
{
    const int tickPixels = GetTickPixels(axis);
    if (tickPixels <= 0)
    {
        return;
    }
    const int total = axis.savedPixelShift + pixels;
    const int whole = total / tickPixels;
    const int remainder = total % tickPixels;
    const auto isWithinLimits = [&axis](double lo, double hi)
    { return lo >= axis.lowerLimit && hi <= axis.upperLimit; };

    const double lo = scale.GetTickValue(axis.savedVisibleMin, axis.tickStep, sign * whole);
    const double hi = scale.GetTickValue(axis.savedVisibleMax, axis.tickStep, sign * whole);
    if (!isWithinLimits(lo, hi))
    {
        return;
    }
    axis.visibleMin = axis.requestedMin = lo;
    axis.visibleMax = axis.requestedMax = hi;
    axis.pixelShift = isWithinLimits(scale.GetValueAtOffset(lo, sign * remainder, axis.scale),
                                     scale.GetValueAtOffset(hi, sign * remainder, axis.scale))
                          ? remainder
                          : 0;
}
} // namespace

void ZoomIn(CChartModel& model, const PixelRect& rect)
{
    model.ForEachAxis(
        [&](CAxis& axis, const IScale& scale, Direction direction)
        {
            const PixelSpan span = GetSpan(model, direction, axis, rect);
            if (CoversAxis(model, direction, span))
            {
                // The way over pixels would miss them by a rounding, which costs an interval or a decade.
                RequestWithinLimits(axis, axis.visibleMin, axis.visibleMax);
                axis.kept = {axis.visibleMin, axis.visibleMax, axis.tickStep,
                             model.frame.plot.GetLength(direction)};
                return;
            }
            RequestWithinLimits(axis, scale.GetValueAtOffset(axis.visibleMin, span.from, axis.scale),
                                scale.GetValueAtOffset(axis.visibleMin, span.to, axis.scale));
            if (!scale.IsLogarithmic())
            {
                WidenNarrowRange(axis);
            }
        });
}

void ZoomOut(CChartModel& model, const PixelRect& rect)
{
    model.ForEachAxis(
        [&](CAxis& axis, const IScale& scale, Direction direction)
        {
            const int length = model.frame.plot.GetLength(direction);
            const double half = MultiplyDivide(length, length, rect.GetLength(direction)) / 2.0;
            const PixelSpan span = GetSpan(model, direction, axis, rect);
            const double centre = (span.from + span.to) / 2.0;
            RequestWithinLimits(axis, scale.GetValueAtOffset(axis.visibleMin, centre - half, axis.scale),
                                scale.GetValueAtOffset(axis.visibleMin, centre + half, axis.scale));
        });
}

void SaveRanges(CChartModel& model)
{
    model.ForEachAxis(
        [](CAxis& axis, const IScale&, Direction)
        {
            axis.savedVisibleMin = axis.visibleMin;
            axis.savedVisibleMax = axis.visibleMax;
            axis.savedPixelShift = axis.pixelShift;
        });
}

void Pan(CChartModel& model, int dx, int dy)
{
    model.ForEachAxis(
        [=](CAxis& axis, const IScale& scale, Direction direction)
        {
            const bool horizontal = direction == Direction::Horizontal;
            PanAxis(axis, scale, horizontal ? dx : dy, horizontal ? -1 : 1);
        });
}

void MoveByTicks(CChartModel& model, Direction direction, int ticks)
{
    const IScale& scale = model.GetScale(direction);
    const int steps = direction == Direction::Horizontal ? ticks : -ticks;
    if (steps == 0)
    {
        return;
    }
    for (CAxis& axis : model.GetAxes(direction))
    {
        axis.visibleMin = scale.ShiftBack(axis.visibleMin, axis.tickStep, steps);
        axis.visibleMax = scale.ShiftBack(axis.visibleMax, axis.tickStep, steps);
        axis.requestedMin = axis.visibleMin;
        axis.requestedMax = axis.visibleMax;
    }
}
