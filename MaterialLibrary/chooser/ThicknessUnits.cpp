#include "chooser/ThicknessUnits.h"

#include "shared/Misc_String/Decimal.h"
#include "shared/Misc_String/FormatNumber.h"

#include <algorithm>
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

std::optional<double> ParseThickness(std::string_view text)
{
    constexpr std::string_view blanks = " \t";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    text = text.substr(0, text.find_last_not_of(blanks) + 1);
    const DecimalResult number = ParseDecimal(text);
    const bool whole = number.verdict != DecimalVerdict::None && number.stop == text.data() + text.size();
    return whole && std::isfinite(number.value) ? std::optional(number.value) : std::nullopt;
}

double ThicknessToMetres(double thickness, unsigned units)
{
    return thickness / GetThicknessUnit(units).factor;
}
