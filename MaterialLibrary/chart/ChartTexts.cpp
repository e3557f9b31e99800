#include "chart/ChartTexts.h"

#include "shared/Translation/Translate.h"

#include <array>
#include <charconv>
#include <cmath>

namespace
{
struct UnitPrefix
{
    const char* text;
    double factor;
};

constexpr std::array<UnitPrefix, 14> prefixes = {{{"f", 1e-15},
                                                  {"p", 1e-12},
                                                  {"n", 1e-9},
                                                  {"u", 1e-6},
                                                  {"m", 1e-3},
                                                  {"", 1.0},
                                                  {"k", 1e3},
                                                  {"M", 1e6},
                                                  {"G", 1e9},
                                                  {"T", 1e12},
                                                  {"P", 1e15},
                                                  {"E", 1e18},
                                                  {"Z", 1e21},
                                                  {"Y", 1e24}}};
constexpr std::size_t noPrefix = 5;

// The prefix under which the axis writes a value: the largest whose factor lies below it, so 1000 still goes
// without and 1500 is 1.5k, unless the axis begins with the factor; none for 0 and on an axis without
// automatic prefixes.
const UnitPrefix& GetUnitPrefix(const CAxis& axis, double value)
{
    if (!axis.automaticPrefix || value == 0.0)
    {
        return prefixes[noPrefix];
    }
    std::size_t row = 0;
    const auto reaches = [&axis, size = std::fabs(value)](double factor)
    { return axis.prefixFromFactor ? size >= factor : size > factor; };
    while (row + 1 < prefixes.size() && reaches(prefixes[row + 1].factor))
    {
        ++row;
    }
    return prefixes[row];
}

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
    return *prefix.text == '\0' ? "" : TranslateOwn(prefix.text);
}

std::string Pad(const std::string& text)
{
    std::string padded(1, ' ');
    padded += text;
    padded += ' ';
    return padded;
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
std::string FormatReadOut(const CAxis& horizontal, const CAxis& vertical, DataPoint point)
{
    return FormatCoordinate(horizontal, point.x) + ", " + FormatCoordinate(vertical, point.y);
}
