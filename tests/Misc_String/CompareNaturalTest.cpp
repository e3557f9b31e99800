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

// All comparisons among some texts.
class COrder
{
public:
    explicit COrder(const Texts& compared) : texts(compared), answers(texts.size() * texts.size())
    {
        ForEachPair(
            [&](std::size_t i, std::size_t j)
            {
                answers[i * texts.size() + j] =
                    static_cast<signed char>(CompareNatural(texts[i].c_str(), texts[j].c_str()));
            });
    }

    int At(std::size_t i, std::size_t j) const { return answers[i * texts.size() + j]; }

    // Equal without case is equal, nothing else is; turned round, each answer has the other sign.
    void ExpectAntisymmetry() const
    {
        Texts folded = texts;
        for (std::string& text : folded)
        {
            std::ranges::transform(text, text.begin(),
                                   [](char c)
                                   { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
        }
        ForEachPair(
            [&](std::size_t i, std::size_t j)
            {
                ASSERT_EQ(At(i, j), -At(j, i)) << texts[i] << " and " << texts[j];
                ASSERT_EQ(At(i, j) == 0, folded[i] == folded[j]) << texts[i] << " and " << texts[j];
            });
    }

    // An order is a strict weak one exactly when it is the order of a rank: here the number of lower texts.
    void ExpectStrictWeakOrder() const
    {
        std::vector<long> rank(texts.size());
        ForEachPair([&](std::size_t i, std::size_t j) { rank[i] += At(j, i) < 0 ? 1 : 0; });
        ForEachPair([&](std::size_t i, std::size_t j)
                    { ASSERT_EQ(At(i, j) < 0, rank[i] < rank[j]) << texts[i] << " and " << texts[j]; });
    }

    // Calls `visit` with each three texts of which the first is below the second, the second below the
    // third and the first not below the third.
    template <typename Visit>
    void ForEachCycle(Visit visit) const
    {
        ForEachPair(
            [&](std::size_t i, std::size_t j)
            {
                for (std::size_t k = 0; k < texts.size() && At(i, j) < 0; ++k)
                {
                    if (At(j, k) < 0 && At(i, k) >= 0)
                    {
                        visit(texts[i], texts[j], texts[k]);
                    }
                }
            });
    }

private:
    template <typename Visit>
    void ForEachPair(Visit visit) const
    {
        for (std::size_t i = 0; i < texts.size() && !testing::Test::HasFatalFailure(); ++i)
        {
            for (std::size_t j = 0; j < texts.size(); ++j)
            {
                visit(i, j);
            }
        }
    }

    const Texts& texts;
    std::vector<signed char> answers;
};

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

    Texts texts = {""};
    for (const char c : order)
    {
        texts.push_back(std::string("x") + c);
    }
    const COrder comparisons(texts);
    for (std::size_t i = 1; i < texts.size(); ++i)
    {
        for (std::size_t j = 0; j < i; ++j)
        {
            ASSERT_EQ(comparisons.At(j, i), -1) << i << " and " << j;
        }
    }
}

TEST(CompareNatural, TextsAndNumbers)
{
    const std::string nines(10000, '9');
    ExpectComparisons({
        {"", "", 0},
        {"a", "", 1},
        {"ITEM", "item", 0},
        {"FR4", "fr4", 0},
        {"a_b", "a-b", -1},
        {"abc", "abd", -1},
        {"abc", "ABCD", -1},
        {"Z", "\304", -1},
        {"a\304", "a\344", -1},
        {"item9", "item10", -1},
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
    const Texts texts = Combine({"0", "1", "2", "9", "-", "a", "B", "b", "_", ".", "+", " ", "\344"}, 3);
    const COrder order(texts);
    order.ExpectAntisymmetry();
    order.ExpectStrictWeakOrder();
    // Longer runs of what matters most.
    const Texts runs = Combine({"0", "1", "-", "a"}, 5);
    const COrder orderOfRuns(runs);
    orderOfRuns.ExpectAntisymmetry();
    orderOfRuns.ExpectStrictWeakOrder();
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
    const Texts texts =
        Combine({"\201a", "\201A", "\202_", "\202a", "\202\201", "\340@", "\261", "1", "2", "-", "b"}, 3);
    const COrder order(texts);
    order.ExpectAntisymmetry();
    order.ExpectStrictWeakOrder();
}

TEST_F(CompareNaturalDoubleByte, OnlyDigitsAsTrailBytesMakeCycles)
{
    ExpectComparisons({{"\201a", "\261", -1}, {"\261", "\3401", -1}, {"\3401", "\201a", -1}});

    const Texts texts = Combine({"\2011", "\2021", "\3401", "\201a", "\202_", "\202", "\261", "1", "-"}, 2);
    const COrder order(texts);
    order.ExpectAntisymmetry();
    const auto hasDigitAsTrailByte = [](const std::string& text)
    {
        const auto isLead = [](char c) { return c != '\261' && c < 0; };
        for (std::size_t i = 0; i + 1 < text.size(); i += isLead(text[i]) ? 2 : 1)
        {
            if (isLead(text[i]) && text[i + 1] == '1')
            {
                return true;
            }
        }
        return false;
    };
    int cycles = 0;
    order.ForEachCycle(
        [&](const std::string& a, const std::string& b, const std::string& c)
        {
            ++cycles;
            EXPECT_TRUE(hasDigitAsTrailByte(a) || hasDigitAsTrailByte(b) || hasDigitAsTrailByte(c))
                << a << ", " << b << " and " << c;
        });
    EXPECT_EQ(cycles, 16458);
}
