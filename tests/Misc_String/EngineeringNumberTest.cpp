#include "shared/Misc_String/EngineeringNumber.h"

#include "shared/Misc_String/CodePage.h"
#include "tests/CollectedMessages.h"

#include <gmock/gmock.h>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace
{
struct Row
{
    std::string text;
    std::optional<double> value;
};

// As a C string, and as a text with more digits behind it.
void ExpectNumbers(const std::vector<Row>& rows)
{
    for (const auto& [text, value] : rows)
    {
        SCOPED_TRACE(text);
        double out = -1.0;
        EXPECT_EQ(ParseEngineeringNumber(text.c_str(), &out), value.has_value());
        EXPECT_EQ(out, value.value_or(0.0));
        const std::string longer = text + "99";
        out = -1.0;
        EXPECT_EQ(ParseEngineeringNumber(std::string_view(longer).substr(0, text.size()), &out),
                  value.has_value());
        EXPECT_EQ(out, value.value_or(0.0));
    }
}
} // namespace

TEST(EngineeringNumber, Suffixes)
{
    ExpectNumbers({
        {"1GHz", 1e9},      {"1e9", 1e9},      {"1000MHz", 1e9},
        {"10k", 1e4},       {"10K", 1e4},      {"2.5T", 2.5e12},
        {"5m", 0.005},      {"3u", 3e-6},      {"3U", 3e-6},
        {"4n", 4e-9},       {"4N", 4e-9},      {"5p", 5e-12},
        {"5P", 5e-12},      {"6f", 6 * 1e-15}, {"6F", 6 * 1e-15},
        {"1000mhz", 1.0},   {"7g", 7.0},       {"7t", 7.0},
        {"-1.5kHz", -1500}, {"+.5M", 5e5},     {"1e3k", 1e6},
        {"5e", 5.0},        {"5eG", 5.0},      {"5 %", 5.0},
        {"f=2GHz", 2e9},    {"R2-D2", 2.0},    {"1e300T", std::numeric_limits<double>::infinity()},
    });
}

TEST(EngineeringNumber, PassesOverBlanksControlsAndHighBytes)
{
    ExpectNumbers({
        {"1 GHz", 1e9},
        {"\t 2.5\240G", 2.5e9},
        {"1 2", 12.0},
        {"- 5", -5.0},
        {". 5", 0.5},
        {"1e 9", 1e9},
        {"1E\001+\3773k", 1e6},
        {"4.3\260", 4.3},
        {"\26510u", 10 * 1e-6},
        {"1\177", 1.0},
        {"1\177G", 1.0}, // 127 is no suffix, and stays
    });
}

TEST(EngineeringNumber, NoNumber)
{
    for (const char* const text :
         {"", "abc", " \377", "-", "a-b5", "--5", ".", "1e999", "-1e999G", "1e-999", "-inf", "nan", "1e99 9"})
    {
        ExpectNumbers({{text, {}}});
    }
}

TEST(EngineeringNumber, OnlyTheFirst328BytesCount)
{
    const auto after = [](char filler, std::size_t count, const char* text)
    { return std::string(count, filler) + text; };
    ExpectNumbers({{after('x', 328, "5"), {}},
                   {after('x', 327, "52"), 5.0},
                   {after(' ', 326, "5G"), 5e9},
                   {after(' ', 327, "5G"), 5.0},
                   {after('\300', 328, "5"), {}},
                   {after('0', 400, ""), 0.0}});
}

TEST(EngineeringNumber, DoubleByteCharactersGoWhole)
{
    SetLeadByteTest([](unsigned char byte) { return byte < 0xA0; });
    ExpectNumbers({{"1\203\115", 1.0}, // not 1 M
                   {"\2035G", {}},
                   {"\20357G", 7e9},
                   {"2\203 k", 2000.0},
                   {"3\241k", 3000.0},
                   {"4\203", 4.0},
                   {std::string(327, 'x') + "\2035", {}},
                   {std::string(325, 'x') + "\20357", 7.0}});
    SetLeadByteTest(nullptr);
    ExpectNumbers({{"1\203\115", 1e6}});
}

TEST(EngineeringNumberDeathTest, NullText)
{
    double out = 1.0;
    EXPECT_EXIT(
        {
            CollectedMessages messages;
            messages.prints = true;
            (void)ParseEngineeringNumber(nullptr, &out);
        },
        testing::ExitedWithCode(1),
        testing::AllOf(testing::HasSubstr("[FATAL ERROR] [Line:109,   File:..\\shared\\Misc_String "),
                       testing::HasSubstr("] style 16 owner 0\n")));
}
