#include "tools/matlib/import/CellNumber.h"
#include "tools/matlib/import/ColumnHeads.h"
#include "tools/matlib/import/CsvText.h"

#include <cmath>
#include <gtest/gtest.h>

namespace
{
// The value is the double that somebody gets who writes the converted number by hand.
TEST(ImportNumbers, AreConvertedAsTheyAreWritten)
{
    struct Case
    {
        const char* cell;
        Dimension dimension;
        const char* unit; // of the column
        double value;
    };
    for (const auto& [cell, dimension, unit, value] : std::initializer_list<Case>{
             {"0.2", Dimension::length, "mm", 0.0002},
             {"4", Dimension::length, "mil", 0.0001016},
             {"0.3", Dimension::length, "inches", 0.00762},
             {"+1.78E+0", Dimension::resistivity, "\u00B5\u03A9\u00B7cm", 1.78e-8},
             {"1.78e-2", Dimension::resistivity, "micro Ohm-m", 1.78e-8},
             {"1.2 %", Dimension::ratio, "", 0.012},
             {"-40", Dimension::temperature, "\u00B0C", -40.0},
             {".1", Dimension::frequency, "GHz", 1e8},
             {"2.4000000000000000000000000000000001GHz", Dimension::frequency, "", 2.4e9},
             {"00012345678901234567890e-19", Dimension::number, "", 1.2345678901234567},
             {"1e99999999999999999999", Dimension::number, "", HUGE_VAL},
         })
    {
        const CellNumber number =
            ParseCellNumber(cell, DecimalSign::point, dimension, FindUnit(dimension, unit));
        EXPECT_EQ(number.problem.empty(), std::isfinite(value)) << cell << number.problem;
        EXPECT_TRUE(!std::isfinite(value) || number.value == value) << cell << " " << number.value;
    }
}

TEST(ImportNumbers, HaveTheUnitsThatTheySay)
{
    struct Case
    {
        Dimension dimension;
        const char* unit;
        double value; // of 1
    };
    for (const auto& [dimension, unit, value] : {
             Case{Dimension::frequency, "Hz", 1.0},
             Case{Dimension::frequency, "kHz", 1e3},
             Case{Dimension::frequency, "MHz", 1e6},
             Case{Dimension::frequency, "THz", 1e12},
             Case{Dimension::length, "m", 1.0},
             Case{Dimension::length, "cm", 1e-2},
             Case{Dimension::length, "um", 1e-6},
             Case{Dimension::length, "\u00B5m", 1e-6},
             Case{Dimension::resistivity, "ohm m", 1.0},
             Case{Dimension::resistivity, "ohm cm", 1e-2},
             Case{Dimension::resistivity, "nohm m", 1e-9},
             Case{Dimension::temperature, "Celsius", 1.0},
             Case{Dimension::ratio, "percent", 1e-2},
         })
    {
        EXPECT_EQ(ParseCellNumber("1", DecimalSign::point, dimension, FindUnit(dimension, unit)).value, value)
            << unit;
    }
}

TEST(ImportText, HasNoSeparatorInQuotes)
{
    EXPECT_EQ(FindSeparator("Name,\"a;b\"\nA,4\n").separator, ',');
}

TEST(ImportHeads, AreKnownAsPeopleWriteThem)
{
    struct Case
    {
        const char* head;
        Property property;
        const char* unit;
    };
    for (const auto& [head, property, unit] : std::initializer_list<Case>{
             {"FREQ_GHz", Property::frequency, "GHz"},
             {"f / MHz", Property::frequency, "MHz"},
             {"\u03B5r", Property::er, ""},
             {"Dielectric\nConstant", Property::er, ""},
             {"tan \u03B4 [%]", Property::lossTangent, "%"},
             {"Temp. (deg C)", Property::temperature, "C"},
             {"Thickness, \u00B5m", Property::thickness, "um"},
             {"Bulk resistivity microohm cm", Property::resistivity, "microohm cm"},
             {"Top-Roughness", Property::roughTop, ""},
         })
    {
        const Columns read = UnderstandHeads({{head, {}}}, {});
        ASSERT_EQ(read.columns.size(), 1U)
            << head << (read.problems.empty() ? "" : read.problems.front().text);
        EXPECT_EQ(read.columns.front().traits->property, property) << head;
        EXPECT_EQ(read.columns.front().unit == nullptr ? "" : read.columns.front().unit->name, unit) << head;
    }
}
} // namespace
