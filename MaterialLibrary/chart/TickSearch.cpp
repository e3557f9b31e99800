#include "chart/TickSearch.h"

#include "chart/Geometry.h"
#include "chart/TolerantRounding.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace
{
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
} // namespace

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
    StepChoice choice;
    if (lo < hi)
    {
        for (double step : stepBases)
        {
            while (step > smallestStep && CountIntervals(lo, hi, step).count <= allowed)
            {
                step /= 10.0;
            }
            while (step < largestStep && CountIntervals(lo, hi, step).count > allowed)
            {
                step *= 10.0;
            }
            IntervalCount intervals = CountIntervals(lo, hi, step);
            while (intervals.count <= allowed)
            {
                choice.Consider(step, intervals.span, hi - lo);
                if (step <= smallestStep)
                {
                    break;
                }
                step /= 10.0;
                intervals = CountIntervals(lo, hi, step);
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
