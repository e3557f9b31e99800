#include "tools/matlib/import/CellNumber.h"

#include "shared/Misc_String/Decimal.h"
#include "tools/matlib/NearestNames.h"
#include "tools/matlib/Wording.h"

#include <algorithm>
#include <charconv>

namespace
{
bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// The digits as one whole number times so much.
std::string Multiply(std::string digits, unsigned factor)
{
    unsigned carried = 0;
    for (std::size_t i = digits.size(); i-- > 0;)
    {
        carried += static_cast<unsigned>(digits[i] - '0') * factor;
        digits[i] = static_cast<char>('0' + carried % 10);
        carried /= 10;
    }
    return carried == 0 ? digits : std::to_string(carried) + digits;
}

// The number, which has a point, times factor * 10^exponent, rounded once.
DecimalResult Scale(std::string_view number, const CellUnit& unit)
{
    const std::size_t letter = std::min(number.find_first_of("eE"), number.size());
    long exponent = 0;
    if (letter < number.size())
    {
        const std::size_t first = letter + (number[letter + 1] == '+' ? 2 : 1);
        const auto parsed = std::from_chars(number.data() + first, number.data() + number.size(), exponent);
        exponent = parsed.ec == std::errc() ? std::clamp(exponent, -100000000L, 100000000L)
                                            : (number[first] == '-' ? -100000000L : 100000000L);
    }
    std::string digits;
    std::string sign;
    bool isFraction = false;
    for (const char c : number.substr(0, letter))
    {
        sign += c == '-' ? "-" : "";
        isFraction = isFraction || c == '.';
        if (IsDigit(c))
        {
            digits += c;
            exponent -= isFraction ? 1 : 0;
        }
    }
    return ParseDecimal(sign + Multiply(std::move(digits), unit.factor) + "e" +
                        std::to_string(exponent + unit.exponent));
}

std::string DescribeComma(std::string_view cell)
{
    return Quote(cell) +
           " has a comma. If this is the decimal sign, say --decimal comma; if it separates thousands, "
           "write the number without it.";
}

std::string DescribePoint(std::string_view cell)
{
    return Quote(cell) +
           " has a point, but --decimal comma says that the decimal sign is a comma. Write the number "
           "without separators of thousands.";
}

std::string DescribeNoNumber(std::string_view cell)
{
    if (LooksLikeNoValue(cell))
    {
        return Quote(cell) + " is no number. If it says that there is no value, say so: --empty " +
               Quote(cell) + ".";
    }
    return Quote(cell) + " is no number.";
}

std::string DescribeBadUnit(std::string_view cell, std::string_view unit, Dimension dimension)
{
    if (IsDigit(unit.front()) || unit.front() == '\'')
    {
        return Quote(cell) +
               " has something between its digits. Write the number without separators of thousands.";
    }
    const std::string units = ListUnits(dimension);
    const CellUnit* const meant = FindUnitInAnyCase(dimension, unit);
    return Quote(cell) + ": " + Quote(unit) +
           (units.empty() ? " stands behind a number that has no unit."
            : meant != nullptr
                ? " is no unit, since the letter case counts; did you mean " + std::string(meant->name) + "?"
                : " is no unit that is known here. Write " + units + ".");
}

// The number that the cell begins with, its decimal sign a point.
std::string TakeNumber(std::string_view cell, DecimalSign decimalSign)
{
    std::string text(cell);
    if (decimalSign == DecimalSign::comma)
    {
        std::ranges::replace(text, '.', '\0'); // ends the number
        std::ranges::replace(text, ',', '.');
    }
    const DecimalResult parsed = ParseDecimal(text);
    return text.substr(0, static_cast<std::size_t>(parsed.stop - text.data()));
}

CellNumber Refuse(std::string problem)
{
    return {0.0, nullptr, std::move(problem)};
}
} // namespace

bool LooksLikeNoValue(std::string_view cell)
{
    constexpr std::string_view words[] = {"-",   "--",   "---",  "\u2013", "\u2014", "n/a", "na",  "n.a.",
                                          "n.a", "none", "null", "nan",    "tbd",    "?",   "#n/a"};
    return std::ranges::any_of(words, [&](std::string_view word) { return EqualIgnoringCase(word, cell); });
}

CellNumber ParseCellNumber(std::string_view cell, DecimalSign decimalSign, Dimension dimension,
                           const CellUnit* columnUnit)
{
    const std::string number = TakeNumber(cell, decimalSign);
    if (number.empty())
    {
        return Refuse(DescribeNoNumber(cell));
    }
    std::string_view rest = cell.substr(number.size());
    if (rest.starts_with(','))
    {
        return Refuse(DescribeComma(cell));
    }
    if (rest.starts_with('.'))
    {
        return Refuse(decimalSign == DecimalSign::comma ? DescribePoint(cell) : DescribeNoNumber(cell));
    }
    rest.remove_prefix(std::min(rest.find_first_not_of(" \t"), rest.size()));
    const CellUnit* const own = rest.empty() ? nullptr : FindUnit(dimension, rest);
    if (!rest.empty() && own == nullptr)
    {
        return Refuse(DescribeBadUnit(cell, rest, dimension));
    }
    if (own != nullptr && columnUnit != nullptr && own->name != columnUnit->name)
    {
        return Refuse(Quote(cell) + " is in " + std::string(own->name) + ", but its column in " +
                      std::string(columnUnit->name) + ".");
    }
    constexpr CellUnit one = {"", 1, 0};
    const CellUnit* const unit = own != nullptr ? own : columnUnit;
    const DecimalResult scaled = Scale(number, unit != nullptr ? *unit : one);
    if (scaled.verdict != DecimalVerdict::Ok)
    {
        return Refuse(Quote(cell) + " is too large or too small for a number.");
    }
    return {scaled.value, own, {}};
}
