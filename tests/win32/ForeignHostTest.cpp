// A host of another compiler: every slot that returns a scalar or a pointer, called on the real module.
#include "tests/CModalScript.h"
#include "tests/win32/CModule.h"
#include "tests/win32/foreign/ForeignSlots.h"

#include <gtest/gtest.h>

namespace
{
struct SampleRow
{
    double frequency;
    double er;
    double lossTangent;
};

struct Sample
{
    const char* name;
    const char* type;
    const char* comment;
    int technology;
    double thickness; // 0: none
    std::vector<SampleRow> rows;
};

const Sample samples[] = {
    {"Getinaks",
     "FR4-MTG",
     "Table contains 1GHz entry",
     MLTECHNOLOGY_CORE,
     0.0,
     {{1e6, 6.0, 0.035}, {5e7, 5.9, 0.03}, {1e9, 5.25, 0.028}, {5e9, 5.0, 0.027}}},
    {"Getinaks - 2",
     "FR4-MTG",
     "Table doesn't contain 1GHz entry",
     MLTECHNOLOGY_CORE,
     0.0,
     {{1e6, 6.0, 0.035}, {5e7, 5.9, 0.034}, {5e9, 5.0, 0.027}}},
    {"Fiberglass", "FR4-MTG Also", "Pretty good stuff", MLTECHNOLOGY_PREPREG, 0.0004, {{6.0, 2.2, 0.03}}},
    {"Singular",
     "FR4-MTG",
     "Table contains several the same entries",
     MLTECHNOLOGY_CORE,
     0.0,
     {{9e6, 4.3, 0.03}, {1.1e7, 4.3, 0.03}}},
};

class ForeignHost : public testing::Test
{
protected:
    CModule module{CModule::GetBuiltPath()};
    CModule::Library library = module.Create(nullptr);
};

TEST_F(ForeignHost, FindsMaterials)
{
    ASSERT_EQ(ForeignGetMaterialCount(library.get()), 4);
    EXPECT_EQ(ForeignGetMaterial(library.get(), -1), nullptr);
    EXPECT_EQ(ForeignGetMaterial(library.get(), 4), nullptr);
    EXPECT_EQ(ForeignFindMaterial(library.get(), ""), nullptr);
    EXPECT_EQ(ForeignFindMaterial(library.get(), "fiberglass"), nullptr);
    for (int i = 0; i < 4; ++i)
    {
        IMaterial* const material = ForeignGetMaterial(library.get(), i);
        ASSERT_NE(material, nullptr);
        EXPECT_STREQ(ForeignGetName(material), samples[i].name);
        EXPECT_EQ(ForeignFindMaterial(library.get(), samples[i].name), material);
    }
}

TEST_F(ForeignHost, ReadsMaterials)
{
    for (const Sample& sample : samples)
    {
        SCOPED_TRACE(sample.name);
        IMaterial* const material = ForeignFindMaterial(library.get(), sample.name);
        ASSERT_NE(material, nullptr);
        EXPECT_EQ(ForeignGetKind(material), MLMATERIAL_DIELECTRIC);
        EXPECT_STREQ(ForeignGetTypeName(material), sample.type);
        EXPECT_STREQ(ForeignGetVendor(material), "Nanya");
        EXPECT_STREQ(ForeignGetComment(material), sample.comment);
        int technology = 77;
        EXPECT_TRUE(ForeignGetIntAttribute(material, MLATTR_TECHNOLOGY, &technology));
        EXPECT_EQ(technology, sample.technology);
        double thickness = 0.0;
        EXPECT_EQ(ForeignGetAttribute(material, MLATTR_THICKNESS, &thickness), sample.thickness != 0.0);
        EXPECT_EQ(thickness, sample.thickness);
        EXPECT_FALSE(ForeignGetAttribute(material, MLATTR_BULK_RESISTIVITY, &thickness));
    }
}

TEST_F(ForeignHost, ReadsTablesAndValues)
{
    for (const Sample& sample : samples)
    {
        SCOPED_TRACE(sample.name);
        IMaterial* const material = ForeignFindMaterial(library.get(), sample.name);
        ASSERT_EQ(ForeignCountTables(material, MLTABLE_ALL), 2);
        EXPECT_EQ(ForeignGetTableAt(material, 2), nullptr);
        EXPECT_EQ(ForeignGetTable(material, MLTABLE_ROUGHNESS_TOP, 25.0), nullptr);
        for (const int kind : {MLTABLE_ER, MLTABLE_LOSS_TANGENT})
        {
            EXPECT_EQ(ForeignCountTables(material, kind), 1);
            IMaterialTable* const table = ForeignGetTable(material, kind, 25.05);
            ASSERT_NE(table, nullptr);
            EXPECT_TRUE(table == ForeignGetTableAt(material, 0) || table == ForeignGetTableAt(material, 1));
            EXPECT_EQ(ForeignGetTableKind(table), kind);
            EXPECT_EQ(ForeignGetTemperature(table), 25.0);
            ASSERT_EQ(ForeignGetEntryCount(table), static_cast<int>(sample.rows.size()));
            for (std::size_t i = 0; i < sample.rows.size(); ++i)
            {
                const SampleRow& row = sample.rows[i];
                const double expected = kind == MLTABLE_ER ? row.er : row.lossTangent;
                EXPECT_EQ(ForeignGetEntry(table, static_cast<int>(i))->frequency, row.frequency);
                EXPECT_EQ(ForeignGetEntry(table, static_cast<int>(i))->value, expected);
                double value = 0.0;
                ForeignGetValue(material, kind, row.frequency, &value, 25.0);
                EXPECT_EQ(value, expected);
            }
        }
    }
}

TEST_F(ForeignHost, GetsTheValuesThatAHostOfOurCompilerGets)
{
    IMaterial* const material = library->FindMaterial("Getinaks - 2");
    const CModule::Library other = module.Create(nullptr);
    for (const double frequency : {2e6, 1e9, 2.5e9})
    {
        double value = 0.0;
        double ours = -1.0;
        ForeignGetValue(material, MLTABLE_ER, frequency, &value, 25.0);
        other->FindMaterial("Getinaks - 2")->GetValue(MLTABLE_ER, frequency, &ours, 25.0);
        EXPECT_GT(value, 4.5);
        EXPECT_LT(value, 6.5);
        EXPECT_EQ(value, ours);
    }
}

TEST_F(ForeignHost, GetsTheMaterialThatTheUserAssigns)
{
    IMaterial* const current = library->FindMaterial("Getinaks - 2");
    for (const int button : {IDOK, IDCANCEL})
    {
        CModalScript script({[&]
                             {
                                 const HWND dialog = FindWindowA("#32770", "Select Material Models");
                                 char assigned[100] = {};
                                 GetDlgItemTextA(dialog, 1041, assigned, sizeof(assigned));
                                 EXPECT_STREQ(assigned, "Getinaks - 2");
                                 SendDlgItemMessageA(dialog, button, BM_CLICK, 0, 0);
                             }});
        EXPECT_EQ(ForeignChooseMaterial(library.get(), current, MLMATERIAL_DIELECTRIC),
                  button == IDOK ? current : nullptr);
        EXPECT_TRUE(script.IsDone());
    }
}
} // namespace
