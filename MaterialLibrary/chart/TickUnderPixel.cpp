#include "chart/TickUnderPixel.h"

#include "chart/Geometry.h"
#include "chart/TolerantRounding.h"

double GetTickOffset(double tick, const AxisPlacement& placement)
{
    return RoundHalfAway(tick * placement.scale * placement.step);
}

double GetTicksAtPixel(int pixel, const AxisPlacement& placement)
{
    const double distance = static_cast<double>(pixel - placement.pixel) * placement.sign;
    const double tick = FloorTolerant(distance / placement.scale / placement.step);
    const double here = GetTickOffset(tick, placement);
    const double next = GetTickOffset(tick + 1.0, placement);
    if (!(next > here))
    {
        return distance / placement.scale / placement.step; // ticks closer than pixels
    }
    return (distance - here) / (next - here) + tick;
}
