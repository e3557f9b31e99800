// A host of another compiler: every slot that returns a scalar or a pointer, called on the real module.
#include "tests/CModalScript.h"
#include "tests/win32/CModule.h"
#include "tests/win32/foreign/ForeignSlots.h"

#include <gtest/gtest.h>

namespace
{
class ForeignHost : public testing::Test
{
protected:
    CModule module{CModule::GetBuiltPath()};
    CModule::Library library = module.Create(nullptr);
    const ForeignSlots& foreign = foreignSlots;
};

TEST_F(ForeignHost, FindsMaterials)
{
    ASSERT_EQ(foreign.getMaterialCount(library.get()), 4);
    EXPECT_EQ(foreign.getMaterial(library.get(), -1), nullptr);
    EXPECT_EQ(foreign.getMaterial(library.get(), 4), nullptr);
    EXPECT_EQ(foreign.findMaterial(library.get(), "getinaks"), nullptr);
    IMaterial* const last = foreign.getMaterial(library.get(), 3);
    EXPECT_EQ(last, library->GetMaterial(3));
    EXPECT_STREQ(foreign.getName(last), "Singular");
    EXPECT_EQ(foreign.findMaterial(library.get(), "Singular"), last);
}

TEST_F(ForeignHost, ReadsAMaterial)
{
    IMaterial* const material = foreign.findMaterial(library.get(), "Fiberglass");
    ASSERT_NE(material, nullptr);
    EXPECT_EQ(foreign.getKind(material), MLMATERIAL_DIELECTRIC);
    EXPECT_STREQ(foreign.getTypeName(material), "FR4-MTG Also");
    EXPECT_STREQ(foreign.getVendor(material), "Nanya");
    EXPECT_STREQ(foreign.getComment(material), "Pretty good stuff");
    int technology = 77;
    EXPECT_TRUE(foreign.getIntAttribute(material, MLATTR_TECHNOLOGY, &technology));
    EXPECT_EQ(technology, MLTECHNOLOGY_PREPREG);
    double thickness = 0.0;
    EXPECT_TRUE(foreign.getAttribute(material, MLATTR_THICKNESS, &thickness));
    EXPECT_EQ(thickness, 0.0004);
    EXPECT_FALSE(foreign.getAttribute(material, MLATTR_BULK_RESISTIVITY, &thickness));
}

TEST_F(ForeignHost, ReadsTablesAndValues)
{
    IMaterial* const material = foreign.findMaterial(library.get(), "Getinaks");
    EXPECT_EQ(foreign.countTables(material, MLTABLE_ALL), 2);
    EXPECT_EQ(foreign.countTables(material, MLTABLE_LOSS_TANGENT), 1);
    EXPECT_EQ(foreign.getTableAt(material, 2), nullptr);
    EXPECT_EQ(foreign.getTableAt(material, 1), material->GetTableAt(1));
    EXPECT_EQ(foreign.getTable(material, MLTABLE_ROUGHNESS_TOP, 25.0), nullptr);
    IMaterialTable* const table = foreign.getTable(material, MLTABLE_LOSS_TANGENT, 25.05);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(foreign.getTableKind(table), MLTABLE_LOSS_TANGENT);
    EXPECT_EQ(foreign.getTemperature(table), 25.0);
    ASSERT_EQ(foreign.getEntryCount(table), 4);
    EXPECT_EQ(foreign.getEntry(table, 1)->frequency, 5e7);
    EXPECT_EQ(foreign.getEntry(table, 1)->value, 0.03);
    const CModule::Library other = module.Create(nullptr);
    for (const double frequency : {2e6, 1e9, 2.5e9})
    {
        double value = 0.0;
        double ours = -1.0;
        foreign.getValue(material, MLTABLE_ER, frequency, &value, 25.0);
        other->FindMaterial("Getinaks")->GetValue(MLTABLE_ER, frequency, &ours, 25.0);
        EXPECT_GT(value, 4.5);
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
        EXPECT_EQ(foreign.chooseMaterial(library.get(), current, MLMATERIAL_DIELECTRIC),
                  button == IDOK ? current : nullptr);
        EXPECT_TRUE(script.IsDone());
    }
}
} // namespace
