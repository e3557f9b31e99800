#include "shared/CtrlAutoMover/WindowFrame.h"

#include <gtest/gtest.h>
#include <limits>

namespace
{
constexpr int least = std::numeric_limits<int>::min();
constexpr int most = std::numeric_limits<int>::max();

TEST(WindowFrame, ReadsTwoNumbers)
{
    const struct
    {
        std::string_view text;
        std::optional<NumberPair> pair;
    } rows[] = {
        {"1,2", NumberPair{1, 2}},
        {"-8,+30", NumberPair{-8, 30}},
        {" \t1 ,\n 2 ", NumberPair{1, 2}},
        {"1,2px", NumberPair{1, 2}},
        {"2147483647,-2147483648", NumberPair{most, least}},
        {"", std::nullopt},
        {"1,", std::nullopt},
        {",2", std::nullopt},
        {"1;2", std::nullopt},
        {"1.5,2", std::nullopt},
        {"+-1,2", std::nullopt},
        {"- 1,2", std::nullopt},
        {"2147483648,0", std::nullopt},
        {"0,-99999999999999999999", std::nullopt},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(ParseNumberPair(row.text), row.pair) << row.text;
    }
    for (const NumberPair pair : {NumberPair{0, 0}, NumberPair{-1, 70}, NumberPair{least, most}})
    {
        EXPECT_EQ(ParseNumberPair(FormatNumberPair(pair)), pair);
    }
    EXPECT_EQ(FormatNumberPair({-8, 30}), "-8,30");
}

TEST(WindowFrame, TakesWhatIsWellFormedFromTheSettings)
{
    constexpr WindowFrame frame{10, 20, 300, 200};
    EXPECT_EQ(ApplySettings(frame, "", ""), frame);
    EXPECT_EQ(ApplySettings(frame, "1 , 2", "x"), (WindowFrame{1, 2, 300, 200}));
    EXPECT_EQ(ApplySettings(frame, "1", "400,500"), (WindowFrame{10, 20, 400, 500}));
    for (const char* size : {"0,500", "400,0", "-400,500", "400,-2147483648"})
    {
        EXPECT_EQ(ApplySettings(frame, "", size), frame) << size;
    }
}

TEST(WindowFrame, StaysInTheWorkArea)
{
    constexpr WindowFrame area{-1000, 30, 1000, 700};
    const struct
    {
        WindowFrame frame;
        int left;
        int top;
    } rows[] = {
        {{-900, 40, 300, 200}, -900, 40},   // inside
        {{-900, 530, 900, 200}, -900, 530}, // just inside
        {{-899, 531, 900, 200}, -900, 530},    {{-5000, -5000, 300, 200}, -1000, 30},
        {{5000, 5000, 300, 200}, -300, 530},   {{-500, 300, 1001, 701}, -1000, 30}, // larger than the area
        {{most, most, most, most}, -1000, 30}, {{least, least, 1, 1}, -1000, 30},
        {{most, least, 1, most}, -1, 30},
    };
    for (const auto& [frame, left, top] : rows)
    {
        EXPECT_EQ(MoveIntoWorkArea(frame, area), (WindowFrame{left, top, frame.width, frame.height}));
    }
}
} // namespace
