#include "tools/matlib/Wording.h"

#include "MaterialLibrary/IMaterial.h"
#include "tools/matlib/LibraryMessages.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

namespace
{
std::string FormatDigits(double value, int digits)
{
    char text[64];
    const auto end = std::to_chars(text, std::end(text), value, std::chars_format::general, digits).ptr;
    return {text, end};
}

bool IsControl(char character)
{
    return (character >= 0 && character < ' ') || character == '\x7f';
}
} // namespace

std::string FormatNumber(double value)
{
    return FormatDigits(value, 6);
}

std::string FormatExactly(double value)
{
    char text[64];
    return {text, std::to_chars(text, std::end(text), value).ptr};
}

std::string FormatHertz(double frequency)
{
    return FormatDigits(frequency, 12);
}

std::string FormatFrequency(double frequency)
{
    struct Unit
    {
        double scale;
        const char* name;
    };
    constexpr Unit units[] = {{1e12, " THz"}, {1e9, " GHz"}, {1e6, " MHz"}, {1e3, " kHz"}, {1.0, " Hz"}};
    const Unit* unit = units;
    while (unit->scale > 1.0 && !(std::abs(frequency) >= unit->scale))
    {
        ++unit;
    }
    return FormatHertz(frequency / unit->scale) + unit->name;
}

std::string FormatCount(int count, std::string_view noun)
{
    return std::to_string(count) + " " + std::string(noun) + (count == 1 ? "" : "s");
}

std::string MakePrintable(std::string_view text)
{
    std::string printable(text);
    std::replace_if(printable.begin(), printable.end(), IsControl, '?');
    return printable;
}

std::string Quote(std::string_view text)
{
    return "\"" + MakePrintable(text) + "\"";
}

std::string JoinLines(std::string_view text)
{
    std::string line;
    for (const char character : text)
    {
        if (character == '\n')
        {
            line += ' ';
        }
        else if (character != '\r')
        {
            line += character;
        }
    }
    return line;
}

const PropertyWords& WordsOf(int tableKind)
{
    return *std::ranges::find(properties, tableKind, &PropertyWords::kind);
}

std::string_view KindWord(const IMaterial& material)
{
    switch (material.GetKind())
    {
    case MLMATERIAL_DIELECTRIC:
        return "dielectric";
    case MLMATERIAL_METAL:
        return "metal";
    default:
        return "unknown";
    }
}

std::string_view TechnologyWord(int technology)
{
    switch (technology)
    {
    case MLTECHNOLOGY_CORE:
        return GetLibraryText(MLTEXT_CORE);
    case MLTECHNOLOGY_PREPREG:
        return GetLibraryText(MLTEXT_PREPREG);
    case MLTECHNOLOGY_FLEXCORE:
        return GetLibraryText(MLTEXT_FLEXCORE);
    default:
        return "";
    }
}

std::string_view TechnologyWord(const IMaterial& material)
{
    int technology = MLTECHNOLOGY_UNKNOWN;
    material.GetIntAttribute(MLATTR_TECHNOLOGY, &technology);
    return TechnologyWord(technology);
}
