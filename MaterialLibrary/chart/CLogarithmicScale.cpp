#include "chart/CLogarithmicScale.h"

#include "chart/CLinearScale.h"
#include "chart/Decades.h"
#include "chart/Geometry.h"
#include "chart/TickSearch.h"
#include "chart/TickUnderPixel.h"
#include "chart/TolerantRounding.h"

#include <cmath>
#include <initializer_list>

namespace
{
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
} // namespace

double CLogarithmicScale::Transform(double value) const
{
    return std::log10(value);
}

double CLogarithmicScale::ChooseStep(double lo, double hi, int pixels) const
{
    return ChooseDecadeStride(lo, hi, pixels);
}

double CLogarithmicScale::GetFirstTick(double value, double /*step*/) const
{
    return RaiseTen(FloorTolerant(std::log10(value)));
}

double CLogarithmicScale::GetLastTick(double value, double step, double firstTick) const
{
    const double factor = RaiseTen(step);
    double tick = firstTick;
    while (tick < value && tick * factor > tick && std::isfinite(tick * factor))
    {
        tick *= factor;
    }
    return tick;
}

double CLogarithmicScale::GetTickValue(double origin, double step, double steps) const
{
    return ScaleByDecades(origin, steps * step);
}

double CLogarithmicScale::GetValueAtPixel(int pixel, const AxisPlacement& placement) const
{
    const double ticks = GetTicksAtPixel(pixel, placement);
    const double value = ScaleByDecades(placement.value, ticks * placement.step);
    return ticks == std::floor(ticks) ? value : SnapToMinorTick(value, pixel, placement);
}

double CLogarithmicScale::GetValueAtOffset(double origin, double pixels, double scale) const
{
    return ScaleByDecades(origin, pixels / scale);
}

double CLogarithmicScale::ShiftBack(double origin, double step, int steps) const
{
    return ScaleByDecades(origin, -steps * step);
}

const IScale& GetScale(bool logarithmic)
{
    static const CLinearScale linear;
    static const CLogarithmicScale decimal;
    return logarithmic ? static_cast<const IScale&>(decimal) : linear;
}
