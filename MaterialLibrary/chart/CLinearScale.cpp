#include "chart/CLinearScale.h"

#include "chart/Geometry.h"
#include "chart/TickSearch.h"
#include "chart/TickUnderPixel.h"
#include "chart/TolerantRounding.h"

double CLinearScale::ChooseStep(double lo, double hi, int pixels) const
{
    return ChooseLinearStep(lo, hi, pixels);
}

double CLinearScale::GetFirstTick(double value, double step) const
{
    return FloorTolerant(value / step) * step;
}

double CLinearScale::GetLastTick(double value, double step, double /*firstTick*/) const
{
    return CeilTolerant(value / step) * step;
}

double CLinearScale::GetTickValue(double origin, double step, double steps) const
{
    return origin + steps * step;
}

double CLinearScale::GetValueAtPixel(int pixel, const AxisPlacement& placement) const
{
    return GetTicksAtPixel(pixel, placement) * placement.step + placement.value;
}

double CLinearScale::GetValueAtOffset(double origin, double pixels, double scale) const
{
    return origin + pixels / scale;
}

double CLinearScale::ShiftBack(double origin, double step, int steps) const
{
    return RoundHalfAway(origin / step - steps) * step;
}
