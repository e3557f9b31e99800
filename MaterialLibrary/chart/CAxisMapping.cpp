#include "chart/CAxisMapping.h"

namespace
{
constexpr int smallestMinorGap = 8; // pixels, wished for; a rounder number of parts may leave less
constexpr double mostIntervals = 10'000.0;

std::vector<double> ListPartsOfStep(const CAxis& axis)
{
    const int interval = GetTickPixels(axis);
    const int count = CountSubdivisions(axis.tickStep, interval / smallestMinorGap, interval, false);
    std::vector<double> parts;
    for (int i = 1; i < count; ++i)
    {
        parts.push_back(static_cast<double>(i) / count);
    }
    return parts;
}

// There are some only where a decade is long, so that every decade has its tick.
std::vector<double> ListMultiplesOfDecade(const CAxis& axis)
{
    const double step = 10.0 * ChooseMinorDecadeStep(axis.scale);
    std::vector<double> multiples;
    for (int i = 1; step > 0.0 && i * step < 10.0; ++i)
    {
        if (i * step > 1.0)
        {
            multiples.push_back(i * step);
        }
    }
    return multiples;
}
} // namespace

int GetTickPixels(const CAxis& axis)
{
    return RoundToPixel(axis.tickStep * axis.scale);
}

double GetVisibleExtent(const CAxis& axis, const IScale& scale)
{
    return scale.Transform(axis.visibleMax) - scale.Transform(axis.visibleMin);
}

int CountTickIntervals(const CAxis& axis, const IScale& scale)
{
    const double intervals = RoundHalfAway(GetVisibleExtent(axis, scale) / axis.tickStep);
    return intervals > 0.0 ? static_cast<int>(std::min(intervals, mostIntervals)) : 0;
}

double GetAxisTick(const CAxis& axis, const IScale& scale, int index)
{
    const double value = scale.GetTickValue(axis.visibleMin, axis.tickStep, index);
    return !scale.IsLogarithmic() && std::fabs(value) < 1e-9 * axis.tickStep ? 0.0 : value;
}

TickRange GetDrawnTicks(const CChartModel& model, Direction direction, const CAxis& axis)
{
    // A layout in the middle of a pan leaves the axis with a step that is too fine for its range.
    const double room = model.frame.plot.GetLength(direction) / (axis.tickStep * axis.scale);
    const int intervals =
        std::min(CountTickIntervals(axis, model.GetScale(direction)), std::max(ToPixel(room), 0) + 1);
    // A shift to the right or upwards moves the last tick out of the plot, the opposite shift the first.
    const int towardsMax = direction == Direction::Horizontal ? axis.pixelShift : -axis.pixelShift;
    return {towardsMax < 0 ? 1 : 0, towardsMax > 0 ? intervals - 1 : intervals};
}

std::vector<double> ListMinorParts(const CAxis& axis, const IScale& scale)
{
    if (axis.minorTicks == 0)
    {
        return {};
    }
    return scale.IsLogarithmic() ? ListMultiplesOfDecade(axis) : ListPartsOfStep(axis);
}

double GetMinorTick(const CAxis& axis, const IScale& scale, int index, double part)
{
    return scale.IsLogarithmic() ? part * GetAxisTick(axis, scale, index)
                                 : scale.GetTickValue(axis.visibleMin, axis.tickStep, index + part);
}

CAxisMapping::CAxisMapping(const CChartModel& model, Direction direction, const CAxis& axis)
    : scale(model.GetScale(direction)), logarithmic(scale.IsLogarithmic()),
      transformedMin(scale.Transform(axis.visibleMin))
{
    const PixelRect& plot = model.frame.plot;
    const bool horizontal = direction == Direction::Horizontal;
    placement.pixel = (horizontal ? plot.left : plot.bottom) + axis.pixelShift;
    placement.sign = horizontal ? 1 : -1;
    placement.scale = axis.scale;
    placement.step = axis.tickStep;
    placement.value = axis.visibleMin;
    origin = horizontal ? transformedMin : scale.Transform(axis.visibleMax);
    fixedPixel = horizontal ? placement.pixel : plot.top + axis.pixelShift;
    signedScale = placement.sign * axis.scale;
    const double length = GetVisibleExtent(axis, scale) * axis.scale;
    laidOut = length > 0.0 && length < farthestPixel;
}

int CAxisMapping::GetTickPixel(int index) const
{
    return placement.pixel + placement.sign * ToPixel(placement.GetTickOffset(index));
}

int CAxisMapping::GetMinorTickPixel(double value) const
{
    const double pixels = (scale.Transform(value) - transformedMin) * placement.scale;
    return placement.pixel + placement.sign * RoundToPixel(pixels);
}
