#include "chart/ChartTexts.h"

#include "chart/UnitPrefix.h"
#include "shared/Translation/Translate.h"

#include <charconv>

namespace
{
// As printf's %.*g and %.*e do in the "C" locale.
std::string FormatNumber(double value, std::chars_format format, int precision)
{
    char text[64];
    const std::to_chars_result result = std::to_chars(text, text + sizeof text, value, format, precision);
    return {text, result.ptr};
}

bool NeedsExponent(const UnitPrefix& prefix)
{
    return prefix.factor < 1e-12 || prefix.factor > 1e12;
}

std::string TranslatePrefix(const UnitPrefix& prefix)
{
    // The empty text is a translation catalogue's header.
    return *prefix.text == '\0' ? "" : translate(moduleDomain, moduleCatalogue, prefix.text);
}

std::string Pad(const std::string& text)
{
    std::string padded(1, ' ');
    padded += text;
    padded += ' ';
    return padded;
}

std::string FormatCoordinate(const CAxis& axis, double value)
{
    const UnitPrefix& prefix = GetUnitPrefix(axis, value);
    if (NeedsExponent(prefix))
    {
        return FormatNumber(value, std::chars_format::scientific, 3) + axis.unit;
    }
    return FormatNumber(value / prefix.factor, std::chars_format::general, 5) + TranslatePrefix(prefix) +
           axis.unit;
}
} // namespace

std::string FormatTickLabel(const CAxis& axis, double value)
{
    const UnitPrefix& prefix = GetUnitPrefix(axis, value);
    if (!NeedsExponent(prefix))
    {
        std::string text = Pad(FormatNumber(value / prefix.factor, std::chars_format::general, 4) +
                               TranslatePrefix(prefix) + axis.unit);
        if (text.find('e') == std::string::npos)
        {
            return text;
        }
    }
    return Pad(FormatNumber(value, std::chars_format::scientific, 2) + axis.unit);
}

std::string FormatReadOut(const CAxis& horizontal, const CAxis& vertical, DataPoint point)
{
    return FormatCoordinate(horizontal, point.x) + ", " + FormatCoordinate(vertical, point.y);
}
