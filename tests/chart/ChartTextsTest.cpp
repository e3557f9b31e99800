#include "chart/ChartTexts.h"

#include "shared/Translation/Translate.h"
#include "tests/chart/MakeChart.h"

#include <cstring>
#include <gtest/gtest.h>

namespace
{
CAxis MakeAxis(const char* unit, bool prefix)
{
    CAxis axis;
    axis.unit = unit;
    axis.automaticPrefix = prefix;
    return axis;
}

TEST(TickLabel, TextsOfValues)
{
    const struct
    {
        const char* unit;
        bool prefix;
        double value;
        const char* text;
    } rows[] = {
        {"Hz", true, 1000.0, " 1000Hz "},
        {"Hz", true, 1500.0, " 1.5kHz "},
        {"Hz", true, 1e6, " 1000kHz "},
        {"Hz", true, -2.5e9, " -2.5GHz "},
        {"Hz", true, 1e-3, " 1000uHz "},
        {"Hz", true, 0.0, " 0Hz "},
        {"", true, 1.0, " 1000m "},
        {"s", true, 1e-12, " 1.00e-12s "}, // femto is out of range
        {"s", true, 2e-12, " 2ps "},
        {"Hz", true, 1e15, " 1000THz "},
        {"Hz", true, 1.1e15, " 1.10e+15Hz "},
        {"Hz", true, 2e6, " 2MHz "},
        {"s", true, 2e-9, " 2ns "},
        {"MHz", false, 1000.0, " 1000MHz "},
        {"MHz", false, 12345.0, " 1.23e+04MHz "},
        {"MHz", false, 9999.0, " 9999MHz "},
        {"MHz", false, 9999.9, " 1.00e+04MHz "},
        {"", false, 1e-5, " 1.00e-05 "},
        {"", false, -1.5e-300, " -1.50e-300 "},
        {"deg", false, 45.0, " 4.50e+01deg "}, // a unit with the letter does the same
        {"x", false, infinity, " infx "},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(FormatTickLabel(MakeAxis(row.unit, row.prefix), row.value), row.text) << row.value;
    }
}

TEST(ReadOut, BothCoordinatesWithFiveDigits)
{
    const CAxis plain = MakeAxis("MHz", false);
    const CAxis scaled = MakeAxis("Hz", true);
    const CAxis bare = MakeAxis("", false);
    EXPECT_EQ(FormatReadOut(plain, bare, {1234.567, 4.123456}), "1234.6MHz, 4.1235");
    EXPECT_EQ(FormatReadOut(scaled, bare, {1234.567e6, 1e-5}), "1.2346GHz, 1e-05");
    EXPECT_EQ(FormatReadOut(scaled, scaled, {1.5e15, -2e-13}), "1.500e+15Hz, -2.000e-13Hz");
    EXPECT_EQ(FormatReadOut(scaled, scaled, {1e3, 0.0}), "1000Hz, 0Hz");
    EXPECT_EQ(FormatReadOut(plain, plain, {123456.0, 1e100}), "1.2346e+05MHz, 1e+100MHz");
}

TEST(TickLabel, PrefixesAreTranslatedInTheModulesDomain)
{
    const TranslateFunction before = translate;
    translate = [](const char* domain, const char* catalogue, const char* text)
    {
        EXPECT_STREQ(domain, "MATERIALLIBARY.DLL");
        EXPECT_STREQ(catalogue, "MaterialLibrary.po");
        EXPECT_STRNE(text, "");
        return std::strcmp(text, "k") == 0 ? "kilo" : text;
    };
    EXPECT_EQ(FormatTickLabel(MakeAxis("Hz", true), 1500.0), " 1.5kiloHz ");
    EXPECT_EQ(FormatTickLabel(MakeAxis("Hz", true), 15.0), " 15Hz ");
    EXPECT_EQ(FormatReadOut(MakeAxis("A", true), MakeAxis("V", true), {2e3, 4.0}), "2kiloA, 4V");
    translate = before;
}
} // namespace
