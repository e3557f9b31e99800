#include "chooser/CMaterialFilter.h"
#include "chooser/ThicknessUnits.h"
#include "tests/chooser/MakeLibrary.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace
{
TEST(CMaterialFilter, NarrowsMetalsByTypeAndDielectricsByTheRest)
{
    CFakeMaterialLib library;
    CMaterial& foil = AddMaterial(library, MLMATERIAL_METAL, "foil", "ED");
    CMaterial& laminate = AddMaterial(library, MLMATERIAL_DIELECTRIC, "laminate", "FR4");
    ChooserFilterSettings settings = GetChooserFilterSettings(); // everything at first
    CMaterialFilter metals(MLMATERIAL_METAL, settings);
    CMaterialFilter dielectrics(MLMATERIAL_DIELECTRIC, settings);
    EXPECT_TRUE(metals.Accept(&foil));
    EXPECT_FALSE(metals.Accept(&laminate));
    EXPECT_FALSE(metals.Accept(nullptr));

    metals.SetType("ed");
    dielectrics.SetType("ed");
    EXPECT_FALSE(metals.Accept(&foil)) << "types are compared with case";
    EXPECT_TRUE(dielectrics.Accept(&laminate)) << "whatever their type";
    metals.SetType("ED");
    settings.technology = MLTECHNOLOGY_CORE;
    settings.thicknessMinimum = 1.0;
    foil.SetAttribute(MLATTR_THICKNESS, 0.5);
    EXPECT_TRUE(metals.Accept(&foil));

    EXPECT_FALSE(dielectrics.Accept(&laminate)) << "its technology is unknown";
    laminate.SetIntAttribute(MLATTR_TECHNOLOGY, MLTECHNOLOGY_CORE);
    EXPECT_TRUE(dielectrics.Accept(&laminate)) << "it has no thickness";
    settings.thicknessMaximum = 2.0;
    for (const auto& [thickness, accepted] :
         {std::pair{0.999, false}, {1.0, true}, {2.0, true}, {2.001, false}})
    {
        laminate.SetAttribute(MLATTR_THICKNESS, thickness);
        EXPECT_EQ(dielectrics.Accept(&laminate), accepted) << thickness;
    }
}

TEST(ThicknessUnits, RoundToTheTenthOfAThousandth)
{
    EXPECT_EQ(FormatThickness(0.0002, MLUNITS_METRIC), "200");
    EXPECT_EQ(FormatThickness(0.0002, MLUNITS_ENGLISH), "7.874");
    EXPECT_EQ(FormatThickness(0.0001, MLUNITS_ENGLISH), "3.937");
    EXPECT_EQ(FormatThickness(0.01, MLUNITS_ENGLISH), "393.7008");
    EXPECT_EQ(FormatThickness(1.23456789e-6, MLUNITS_METRIC), "1.2346");
    EXPECT_EQ(FormatThickness(-1.23456789e-6, MLUNITS_METRIC), "-1.2346");
    EXPECT_EQ(FormatThickness(0.0, MLUNITS_METRIC), "0") << "without a sign";
    EXPECT_EQ(ThicknessFromMetres(1e300, MLUNITS_METRIC), std::trunc(1e306 / 0.0001) * 0.0001);
    EXPECT_TRUE(std::isnan(ThicknessFromMetres(std::numeric_limits<double>::quiet_NaN(), MLUNITS_METRIC)));
    EXPECT_DOUBLE_EQ(ThicknessToMetres(200.0, MLUNITS_METRIC), 0.0002);
    EXPECT_EQ(&GetThicknessUnit(7), &GetThicknessUnit(MLUNITS_ENGLISH));
}

TEST(ThicknessUnits, ReadDecimalNumbersOnly)
{
    const std::pair<const char*, std::optional<double>> rows[] = {
        {"-0.25", -0.25},      {" \t+1e3 ", 1000.0},  {"1e-999", 0.0},
        {"", std::nullopt},    {"  ", std::nullopt},  {"1 2", std::nullopt},
        {"1mm", std::nullopt}, {"nan", std::nullopt}, {"1e999", std::nullopt},
    };
    for (const auto& [text, number] : rows)
    {
        EXPECT_EQ(ParseThickness(text), number) << text;
    }
}

TEST(ListTypeNames, NamesEachTypeOfTheKindOnceFromTheLast)
{
    CFakeMaterialLib library;
    AddMaterial(library, MLMATERIAL_DIELECTRIC, "1", "B");
    AddMaterial(library, MLMATERIAL_DIELECTRIC, "2", "A");
    AddMaterial(library, MLMATERIAL_METAL, "3", "C");
    AddMaterial(library, MLMATERIAL_DIELECTRIC, "4", "A");
    AddMaterial(library, MLMATERIAL_DIELECTRIC, "5", "a");
    EXPECT_THAT(ListTypeNames(library, MLMATERIAL_DIELECTRIC), testing::ElementsAre("a", "A", "B"));
    EXPECT_THAT(ListTypeNames(library, MLMATERIAL_METAL), testing::ElementsAre("C"));
}
} // namespace
