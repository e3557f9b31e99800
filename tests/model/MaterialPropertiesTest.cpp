#include "dielectric/CWidebandDebyeModel.h"
#include "model/CFakeMaterialLib.h"
#include "model/CKeptFit.h"
#include "model/CMaterial.h"

#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace
{
constexpr double untouched = 77.0;
using Rows = std::vector<MLTBLENTRY>;

// A material in a library of its own.
struct Sample
{
    explicit Sample(int kind) { material.SetKind(kind); }

    IMaterialTableIO& Add(int kind, double temperature, const Rows& rows)
    {
        IMaterialTableIO& table = *material.AddTable(kind);
        table.SetTemperature(temperature);
        for (const MLTBLENTRY& row : rows)
        {
            table.AddEntry(row);
        }
        return table;
    }
    IMaterialTable* Table(int kind, double temperature) { return material.GetTable(kind, temperature); }
    double Value(int kind, double frequency, double temperature = 25.0)
    {
        double value = untouched;
        material.GetValue(kind, frequency, &value, temperature);
        return value;
    }

    CFakeMaterialLib library;
    CMaterial& material = library.MakeMaterial();
};

TEST(GetTable, TakesTheNearestTableWithinATenthOfADegree)
{
    Sample sample(MLMATERIAL_DIELECTRIC);
    sample.Add(MLTABLE_ER, 25.0, {});
    sample.Add(MLTABLE_LOSS_TANGENT, 25.05, {});
    sample.Add(MLTABLE_ER, 25.08, {});
    sample.Add(MLTABLE_ER, 25.0, {});
    CMaterial& material = sample.material;
    EXPECT_EQ(sample.Table(MLTABLE_ER, 25.01), material.GetTableAt(3)); // of equally near ones the last
    EXPECT_EQ(sample.Table(MLTABLE_ER, 25.05), material.GetTableAt(2));
    EXPECT_EQ(sample.Table(MLTABLE_ER, 24.95), material.GetTableAt(3));
    EXPECT_EQ(material.CountTables(MLTABLE_ALL), 4);
    const IMaterialTable* const derived = sample.Table(MLTABLE_ER, 24.9); // a tenth away is too far
    EXPECT_EQ(derived, material.GetTableAt(4));
    EXPECT_EQ(material.CountTables(MLTABLE_ALL), 5);
}

TEST(GetTable, RoughnessIgnoresTemperatureAndMetalsDeriveNothing)
{
    Sample metal(MLMATERIAL_METAL);
    metal.Add(MLTABLE_ROUGHNESS_TOP, 25.0, {});
    metal.Add(MLTABLE_ROUGHNESS_TOP, 100.0, {});
    EXPECT_EQ(metal.Table(MLTABLE_ROUGHNESS_TOP, 25.0), metal.material.GetTableAt(1));
    for (const int none : {int{MLTABLE_ROUGHNESS_BOTTOM}, int{MLTABLE_ER}, 9})
    {
        EXPECT_EQ(metal.Table(none, 25.0), nullptr);
        EXPECT_EQ(metal.Value(none, 1e9), untouched);
    }
    EXPECT_EQ(metal.material.CountTables(MLTABLE_ALL), 2);
}

// Rows: what stands at 20 °C and 40 °C, and what is derived for 30 °C.
TEST(GetTable, DerivesOneRowFromBothNeighbours)
{
    struct Row
    {
        Rows at20, at40;
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
        Sample sample(MLMATERIAL_DIELECTRIC);
        // Of two tables at one temperature the one added last counts.
        for (const double other : {-60.0, 20.0, 40.0, 400.0})
        {
            sample.Add(MLTABLE_ER, other, {{1e9, 100.0}});
        }
        sample.Add(MLTABLE_ER, 20.0, row.at20);
        sample.Add(MLTABLE_ER, 40.0, row.at40);
        IMaterialTable* const derived = sample.Table(MLTABLE_ER, 30.0);
        EXPECT_EQ(derived, sample.material.GetTableAt(6));
        EXPECT_EQ(derived->GetTemperature(), 30.0);
        ASSERT_EQ(derived->GetEntryCount(), 1);
        EXPECT_EQ(derived->GetEntry(0).frequency, 1e9);
        EXPECT_EQ(derived->GetEntry(0).value, row.expected);
        EXPECT_EQ(sample.Table(MLTABLE_ER, 30.05), derived); // appended once
    }
}

TEST(GetTable, CopiesTheOnlyNeighbourAndStaysEmptyWithoutOne)
{
    Sample sample(MLMATERIAL_DIELECTRIC);
    sample.Add(MLTABLE_ER, 25.0, {{1e6, 4.6}, {1e9, 4.2}});
    for (const double temperature : {85.0, -10.0})
    {
        const IMaterialTable* const derived = sample.Table(MLTABLE_ER, temperature);
        ASSERT_EQ(derived->GetEntryCount(), 2);
        EXPECT_EQ(derived->GetEntry(0).value, 4.6);
        EXPECT_EQ(derived->GetTemperature(), temperature);
    }
    EXPECT_EQ(sample.Table(MLTABLE_LOSS_TANGENT, 85.0)->GetEntryCount(), 0);
    EXPECT_EQ(sample.Value(MLTABLE_LOSS_TANGENT, 1e9, 85.0), untouched);
    for (const double absurd : {HUGE_VAL, -HUGE_VAL, double{NAN}, 1e300})
    {
        const IMaterialTable* const derived = sample.Table(MLTABLE_ER, absurd);
        EXPECT_EQ(sample.Table(MLTABLE_ER, absurd), derived) << absurd;
    }
}

TEST(GetValue, AnswersFromConstantsAndExactRowsWithoutFitting)
{
    Sample sample(MLMATERIAL_DIELECTRIC);
    sample.Add(MLTABLE_ER, 25.0, {{1e9, 4.3}});
    EXPECT_EQ(sample.Value(MLTABLE_ER, 1e9), 4.3);
    EXPECT_EQ(sample.material.CountTables(MLTABLE_ALL), 1); // loss tangents were not looked for
    EXPECT_EQ(sample.Value(MLTABLE_ER, 5e9), untouched);
    sample.Add(MLTABLE_LOSS_TANGENT, 25.0, {{1e9, 0.02}});
    EXPECT_EQ(sample.Value(MLTABLE_ER, 5e9), 4.3);
    EXPECT_EQ(sample.Value(MLTABLE_LOSS_TANGENT, NAN), 0.02);

    Sample repeated(MLMATERIAL_DIELECTRIC);
    repeated.Add(MLTABLE_ER, 25.0, {{1e6, 4.5}, {1e9, 4.2}, {1e6, 4.4}});
    EXPECT_EQ(repeated.Value(MLTABLE_ER, 1e6), 4.4); // the last row of a frequency
}

TEST(GetValue, FitsTheModelAndKeepsBothValues)
{
    Rows er = {{1e6, 4.6}, {1e8, 4.4}, {1e9, 4.3}, {1e10, 4.2}};
    const Rows loss = {{1e6, 0.015}, {1e8, 0.018}, {1e9, 0.019}, {1e10, 0.02}};
    Sample sample(MLMATERIAL_DIELECTRIC);
    IMaterialTableIO& erTable = sample.Add(MLTABLE_ER, 25.0, er);
    sample.Add(MLTABLE_LOSS_TANGENT, 25.0, loss);
    const auto model = CWidebandDebyeModel::Fit(PrepareData(er, loss));
    const std::complex<double> eps = model->Evaluate(2.5e9);
    EXPECT_EQ(sample.Value(MLTABLE_LOSS_TANGENT, 2.5e9), -eps.imag() / eps.real());
    EXPECT_EQ(sample.Value(MLTABLE_ER, 2.6e9), model->Evaluate(2.6e9).real());

    // What is kept does not change any more; new questions see the new row.
    erTable.AddEntry({1e11, 1.0});
    er.push_back({1e11, 1.0});
    EXPECT_EQ(sample.Value(MLTABLE_ER, 2.5e9), eps.real());
    EXPECT_EQ(sample.Value(MLTABLE_LOSS_TANGENT, 2.5e9), -eps.imag() / eps.real());
    EXPECT_EQ(sample.Value(MLTABLE_ER, 2.7e9),
              CWidebandDebyeModel::Fit(PrepareData(er, loss))->Evaluate(2.7e9).real());
    EXPECT_EQ(sample.material.CountTables(MLTABLE_ALL), 2);
}

TEST(CKeptFit, FitsOtherRowsAnew)
{
    const Rows er[] = {{{1e6, 4.6}, {1e9, 4.3}}, {{1e6, 4.6}, {1e9, 4.2}}};
    const Rows loss[] = {{{1e6, 0.015}, {1e9, 0.019}}, {{1e6, 0.015}, {1e9, 0.02}}};
    CKeptFit kept;
    for (const auto& [i, j] : {std::pair(0, 0), {1, 1}, {1, 0}, {0, 0}, {0, 1}})
    {
        EXPECT_TRUE(*kept.Fit(er[i], loss[j]) == CWidebandDebyeModel::Fit(PrepareData(er[i], loss[j])));
    }
}

TEST(GetValue, AFailedFitIsMinusOneAndIsNotKept)
{
    Sample sample(MLMATERIAL_DIELECTRIC);
    sample.Add(MLTABLE_ER, 25.0, {{1e6, 4.5}, {1e9, 4.2}});
    IMaterialTableIO& loss = sample.Add(MLTABLE_LOSS_TANGENT, 25.0, {{1e6, 0.02}});
    EXPECT_EQ(sample.Value(MLTABLE_ER, 2e9), -1.0);
    loss.AddEntry({1e9, 0.021});
    EXPECT_GT(sample.Value(MLTABLE_ER, 2e9), 1.0);
}

// Two tables of one kind share the other kind's table, and with it what is kept there.
TEST(GetValue, TheValueKeptLastCounts)
{
    Sample sample(MLMATERIAL_DIELECTRIC);
    sample.Add(MLTABLE_ER, 25.0, {{1e6, 4.5}, {1e9, 4.2}});
    sample.Add(MLTABLE_LOSS_TANGENT, 25.05, {{1e6, 0.02}, {1e9, 0.02}});
    sample.Add(MLTABLE_ER, 25.08, {{1e6, 3.5}, {1e9, 2.2}});
    (void)sample.Value(MLTABLE_ER, 2e8, 25.0);
    const double first = sample.Value(MLTABLE_LOSS_TANGENT, 2e8, 25.0);
    (void)sample.Value(MLTABLE_ER, 2e8, 25.08);
    EXPECT_NE(sample.Value(MLTABLE_LOSS_TANGENT, 2e8, 25.0), first);
}

// Rows: the table, the frequency asked, the value, and the frequency under which it is kept.
TEST(GetValue, RoughnessComesFromTheRowsAround)
{
    struct Row
    {
        Rows rows;
        double frequency, expected, keptAt;
    };
    const Row rows[] = {
        {{{1.0, 10.0}, {3.0, 30.0}}, 2.0, 10.0, 2.0}, // the lower value is not added
        {{{9.0, 90.0}, {1.0, 10.0}, {3.0, 30.0}, {2.5, 26.0}}, 2.0, 16.0 / 1.5 * 1.0, 2.0},
        {{{1.0, 10.0}, {1.0, 20.0}, {3.0, 30.0}, {3.0, 60.0}},
         2.0,
         10.0,
         2.0},                                        // the first of equally near ones
        {{{1.0, 10.0}, {3.0, 30.0}}, 0.5, 10.0, 1.0}, // below all: the first row
        {{{2.0, 20.0}, {1.0, 10.0}}, 0.5, (10.0 - 20.0) / (1.0 - 2.0) * (0.5 - 2.0), 0.5},
        {{{1.0, 10.0}, {3.0, 30.0}}, 4.0, (10.0 - 30.0) / (1.0 - 3.0) * (4.0 - 3.0), 4.0},
        {{{5.0, 50.0}}, 1.0, 50.0, 5.0},
        {{}, 1.0, untouched, 1.0},
    };
    for (const Row& row : rows)
    {
        Sample metal(MLMATERIAL_METAL);
        metal.Add(MLTABLE_ROUGHNESS_BOTTOM, 25.0, row.rows);
        EXPECT_DOUBLE_EQ(metal.Value(MLTABLE_ROUGHNESS_BOTTOM, row.frequency, 99.0), row.expected);
        auto& table = dynamic_cast<CMaterialTable&>(*metal.material.GetTableAt(0));
        EXPECT_EQ(table.FindCachedValue(row.keptAt).has_value(), !row.rows.empty());
    }
}

TEST(AddDielectricPoint, MakesTablesAlsoForAMaterialThatIsNoDielectric)
{
    Sample metal(MLMATERIAL_METAL);
    metal.material.AddDielectricPoint(1e9, 4.0, 0.02, 85.0);
    metal.material.AddDielectricPoint(2e9, 3.9, 0.03, 85.0);
    ASSERT_EQ(metal.material.CountTables(MLTABLE_ALL), 2);
    EXPECT_EQ(metal.Table(MLTABLE_ER, 85.0)->GetEntryCount(), 2);
    EXPECT_EQ(metal.Table(MLTABLE_LOSS_TANGENT, 85.0)->GetEntry(1).value, 0.03);
}
} // namespace
