#include "chooser/ThicknessUnits.h"

#include "shared/Misc_String/FormatNumber.h"

#include <cmath>

const ThicknessUnit& GetThicknessUnit(unsigned units)
{
    return thicknessUnits[units == MLUNITS_METRIC ? MLUNITS_METRIC : MLUNITS_ENGLISH];
}

double ThicknessFromMetres(double metres, unsigned units)
{
    constexpr double step = 0.0001;
    const double thickness = GetThicknessUnit(units).factor * metres;
    const double half = thickness > 0.0 ? 0.5 : -0.5;
    const double steps = std::trunc(thickness / step + half) + 0.0; // a negative zero becomes positive
    return steps * step;
}

std::string FormatThickness(double metres, unsigned units)
{
    return FormatNumber(ThicknessFromMetres(metres, units), 13);
}

double ThicknessToMetres(double thickness, unsigned units)
{
    return thickness / GetThicknessUnit(units).factor;
}
