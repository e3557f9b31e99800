#include "shared/Misc_String/Decimal.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace
{
constexpr double infinity = std::numeric_limits<double>::infinity();

struct Row
{
    std::string text;
    std::string_view rest; // of the text, behind the number
    double value;
    DecimalVerdict verdict = DecimalVerdict::Ok;
};

// Parses `text` with nothing readable behind it, and again inside a longer text.
void ExpectDecimal(const Row& row)
{
    SCOPED_TRACE(row.text);
    const std::size_t size = row.text.size();
    const auto exact = std::make_unique<char[]>(size);
    row.text.copy(exact.get(), size);
    const std::string longer = row.text + " 12345678901234567890";
    for (const char* const first : {static_cast<const char*>(exact.get()), longer.data()})
    {
        const bool alone = first == exact.get();
        const DecimalResult result = ParseDecimal(first, first + (alone ? size : longer.size()));
        EXPECT_EQ(result.verdict, row.verdict);
        EXPECT_EQ(std::bit_cast<std::uint64_t>(result.value), std::bit_cast<std::uint64_t>(row.value))
            << result.value << " instead of " << row.value;
        EXPECT_EQ(first + size - result.stop, static_cast<std::ptrdiff_t>(row.rest.size()));
    }
}

// `text`, all of it a number without "+", has the value that the standard library gives it.
void ExpectAsStandard(const std::string& text)
{
    double value = 0.0;
    const auto standard = std::from_chars(text.data(), text.data() + text.size(), value);
    if (standard.ec == std::errc{})
    {
        ExpectDecimal({text, "", value});
    }
    else
    {
        EXPECT_NE(ParseDecimal(text).verdict, DecimalVerdict::Ok) << text;
    }
}

std::string Text(const char* format, double value, int digits)
{
    char text[64];
    std::snprintf(text, sizeof text, format, digits, value);
    return text;
}
} // namespace

TEST(Decimal, Accepts)
{
    const std::string zeros(400, '0');
    const std::vector<Row> rows = {
        {"0", "", 0.0},
        {"-0", "", -0.0},
        {"+4.3", "", 4.3},
        {"-.5", "", -0.5},
        {"5.", "", 5.0},
        {"1.25E+10", "", 1.25e10},
        {"1e007", "", 1e7},
        {"1.2.3", ".3", 1.2},
        {"1-2", "-2", 1.0},
        {"1e", "e", 1.0},
        {"1e+", "e+", 1.0},
        {"1ex", "ex", 1.0},
        {"12345678e-", "e-", 12345678.0},
        {"0x10", "x10", 0.0},
        {"4.3GHz", "GHz", 4.3},
        {"4.3\260", "\260", 4.3},
        {"12.\377\2119", "\377\2119", 12.0},
        {"9007199254740993", "", 9007199254740992.0}, // between two doubles: to the even one
        {"9007199254740993.0000000000000000000000000001", "", 9007199254740994.0},
        {"1e-310", "", 1e-310},
        {"2.4703282292062328e-324", "", 5e-324},
        {"1.7976931348623157e308", "", std::numeric_limits<double>::max()},
        {"0." + zeros + "1e401", "", 1.0},
        {"1" + zeros + "e-400", "", 1.0},
        {"0e99999999999999999999", "", 0.0},
    };
    for (const Row& row : rows)
    {
        ExpectDecimal(row);
    }
}

TEST(Decimal, BeyondTheDoubles)
{
    const std::string zeros(400, '0');
    for (const Row& row : std::vector<Row>{
             {"1e999", "", infinity, DecimalVerdict::Overflow},
             {"-1.7976931348623159e308", "", -infinity, DecimalVerdict::Overflow},
             {"0.001e999999999999999999999999x", "x", infinity, DecimalVerdict::Overflow},
             {"1" + zeros, "", infinity, DecimalVerdict::Overflow},
             {"1e-999", "", 0.0, DecimalVerdict::Underflow},
             {"-2.4703282292062327e-324", "", -0.0, DecimalVerdict::Underflow},
             {"123456e-99999999999999999999", "", 0.0, DecimalVerdict::Underflow},
             {"." + zeros + "1", "", 0.0, DecimalVerdict::Underflow},
         })
    {
        ExpectDecimal(row);
    }
}

TEST(Decimal, RefusesWhatIsNoDecimalNumber)
{
    for (const std::string text :
         {"", "+", "-", ".", "-.", "+-1", "--1", ".e5", "e5", " 1", "inf", "-inf", "nan", "x1", "\2621"})
    {
        ExpectDecimal({text, text, 0.0, DecimalVerdict::None});
    }
}

// All ways to cut a number: digits before and behind the point, and every way in which a text can end
// within or behind eight characters.
TEST(Decimal, EveryShape)
{
    const std::string digits = "90817263545362718091";
    for (std::size_t before = 0; before <= digits.size(); ++before)
    {
        for (std::size_t behind = 0; before + behind <= digits.size(); ++behind)
        {
            const std::string number = digits.substr(0, before) + "." + digits.substr(before, behind);
            if (before + behind == 0)
            {
                continue;
            }
            for (const char* const exponent : {"", "e5", "e-7", "E11", "e-28"})
            {
                ExpectAsStandard("-" + number + exponent);
            }
            if (behind == 0)
            {
                ExpectAsStandard(number.substr(0, before));
            }
        }
    }
}

TEST(Decimal, NearestDouble)
{
    std::mt19937_64 random(1);
    for (int i = 0; i < 20000; ++i)
    {
        // Any double, in as many digits as it needs or not quite.
        const double any = std::bit_cast<double>(random() >> 1);
        if (std::isfinite(any))
        {
            ExpectAsStandard(Text("%.*e", any, static_cast<int>(10 + random() % 12)));
        }
        // The sizes of a material file.
        const double usual =
            std::ldexp(static_cast<double>(random()), static_cast<int>(random() % 128) - 128);
        ExpectAsStandard(Text("%.*g", usual, static_cast<int>(1 + random() % 19)));
        // Close to the middle between two doubles, in 17 to 20 digits.
        const auto odd = (random() >> 10) | 1U | (std::uint64_t{1} << 53);
        ExpectAsStandard(std::to_string(odd));
        ExpectAsStandard(std::to_string(odd * (1 + random() % 1000)) + "e" + std::to_string(random() % 24));
        const double scaled = std::ldexp(static_cast<double>(odd >> 1), -static_cast<int>(random() % 100));
        const double middle = scaled + (std::nextafter(scaled, infinity) - scaled) * 0.5;
        ExpectAsStandard(Text("%.*g", middle, 19));
    }
}
