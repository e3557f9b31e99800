#include "chart/Scale.h"

#include "chart/Geometry.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace
{
// Keeps the sign of the value.
double GetFraction(double value)
{
    double whole = 0.0;
    return std::modf(value, &whole);
}

constexpr double tolerance = 1e-12;
constexpr int smallestInterval = 20; // pixels
constexpr double stepBases[] = {0.1, 0.2, 0.25, 0.5};

// Beyond these a search has left every range that can be drawn.
constexpr double smallestStep = 1e-300;
constexpr double largestStep = 1e300;

struct StepChoice
{
    double step = 0.0; // 0: none yet
    double waste = 0.0;

    void Consider(double candidate, double span, double extent)
    {
        const double candidateWaste = span - extent;
        const bool equal = std::fabs(candidateWaste - waste) / span < 1e-6;
        if (step == 0.0 || candidateWaste < waste || (equal && candidate < step))
        {
            step = candidate;
            waste = candidateWaste;
        }
    }
};

// 1, 2, 2.5 and 5 times any power of ten give 10, 20, 25 and 50.
int GetMantissa(double step)
{
    if (!(step > 0.0) || !std::isfinite(step))
    {
        return 0;
    }
    while (step > std::numeric_limits<std::int32_t>::max())
    {
        step /= 10.0;
    }
    while (RoundHalfAway(step) < 10.0)
    {
        step *= 10.0;
    }
    while (RoundHalfAway(step) > 50.0)
    {
        step /= 10.0;
    }
    return static_cast<int>(RoundHalfAway(step));
}

class CLinearScale final : public IScale
{
public:
    double Transform(double value) const override { return value; }
    double ChooseStep(double lo, double hi, int pixels) const override
    {
        return ChooseLinearStep(lo, hi, pixels);
    }
    double GetFirstTick(double value, double step) const override
    {
        return FloorTolerant(value / step) * step;
    }
    double GetLastTick(double value, double step, double /*firstTick*/) const override
    {
        return CeilTolerant(value / step) * step;
    }
    double GetTickValue(double origin, double step, double steps) const override
    {
        return origin + steps * step;
    }
    double GetValueAtPixel(int pixel, const AxisPlacement& placement) const override
    {
        return placement.GetTicksAtPixel(pixel) * placement.step + placement.value;
    }
    double GetValueAtOffset(double origin, double pixels, double scale) const override
    {
        return origin + pixels / scale;
    }
    double ShiftBack(double origin, double step, int steps) const override
    {
        return RoundHalfAway(origin / step - steps) * step;
    }
    bool IsLogarithmic() const override { return false; }
};

// Of the two minor ticks around the value under a pixel the one that stands on the pixel, or else the value.
double SnapToMinorTick(double value, int pixel, const AxisPlacement& placement)
{
    const double minorStep =
        10.0 * ChooseMinorDecadeStep(placement.scale) * RaiseTen(FloorTolerant(std::log10(value)));
    if (!(minorStep > 0.0))
    {
        return value;
    }
    const double below = FloorTolerant(value / minorStep);
    for (const double minor : {below * minorStep, (below + 1.0) * minorStep})
    {
        const double decades = std::log10(minor) - std::log10(placement.value);
        if (minor > 0.0 &&
            RoundHalfAway(decades * placement.scale) * placement.sign + placement.pixel == pixel)
        {
            return minor;
        }
    }
    return value;
}

class CLogarithmicScale final : public IScale
{
public:
    double Transform(double value) const override { return std::log10(value); }
    double ChooseStep(double lo, double hi, int pixels) const override
    {
        return ChooseDecadeStride(lo, hi, pixels);
    }
    double GetFirstTick(double value, double /*step*/) const override
    {
        return RaiseTen(FloorTolerant(std::log10(value)));
    }
    double GetLastTick(double value, double step, double firstTick) const override
    {
        const double factor = RaiseTen(step);
        double tick = firstTick;
        while (tick < value && tick * factor > tick && std::isfinite(tick * factor))
        {
            tick *= factor;
        }
        return tick;
    }
    double GetTickValue(double origin, double step, double steps) const override
    {
        return ScaleByDecades(origin, steps * step);
    }
    double GetValueAtPixel(int pixel, const AxisPlacement& placement) const override
    {
        const double ticks = placement.GetTicksAtPixel(pixel);
        const double value = ScaleByDecades(placement.value, ticks * placement.step);
        return ticks == std::floor(ticks) ? value : SnapToMinorTick(value, pixel, placement);
    }
    double GetValueAtOffset(double origin, double pixels, double scale) const override
    {
        return ScaleByDecades(origin, pixels / scale);
    }
    double ShiftBack(double origin, double step, int steps) const override
    {
        return ScaleByDecades(origin, -steps * step);
    }
    bool IsLogarithmic() const override { return true; }
};
} // namespace

double FloorTolerant(double value)
{
    const double fraction = GetFraction(value);
    return fraction > 0.0 && 1.0 - fraction < tolerance ? std::ceil(value) : std::floor(value);
}

double CeilTolerant(double value)
{
    const double fraction = GetFraction(value);
    return fraction > 0.0 && fraction < tolerance ? std::floor(value) : std::ceil(value);
}

double RaiseTen(double exponent)
{
    constexpr double largestExact = 22.0;
    double left = std::fabs(exponent);
    if (left > largestExact || left != std::floor(left))
    {
        return std::pow(10.0, exponent);
    }
    double power = 1.0;
    for (; left > 0.0; left -= 1.0)
    {
        power *= 10.0;
    }
    return exponent < 0.0 ? 1.0 / power : power;
}

double ScaleByDecades(double value, double decades)
{
    return decades < 0.0 ? value / RaiseTen(-decades) : value * RaiseTen(decades);
}

IntervalCount CountIntervals(double lo, double hi, double step)
{
    constexpr auto ceiling = std::numeric_limits<std::int32_t>::max();
    const double first = FloorTolerant(lo / step);
    const double last = CeilTolerant(hi / step);
    const double span = last * step - first * step;
    const double count = RoundHalfAway(span / step);
    if (!(count <= ceiling))
    {
        return {ceiling, span};
    }
    return {static_cast<std::int32_t>(std::max(count, -static_cast<double>(ceiling))), span};
}

double ChooseLinearStep(double lo, double hi, int pixels)
{
    const int allowed = std::max(pixels / smallestInterval, 2);
    const double extent = hi - lo;
    // Most steps that are tried are far from the range's size. There its length decides, without a count.
    const bool isRange = std::isfinite(extent) && extent > 0.0;
    const auto fits = [=](double step)
    {
        const double intervals = extent / step;
        if (isRange && (intervals < 0.5 || intervals > 2.0 * allowed + 2.0))
        {
            return intervals < 0.5;
        }
        return CountIntervals(lo, hi, step).count <= allowed;
    };
    StepChoice choice;
    for (double step : stepBases)
    {
        while (step > smallestStep && fits(step))
        {
            step /= 10.0;
        }
        while (step < largestStep && !fits(step))
        {
            step *= 10.0;
        }
        for (; lo < hi && fits(step); step /= 10.0)
        {
            choice.Consider(step, CountIntervals(lo, hi, step).span, extent);
            if (step <= smallestStep)
            {
                break;
            }
        }
    }
    if (choice.step == 0.0)
    {
        throw std::invalid_argument("no tick step for this range");
    }
    return choice.step;
}

double ChooseDecadeStride(double lo, double hi, int pixels)
{
    const double decades = CeilTolerant(std::log10(hi)) - FloorTolerant(std::log10(lo));
    const double length = std::max(pixels, 1);
    double stride = 1.0;
    if (!std::isfinite(decades))
    {
        return stride;
    }
    while (length * stride / decades < smallestInterval)
    {
        stride += 1.0;
    }
    return stride;
}

double ChooseMinorDecadeStep(double pixelsPerDecade)
{
    for (const double step : stepBases)
    {
        if (RoundHalfAway(-std::log10(1.0 - step) * pixelsPerDecade) >= 10.0)
        {
            return step;
        }
    }
    return 0.0;
}

int CountSubdivisions(double step, int intervalLength, int budget, bool logarithmic)
{
    if (intervalLength <= 0)
    {
        return 1;
    }
    const std::int64_t part = (std::int64_t{intervalLength} / 2 + budget) / intervalLength;
    int count = 1;
    for (std::int64_t sum = part; count < 10 && count < intervalLength && sum < budget; sum += part)
    {
        ++count;
    }
    if (logarithmic)
    {
        return count;
    }
    const int mantissa = GetMantissa(step);
    if (count == 3)
    {
        count = 4;
    }
    if ((mantissa == 10 || mantissa == 20) && count == 4)
    {
        return 5;
    }
    if (mantissa == 25 && count >= 5 && count <= 8)
    {
        return 8;
    }
    return count < 6 ? count : 10;
}

double AxisPlacement::GetTickOffset(double tick) const
{
    return RoundHalfAway(tick * scale * step);
}

double AxisPlacement::GetTicksAtPixel(int at) const
{
    const double distance = static_cast<double>(at - pixel) * sign;
    const double tick = FloorTolerant(distance / scale / step);
    const double here = GetTickOffset(tick);
    const double next = GetTickOffset(tick + 1.0);
    if (!(next > here))
    {
        return distance / scale / step; // ticks closer than pixels
    }
    return (distance - here) / (next - here) + tick;
}

const IScale& GetScale(bool logarithmic)
{
    static const CLinearScale linear;
    static const CLogarithmicScale decimal;
    return logarithmic ? static_cast<const IScale&>(decimal) : linear;
}
