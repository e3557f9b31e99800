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
void AppendNumber(std::string& text, double value, std::chars_format format, int precision)
{
    char number[64];
    const std::to_chars_result result =
        std::to_chars(number, number + sizeof number, value, format, precision);
    text.append(number, result.ptr);
}

bool NeedsExponent(const UnitPrefix& prefix)
{
    return prefix.factor < 1e-12 || prefix.factor > 1e12;
}

void AppendScaled(std::string& text, const CAxis& axis, const UnitPrefix& prefix, double value, int precision)
{
    AppendNumber(text, value / prefix.factor, std::chars_format::general, precision);
    if (*prefix.text != '\0') // the empty text is a translation catalogue's header
    {
        text += TranslateOwn(prefix.text);
    }
    text += axis.unit;
}
} // namespace

std::string FormatTickLabel(const CAxis& axis, double value)
{
    const UnitPrefix& prefix = GetUnitPrefix(axis, value);
    std::string text(1, ' ');
    if (!NeedsExponent(prefix))
    {
        AppendScaled(text, axis, prefix, value, 4);
        if (text.find('e') == std::string::npos)
        {
            text += ' ';
            return text;
        }
        text.resize(1);
    }
    AppendNumber(text, value, std::chars_format::scientific, 2);
    text += axis.unit;
    text += ' ';
    return text;
}

std::string FormatCoordinate(const CAxis& axis, double value)
{
    const UnitPrefix& prefix = GetUnitPrefix(axis, value);
    std::string text;
    if (NeedsExponent(prefix))
    {
        AppendNumber(text, value, std::chars_format::scientific, 3);
        text += axis.unit;
    }
    else
    {
        AppendScaled(text, axis, prefix, value, 5);
    }
    return text;
}

std::string FormatReadOut(const CAxis& horizontal, const CAxis& vertical, DataPoint point)
{
    return FormatCoordinate(horizontal, point.x) + ", " + FormatCoordinate(vertical, point.y);
}
