#include "tools/matlib/QuantityParsing.h"

#include "tools/matlib/NearestNames.h"
#include "tools/matlib/Wording.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace
{
struct NumberAndRest
{
    double number;
    std::string_view numberText;
    std::string_view rest; // without blanks at its start
    bool isNumber;
};

NumberAndRest TakeNumber(std::string_view text)
{
    NumberAndRest taken{0.0, {}, text, false};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), taken.number);
    if (error != std::errc() || !std::isfinite(taken.number))
    {
        return taken;
    }
    taken.isNumber = true;
    taken.numberText = text.substr(0, static_cast<std::size_t>(end - text.data()));
    taken.rest = text.substr(taken.numberText.size());
    taken.rest.remove_prefix(std::min(taken.rest.find_first_not_of(' '), taken.rest.size()));
    return taken;
}

struct FrequencyUnit
{
    std::string_view text;
    double scale;
    std::string_view advised;
};
constexpr FrequencyUnit frequencyUnits[] = {
    {"", 1.0, ""},       {"Hz", 1.0, "Hz"},   {"k", 1e3, "kHz"},  {"K", 1e3, "kHz"},
    {"kHz", 1e3, "kHz"}, {"KHz", 1e3, "kHz"}, {"M", 1e6, "MHz"},  {"MHz", 1e6, "MHz"},
    {"G", 1e9, "GHz"},   {"GHz", 1e9, "GHz"}, {"T", 1e12, "THz"}, {"THz", 1e12, "THz"},
};

std::string DescribeBadUnit(std::string_view text, const NumberAndRest& taken)
{
    if (taken.rest.starts_with(','))
    {
        return Quote(text) + " has a comma; write the decimal sign as a point, for example 2.5GHz";
    }
    for (const FrequencyUnit& unit : frequencyUnits)
    {
        if (EqualIgnoringCase(unit.text, taken.rest))
        {
            return Quote(text) +
                   " is ambiguous, since upper and lower case differ in units (M is mega, m is "
                   "milli); did you mean " +
                   std::string(taken.numberText) + std::string(unit.advised) + "?";
        }
    }
    return Quote(text) + " has an unknown unit; use Hz, kHz, MHz, GHz or THz";
}
} // namespace

Quantity ParseFrequency(std::string_view text)
{
    const NumberAndRest taken = TakeNumber(text);
    if (!taken.isNumber)
    {
        return {0.0, Quote(text) + " is no frequency; write for example 2.5GHz, 100kHz or 1e9"};
    }
    for (const FrequencyUnit& unit : frequencyUnits)
    {
        if (unit.text != taken.rest)
        {
            continue;
        }
        const double frequency = taken.number * unit.scale;
        if (!(frequency > 0.0) || !std::isfinite(frequency))
        {
            return {0.0, Quote(text) + " is out of range; a frequency is above 0"};
        }
        return {frequency, {}};
    }
    return {0.0, DescribeBadUnit(text, taken)};
}

Quantity ParseTemperature(std::string_view text)
{
    constexpr double absoluteZero = -273.15;
    const NumberAndRest taken = TakeNumber(text);
    if (!taken.isNumber || !(taken.rest.empty() || taken.rest == "C"))
    {
        return {0.0, Quote(text) + " is no temperature; write degrees Celsius, for example 25"};
    }
    if (taken.number < absoluteZero)
    {
        return {0.0, Quote(text) + " is below absolute zero"};
    }
    return {taken.number, {}};
}

Quantity ParseLength(std::string_view text)
{
    struct Unit
    {
        std::string_view name;
        double metres;
    };
    constexpr Unit units[] = {{"um", 1e-6}, {"mm", 1e-3},     {"cm", 1e-2},
                              {"m", 1.0},   {"mil", 25.4e-6}, {"in", 25.4e-3}};
    const NumberAndRest taken = TakeNumber(text);
    const auto unit = std::ranges::find(units, taken.rest, &Unit::name);
    if (!taken.isNumber || unit == std::end(units) || taken.number < 0.0)
    {
        return {0.0, Quote(text) + " is no length; write a number with um, mm or mil, for example 100um"};
    }
    return {taken.number * unit->metres, {}};
}

ParsedLengths ParseLengthRange(std::string_view text)
{
    const std::size_t dots = text.find("..");
    if (dots == std::string_view::npos)
    {
        return {{},
                Quote(text) + " is no range; write FROM..TO, for example 100um..0.2mm, ..150um or 4mil.."};
    }
    ParsedLengths parsed;
    const std::string_view shortest = text.substr(0, dots);
    const std::string_view longest = text.substr(dots + 2);
    const auto take = [&parsed](std::string_view end, double& target)
    {
        if (!end.empty())
        {
            const Quantity length = ParseLength(end);
            target = length.value;
            parsed.problem = parsed.problem.empty() ? length.problem : parsed.problem;
        }
    };
    take(shortest, parsed.range.shortest);
    take(longest, parsed.range.longest);
    return parsed;
}

Quantity ParseWholeNumber(std::string_view text, int least, int most)
{
    int number = 0;
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, number);
    if (error != std::errc() || end != last || number < least || number > most)
    {
        return {0.0, Quote(text) + " is no whole number from " + std::to_string(least) + " to " +
                         std::to_string(most)};
    }
    return {static_cast<double>(number), {}};
}

std::vector<std::string> SplitPaths(const std::vector<std::string>& lists)
{
    std::vector<std::string> paths;
    for (std::string_view list : lists)
    {
        while (!list.empty())
        {
            const std::string_view path = list.substr(0, list.find(';'));
            if (!path.empty())
            {
                paths.emplace_back(path);
            }
            list.remove_prefix(std::min(path.size() + 1, list.size()));
        }
    }
    return paths;
}
