#include "writer/SpellNumber.h"

#include "shared/Misc_String/EngineeringNumber.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <iterator>

namespace
{
constexpr const char* beyondAll = "1e999"; // reads as infinity

std::string SignOf(double value)
{
    return std::signbit(value) ? "-" : "";
}

bool LoadsTo(const std::string& spelling, double frequency)
{
    double loaded = 0.0;
    return ParseEngineeringNumber(spelling, &loaded) &&
           std::bit_cast<std::uint64_t>(loaded) == std::bit_cast<std::uint64_t>(frequency);
}
} // namespace

std::string SpellNumber(double value)
{
    if (std::isinf(value))
    {
        return SignOf(value) + beyondAll;
    }
    std::array<char, 32> digits{};
    std::string spelling(digits.data(), std::to_chars(digits.data(), std::end(digits), value).ptr);
    const std::size_t exponent = spelling.find('e');
    if (exponent != std::string::npos) // 1e+09, 2e-04
    {
        const bool isNegative = spelling[exponent + 1] == '-';
        const std::size_t first = spelling.find_first_not_of('0', exponent + 2);
        spelling = spelling.substr(0, exponent + 1) + (isNegative ? "-" : "") + spelling.substr(first);
    }
    return spelling;
}

std::string SpellFrequency(double frequency)
{
    if (std::isinf(frequency)) // the number itself has to be one, the suffix makes it infinite
    {
        return SignOf(frequency) + "1e308THz";
    }
    struct Unit
    {
        double factor;
        const char* name;
    };
    constexpr Unit units[] = {{1e12, "THz"}, {1e9, "GHz"}, {1e6, "MHz"}, {1e3, "kHz"}};
    std::string plain = SpellNumber(frequency) + "Hz";
    for (const auto& [factor, name] : units)
    {
        if (std::abs(frequency) >= factor)
        {
            const std::string spelling = SpellNumber(frequency / factor) + name;
            return spelling.size() <= plain.size() + 1 && LoadsTo(spelling, frequency) ? spelling : plain;
        }
    }
    return plain;
}
