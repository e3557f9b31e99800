#include "tools/matlib/CProgress.h"
#include "tools/matlib/LibraryMessages.h"
#include "tools/matlib/NearestNames.h"
#include "tools/matlib/QuantityParsing.h"
#include "tools/matlib/Wording.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace
{
using testing::HasSubstr;

TEST(QuantityParsing, AcceptsFrequencies)
{
    struct
    {
        const char* text;
        double hertz;
    } const rows[] = {
        {"1", 1.0},        {"1e9", 1e9},       {"5Hz", 5.0},    {"10k", 1e4},          {"10K", 1e4},
        {"100kHz", 1e5},   {"100KHz", 1e5},    {"2.5M", 2.5e6}, {"1.1MHz", 1.1 * 1e6}, {"2.5G", 2.5e9},
        {"2.5GHz", 2.5e9}, {"2.5 GHz", 2.5e9}, {".5GHz", 5e8},  {"0.001THz", 1e9},     {"1T", 1e12},
        {"1e-3GHz", 1e6}};
    for (const auto& row : rows)
    {
        const Quantity quantity = ParseFrequency(row.text);
        EXPECT_EQ(quantity.problem, "") << row.text;
        EXPECT_EQ(quantity.value, row.hertz) << row.text;
    }
}

TEST(NearestNames, SuggestsWhatWasMeant)
{
    const std::vector<std::string> names = {"FR4 core", "FR4 prepreg", "Polyimide", "FR4 core", "Glass", "X"};
    struct
    {
        const char* wanted;
        std::vector<std::string> nearest;
    } const rows[] = {
        {"fr4 CORE", {"FR4 core"}},           // letter case
        {"FR4", {"FR4 core", "FR4 prepreg"}}, // contained, once each
        {"Polyimide flex", {"Polyimide"}},    // containing
        {"polymide", {"Polyimide"}},          // one letter missing
        {"Galss", {}},                        // two edits in five letters are too many
        {"Glas", {"Glass"}},
        {"Y", {"X"}},
        {"", {"X"}},
        {"copper", {}},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(FindNearestNames(row.wanted, names), row.nearest) << row.wanted;
    }
}

TEST(LibraryMessages, TakesTheParseErrorApart)
{
    const std::string path = "C:\\my, line 3\\a.mat";
    const auto problem =
        FindFileProblem(path + ", line 12, column 4294967295: Expected \"=\": here.\r\nMore", path);
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->line, 12U);
    EXPECT_EQ(problem->column, std::numeric_limits<unsigned>::max());
    EXPECT_EQ(problem->reason, "Expected \"=\": here. More");
}

TEST(LibraryMessages, KeepsOtherShapesWhole)
{
    for (const std::string message :
         {"Unable to open file \"a.mat\" for the following reason: Permission denied",
          "a.mat, line 99999999999, column 1: x", "a.mat, line 3: x", "a.mat is bad"})
    {
        const auto problem = FindFileProblem(message, "a.mat");
        ASSERT_TRUE(problem) << message;
        EXPECT_FALSE(problem->line) << message;
        EXPECT_EQ(problem->reason, message);
    }
    const char* const noDielectric = "No dielectric material found. Consider copying default library "
                                     "DefaultMaterialD.mat into executable folder.";
    EXPECT_FALSE(FindFileProblem(noDielectric, "DefaultMaterialD.mat"));
    EXPECT_FALSE(FindFileProblem("b.mat, line 1, column 1: x", "a.mat"));
}

TEST(Wording, FrequenciesAreShort)
{
    EXPECT_EQ(FormatHertz(1234567890.0), "1234567890");
    EXPECT_EQ(FormatFrequency(2.5e9), "2.5 GHz");
    EXPECT_EQ(FormatFrequency(999.0), "999 Hz");
    EXPECT_EQ(FormatFrequency(1e15), "1000 THz");
    EXPECT_EQ(FormatFrequency(0.001), "0.001 Hz");
}

TEST(Progress, ShowsItselfAfterHalfASecondAndWipesItselfInTheEnd)
{
    using namespace std::chrono_literals;
    CProgress::Clock::time_point time;
    std::string shown;
    {
        CProgress progress(
            4, [&](std::string_view text) { shown += text; }, [&] { return time; });
        for (const auto step : {400ms, 150ms, 50ms, 100ms})
        {
            time += step;
            progress.Advance();
        }
    }
    EXPECT_EQ(shown, "\r50%\r100%\r    \r");
}
} // namespace
