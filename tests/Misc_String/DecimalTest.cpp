#include "shared/Misc_String/Decimal.h"

#include <bit>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
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
    const std::string padded = row.text + std::string(8, '\0');
    if (decimal::IsDigit(padded[0]))
    {
        const UnsignedDecimal number = ParseUnsignedDecimal(padded.data());
        const bool isOk = row.verdict == DecimalVerdict::Ok;
        EXPECT_EQ(number.stop, isOk ? padded.data() + size - row.rest.size() : nullptr);
        EXPECT_TRUE(!isOk || number.value == row.value) << number.value;
    }
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
        {"8.76543219", "", 8.76543219},
        {"1.23456789012345", "", 1.23456789012345},
        {"1.234567890123456789", "", 1.234567890123456789},
        {"0.9876543e-3G", "G", 0.9876543e-3},
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
        {"0E-7", "", 0.0},
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
