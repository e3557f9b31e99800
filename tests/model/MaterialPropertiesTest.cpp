#include "dielectric/CWidebandDebyeModel.h"
#include "model/CMaterial.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace
{
constexpr double untouched = 77.0;
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

IMaterialTableIO& AddTable(CMaterial& material, int kind, double temperature,
                           const std::vector<MLTBLENTRY>& rows)
{
    IMaterialTableIO& table = *material.AddTable(kind);
    table.SetTemperature(temperature);
    for (const MLTBLENTRY& row : rows)
    {
        table.AddEntry(row);
    }
    return table;
}

double ValueOf(CMaterial& material, int kind, double frequency, double temperature)
{
    double value = untouched;
    material.GetValue(kind, frequency, &value, temperature);
    return value;
}

TEST(GetTable, TakesTheNearestTableWithinATenthOfADegree)
{
    CArena arena;
    CMaterial material(arena);
    material.SetKind(MLMATERIAL_DIELECTRIC);
    AddTable(material, MLTABLE_ER, 25.0, {});
    AddTable(material, MLTABLE_LOSS_TANGENT, 25.05, {});
    AddTable(material, MLTABLE_ER, 25.08, {});
    AddTable(material, MLTABLE_ER, 25.0, {});
    EXPECT_EQ(material.GetTable(MLTABLE_ER, 25.01), material.GetTableAt(3)); // of equally near ones the last
    EXPECT_EQ(material.GetTable(MLTABLE_ER, 25.05), material.GetTableAt(2));
    EXPECT_EQ(material.GetTable(MLTABLE_ER, 24.95), material.GetTableAt(3));
    EXPECT_EQ(material.CountTables(MLTABLE_ALL), 4);
    const IMaterialTable* const derived = material.GetTable(MLTABLE_ER, 24.9); // a tenth away is too far
    EXPECT_EQ(derived, material.GetTableAt(4));
    EXPECT_EQ(material.CountTables(MLTABLE_ALL), 5);
}

TEST(GetTable, RoughnessIgnoresTemperatureAndIsNeverDerived)
{
    CArena arena;
    CMaterial material(arena);
    material.SetKind(MLMATERIAL_METAL);
    AddTable(material, MLTABLE_ROUGHNESS_TOP, 25.0, {});
    AddTable(material, MLTABLE_ROUGHNESS_TOP, 100.0, {});
    EXPECT_EQ(material.GetTable(MLTABLE_ROUGHNESS_TOP, 25.0), material.GetTableAt(1));
    EXPECT_EQ(material.GetTable(MLTABLE_ROUGHNESS_BOTTOM, 25.0), nullptr);
    EXPECT_EQ(material.GetTable(MLTABLE_ER, 25.0), nullptr);
    EXPECT_EQ(ValueOf(material, MLTABLE_ER, 1e9, 25.0), untouched);
    EXPECT_EQ(material.GetTable(9, 25.0), nullptr);
    EXPECT_EQ(material.CountTables(MLTABLE_ALL), 2);
}

// Rows: what stands at 20 °C and 40 °C, and what is derived for 30 °C.
TEST(GetTable, DerivesOneRowFromBothNeighbours)
{
    struct Row
    {
        std::vector<MLTBLENTRY> at20;
        std::vector<MLTBLENTRY> at40;
        double expected;
    };
    const Row rows[] = {
        // The reversed ratio: (40 - 20) / (30 - 20) = 2.
        {{{1e6, 4.0}}, {{5e6, 5.0}}, 6.0},
        // The row nearest to 1 GHz, of equally near ones the later.
        {{{1e8, 9.0}, {0.9e9, 4.0}}, {{1.5e9, 7.0}, {0.5e9, 5.0}, {9e9, 1.0}}, 6.0},
        // An empty neighbour makes both values 1.
        {{}, {{1e9, 5.0}}, 1.0},
    };
    for (const Row& row : rows)
    {
        CArena arena;
        CMaterial material(arena);
        material.SetKind(MLMATERIAL_DIELECTRIC);
        AddTable(material, MLTABLE_ER, -60.0, {{1e9, 100.0}});
        AddTable(material, MLTABLE_ER, 20.0, row.at20);
        AddTable(material, MLTABLE_ER, 400.0, {{1e9, 100.0}});
        AddTable(material, MLTABLE_ER, 40.0, row.at40);
        IMaterialTable* const derived = material.GetTable(MLTABLE_ER, 30.0);
        ASSERT_NE(derived, nullptr);
        EXPECT_EQ(derived, material.GetTableAt(4));
        EXPECT_EQ(derived->GetTemperature(), 30.0);
        ASSERT_EQ(derived->GetEntryCount(), 1);
        EXPECT_EQ(derived->GetEntry(0).frequency, 1e9);
        EXPECT_EQ(derived->GetEntry(0).value, row.expected);
        EXPECT_EQ(material.GetTable(MLTABLE_ER, 30.05), derived); // appended once
        EXPECT_EQ(material.CountTables(MLTABLE_ALL), 5);
    }
}

TEST(GetTable, CopiesTheOnlyNeighbourAndStaysEmptyWithoutOne)
{
    CArena arena;
    CMaterial material(arena);
    material.SetKind(MLMATERIAL_DIELECTRIC);
    AddTable(material, MLTABLE_ER, 25.0, {{1e6, 4.5}, {1e9, 4.2}});
    AddTable(material, MLTABLE_ER, 25.0, {{1e6, 4.6}});
    const IMaterialTable* const above = material.GetTable(MLTABLE_ER, 85.0);
    ASSERT_EQ(above->GetEntryCount(), 1); // of two at one temperature the last
    EXPECT_EQ(above->GetEntry(0).value, 4.6);
    EXPECT_EQ(above->GetTemperature(), 85.0);
    EXPECT_EQ(material.GetTable(MLTABLE_LOSS_TANGENT, 85.0)->GetEntryCount(), 0);
    EXPECT_EQ(ValueOf(material, MLTABLE_LOSS_TANGENT, 1e9, 85.0), untouched);
}

TEST(GetTable, FindsDerivedTablesOfAbsurdTemperaturesAgain)
{
    CArena arena;
    CMaterial material(arena);
    material.SetKind(MLMATERIAL_DIELECTRIC);
    AddTable(material, MLTABLE_ER, 25.0, {{1e6, 4.5}});
    for (const double temperature : {infinity, -infinity, notANumber, 1e300})
    {
        const IMaterialTable* const derived = material.GetTable(MLTABLE_ER, temperature);
        EXPECT_EQ(material.GetTable(MLTABLE_ER, temperature), derived) << temperature;
    }
    EXPECT_EQ(material.CountTables(MLTABLE_ALL), 5);
}

TEST(GetValue, AnswersFromConstantsAndExactRowsWithoutFitting)
{
    CArena arena;
    CMaterial material(arena);
    material.SetKind(MLMATERIAL_DIELECTRIC);
    AddTable(material, MLTABLE_ER, 25.0, {{1e9, 4.3}});
    EXPECT_EQ(ValueOf(material, MLTABLE_ER, 5e9, 25.0), untouched); // no loss tangent
    EXPECT_EQ(ValueOf(material, MLTABLE_ER, 1e9, 25.0), 4.3);
    AddTable(material, MLTABLE_LOSS_TANGENT, 50.0, {{1e9, 0.02}});
    CMaterial constant(arena);
    constant.SetKind(MLMATERIAL_DIELECTRIC);
    AddTable(constant, MLTABLE_ER, 25.0, {{1e9, 4.3}});
    AddTable(constant, MLTABLE_LOSS_TANGENT, 25.0, {{1e9, 0.02}});
    EXPECT_EQ(ValueOf(constant, MLTABLE_ER, 5e9, 25.0), 4.3);
    EXPECT_EQ(ValueOf(constant, MLTABLE_LOSS_TANGENT, notANumber, 25.0), 0.02);

    CMaterial repeated(arena);
    repeated.SetKind(MLMATERIAL_DIELECTRIC);
    AddTable(repeated, MLTABLE_ER, 25.0, {{1e6, 4.5}, {1e9, 4.2}, {1e6, 4.4}});
    EXPECT_EQ(ValueOf(repeated, MLTABLE_ER, 1e6, 25.0), 4.4); // the last row of a frequency
}

TEST(GetValue, FitsTheModelAndKeepsBothValues)
{
    const std::vector<double> frequencies = {1e6, 1e8, 1e9, 1e10};
    const std::vector<double> permittivity = {4.6, 4.4, 4.3, 4.2};
    const std::vector<double> lossTangent = {0.015, 0.018, 0.019, 0.02};
    CArena arena;
    CMaterial material(arena);
    material.SetKind(MLMATERIAL_DIELECTRIC);
    IMaterialTableIO& permittivityTable = AddTable(material, MLTABLE_ER, 25.0, {});
    IMaterialTableIO& lossTable = AddTable(material, MLTABLE_LOSS_TANGENT, 25.0, {});
    for (std::size_t i = 0; i < frequencies.size(); ++i)
    {
        permittivityTable.AddEntry({frequencies[i], permittivity[i]});
        lossTable.AddEntry({frequencies[i], lossTangent[i]});
    }
    CWidebandDebyeModel model;
    ASSERT_EQ(model.PrepareData(4, frequencies.data(), permittivity.data(), 4, frequencies.data(),
                                lossTangent.data()),
              1);
    ASSERT_EQ(model.Fit(), 1);
    double real = 0.0;
    double imaginary = 0.0;
    ASSERT_EQ(model.Evaluate(2.5e9, real, imaginary), 1);

    EXPECT_EQ(ValueOf(material, MLTABLE_LOSS_TANGENT, 2.5e9, 25.0), -imaginary / real);
    permittivityTable.AddEntry({1e11, 1.0}); // what is kept does not change any more
    EXPECT_EQ(ValueOf(material, MLTABLE_ER, 2.5e9, 25.0), real);
    EXPECT_EQ(ValueOf(material, MLTABLE_LOSS_TANGENT, 2.5e9, 25.0), -imaginary / real);
    EXPECT_NE(ValueOf(material, MLTABLE_ER, 2.6e9, 25.0), real);
    EXPECT_EQ(material.CountTables(MLTABLE_ALL), 2);
}

TEST(GetValue, AFailedFitIsMinusOneAndIsNotKept)
{
    CArena arena;
    CMaterial material(arena);
    material.SetKind(MLMATERIAL_DIELECTRIC);
    AddTable(material, MLTABLE_ER, 25.0, {{1e6, 4.5}, {1e9, 4.2}});
    IMaterialTableIO& loss = AddTable(material, MLTABLE_LOSS_TANGENT, 25.0, {{1e6, 0.02}});
    EXPECT_EQ(ValueOf(material, MLTABLE_ER, 2e9, 25.0), -1.0);
    loss.AddEntry({1e9, 0.021});
    EXPECT_GT(ValueOf(material, MLTABLE_ER, 2e9, 25.0), 1.0);
}

// Rows: the table, the frequency asked, the value, and the frequency under which it is kept.
TEST(GetValue, RoughnessComesFromTheRowsAround)
{
    struct Row
    {
        std::vector<MLTBLENTRY> rows;
        double frequency;
        double expected;
        double keptAt;
    };
    const Row rows[] = {
        {{{1.0, 10.0}, {3.0, 30.0}}, 2.0, 10.0, 2.0}, // the lower value is not added
        {{{9.0, 90.0}, {1.0, 10.0}, {3.0, 30.0}, {2.5, 26.0}}, 2.0, 16.0 / 1.5 * 1.0, 2.0},
        {{{1.0, 10.0}, {3.0, 30.0}}, 0.5, 10.0, 1.0}, // below all: the first row
        {{{2.0, 20.0}, {1.0, 10.0}}, 0.5, (10.0 - 20.0) / (1.0 - 2.0) * (0.5 - 2.0), 0.5},
        {{{1.0, 10.0}, {3.0, 30.0}}, 4.0, (10.0 - 30.0) / (1.0 - 3.0) * (4.0 - 3.0), 4.0},
        {{{5.0, 50.0}}, 1.0, 50.0, 5.0},
        {{}, 1.0, untouched, 1.0},
    };
    for (const Row& row : rows)
    {
        CArena arena;
        CMaterial material(arena);
        material.SetKind(MLMATERIAL_METAL);
        AddTable(material, MLTABLE_ROUGHNESS_BOTTOM, 25.0, row.rows);
        EXPECT_DOUBLE_EQ(ValueOf(material, MLTABLE_ROUGHNESS_BOTTOM, row.frequency, 99.0), row.expected);
        auto& table = dynamic_cast<CMaterialTable&>(*material.GetTableAt(0));
        EXPECT_EQ(table.FindCachedValue(row.keptAt).has_value(), !row.rows.empty());
    }
}

TEST(GetValue, AnyDoublesEndInAValue)
{
    const double odd[] = {0.0, -1.0, 1e-320, 1e308, infinity, -infinity, notANumber, 1e9, 0.02};
    for (const double first : odd)
    {
        for (const double second : odd)
        {
            for (const double third : odd)
            {
                CArena arena;
                CMaterial material(arena);
                material.SetKind(MLMATERIAL_DIELECTRIC);
                AddTable(material, MLTABLE_ER, first, {{second, third}, {third, first}, {1e9, 4.0}});
                AddTable(material, MLTABLE_LOSS_TANGENT, first,
                         {{1e5, second}, {third, 0.02}, {second, first}});
                (void)ValueOf(material, MLTABLE_ER, third, first);
                (void)ValueOf(material, MLTABLE_LOSS_TANGENT, 3e9, second);
                EXPECT_LE(material.CountTables(MLTABLE_ALL), 4);
            }
        }
    }
}

TEST(AddDielectricPoint, MakesTablesAlsoForAMaterialThatIsNoDielectric)
{
    CArena arena;
    CMaterial metal(arena);
    metal.SetKind(MLMATERIAL_METAL);
    metal.AddDielectricPoint(1e9, 4.0, 0.02, 85.0);
    metal.AddDielectricPoint(2e9, 3.9, 0.03, 85.0);
    ASSERT_EQ(metal.CountTables(MLTABLE_ALL), 2);
    EXPECT_EQ(metal.GetTable(MLTABLE_ER, 85.0)->GetEntryCount(), 2);
    EXPECT_EQ(metal.GetTable(MLTABLE_LOSS_TANGENT, 85.0)->GetEntry(1).value, 0.03);
}
} // namespace
