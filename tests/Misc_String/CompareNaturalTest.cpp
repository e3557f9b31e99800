#include "shared/Misc_String/CompareNatural.h"

#include "shared/Misc_String/CodePage.h"

#include <algorithm>
#include <cstddef>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace
{
using Texts = std::vector<std::string>;

// All texts of up to `length` of the given characters.
Texts Combine(const Texts& characters, int length)
{
    Texts texts = {""};
    for (std::size_t begin = 0; length > 0; --length)
    {
        const std::size_t end = texts.size();
        for (; begin < end; ++begin)
        {
            for (const std::string& character : characters)
            {
                texts.push_back(texts[begin] + character);
            }
        }
    }
    return texts;
}

// Turned round, each answer has the other sign; and it is an order, that is, the order of a rank: here the
// number of lower texts.
void ExpectStrictWeakOrder(const Texts& texts)
{
    std::vector<std::vector<int>> order(texts.size());
    std::vector<long> rank(texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i)
    {
        for (const std::string& other : texts)
        {
            order[i].push_back(CompareNatural(texts[i].c_str(), other.c_str()));
        }
        rank[i] = std::ranges::count(order[i], 1);
    }
    for (std::size_t i = 0; i < texts.size(); ++i)
    {
        for (std::size_t j = 0; j < texts.size(); ++j)
        {
            ASSERT_EQ(order[i][j], -order[j][i]) << texts[i] << " and " << texts[j];
            ASSERT_EQ(order[i][j] < 0, rank[i] < rank[j]) << texts[i] << " and " << texts[j];
        }
    }
}

struct Row
{
    std::string first;
    std::string second;
    int expected;
};

void ExpectComparisons(const std::vector<Row>& rows)
{
    for (const auto& [first, second, expected] : rows)
    {
        EXPECT_EQ(CompareNatural(first.c_str(), second.c_str()), expected) << first << " and " << second;
        EXPECT_EQ(CompareNatural(second.c_str(), first.c_str()), -expected) << second << " and " << first;
    }
}
} // namespace

TEST(CompareNatural, CharactersByCollation)
{
    std::string order;
    for (char c = 1; c < ' '; ++c)
    {
        order += c;
    }
    order += R"(_-+. !"#$%&'()*,/:;<=>?@[\]^`{|}~)";
    for (char c = 'A'; c <= 'Z'; ++c)
    {
        order += c;
    }
    for (int c = 127; c < 256; ++c)
    {
        order += static_cast<char>(c);
    }
    ASSERT_EQ(order.size(), 255U - 26 - 10);

    for (std::size_t i = 0; i < order.size(); ++i)
    {
        for (std::size_t j = 0; j < i; ++j)
        {
            ASSERT_EQ(CompareNatural(order.substr(j, 1).c_str(), order.substr(i, 1).c_str()), -1)
                << i << " and " << j;
        }
    }
}

TEST(CompareNatural, TextsAndNumbers)
{
    const std::string nines(10000, '9');
    ExpectComparisons({
        {"", "", 0},
        {"a", "", 1},
        {"AIMZ", "aimz", 0},
        {"FR4", "fr4", 0},
        {"a_b", "a-b", -1},
        {"abc", "abd", -1},
        {"abc", "ABCD", -1},
        {"Z", "\304", -1},
        {"a\304", "a\344", -1},
        {"item9", "item10", -1},
        {"item9", "item8", 1},
        {"Layer2", "Layer10", -1},
        {"Layer10", "Layer10b", -1},
        {"a1b20", "a1b3", 1},
        {"12", "1a", 1}, // the digit sorts after the letter,
        {"x5", "xa", 1}, // and as the first difference after any character
        {"x.5", "x5", -1},
        {"x", "x5", -1},
        {"x5", "x\377", 1},
        {"1.10", "1.9", 1},
        {"x5", "x05", -1}, // equal numbers: fewer zeros first
        {"x05", "x005", -1},
        {"x05", "x6", -1},
        {"x0", "x00", -1},
        {"x005a", "x05b", 1},
        {"x50", "x5", 1},
        {nines, "1" + std::string(10000, '0'), -1},
        {nines + "1", nines + "2", -1},
        {"0" + nines, nines, 1},
        {"a" + nines, "a" + nines, 0},
        {"x-5", "x-3", -1},
        {"x-10", "x-9", -1},
        {"x-5", "x-05", 1}, // equal numbers: more zeros first
        {"x-0", "x-00", 1},
        {"x-5", "x-a", -1}, // the digit sorts before the letter,
        {"x-5", "x-", -1},  // and before the end
        {"x-5", "x--5", -1},
        {"x-12", "x-1a", -1},
        {"x-1", "x-1a", -1}, // a difference behind the number is an ordinary one
        {"x-1_5", "x-1_3", 1},
        {"x-5", "x5", -1},
        {"x+5", "x+3", 1},
        {"x- 5", "x- 3", 1},
    });
}

TEST(CompareNatural, IsAStrictWeakOrderOfSingleBytes)
{
    ExpectStrictWeakOrder(Combine({"0", "1", "2", "9", "-", "a", "b", "_", ".", "\344"}, 3));
    ExpectStrictWeakOrder(Combine({"0", "1", "-", "a"}, 5)); // longer runs of what matters most
}

class CompareNaturalDoubleByte : public testing::Test
{
protected:
    void SetUp() override
    {
        SetLeadByteTest([](unsigned char byte) { return (byte >= 0x81 && byte < 0xA0) || byte >= 0xE0; });
    }
    void TearDown() override { SetLeadByteTest(nullptr); }
};

TEST_F(CompareNaturalDoubleByte, Characters)
{
    ExpectComparisons({
        {"\201b", "\202a", -1}, // by lead bytes
        {"\201b", "\2021", 1},  // by trail bytes, one of which is a digit
        {"\2011", "\202_", 1},
        {"\201_", "\201a", -1},
        {"\2011", "\201a", -1},    // a trail byte is no number
        {"\20112", "\201110", -1}, // nor part of one
        {"\201-5", "\201-3", 1},   // nor a minus
        {"\201a5", "\201a10", -1},
        {"\201", "\201a", -1}, // a lead byte without its trail byte
        {"\202", "\2011", 1},
    });
}

// As in the code pages of East Asia, all of whose trail bytes are letters, signs above the digits, "_" or
// high bytes.
TEST_F(CompareNaturalDoubleByte, IsAStrictWeakOrderWithoutDigitsAsTrailBytes)
{
    ExpectStrictWeakOrder(
        Combine({"\201a", "\202_", "\202a", "\202\201", "\340@", "\261", "1", "2", "-", "b"}, 3));
}

TEST_F(CompareNaturalDoubleByte, DigitsAsTrailBytesMakeCycles)
{
    ExpectComparisons({{"\201a", "\261", -1}, {"\261", "\3401", -1}, {"\3401", "\201a", -1}});
}
