#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace
{
TEST(CMaterial, IsEmptyAtFirst)
{
    CFakeMaterialLib library;
    const CMaterial& material = library.MakeMaterial();
    double value = 7.0;
    int technology = 7;
    EXPECT_EQ(material.GetKind(), MLMATERIAL_NOT_SET);
    EXPECT_STREQ(material.GetName(), "");
    EXPECT_STREQ(material.GetTypeName(), "");
    EXPECT_STREQ(material.GetVendor(), "");
    EXPECT_STREQ(material.GetComment(), "");
    EXPECT_FALSE(material.GetAttribute(MLATTR_THICKNESS, &value));
    EXPECT_EQ(value, 7.0);
    EXPECT_TRUE(material.GetIntAttribute(MLATTR_THICKNESS, &technology));
    EXPECT_EQ(technology, MLTECHNOLOGY_UNKNOWN);
}

TEST(CMaterial, TakesWhatALegacyRecordSaysIsPresent)
{
    CFakeMaterialLib library;
    const CMaterial& material = library.MakeMaterial(
        {.name = "record", .hasBulkResistivity = true, .technology = 2, .numbers = {.bulkResistivity = 2.0}});
    EXPECT_STREQ(material.GetName(), "record");
    EXPECT_EQ(material.GetKind(), MLMATERIAL_DIELECTRIC);
    double value = 0.0;
    EXPECT_TRUE(material.GetAttribute(MLATTR_BULK_RESISTIVITY, &value));
    EXPECT_EQ(value, 2.0);
    EXPECT_FALSE(material.GetAttribute(MLATTR_THICKNESS, &value));
}

TEST(CMaterial, KeepsAttributesByIdentifierButOneTechnologyForAll)
{
    CFakeMaterialLib library;
    CMaterial& material = library.MakeMaterial();
    material.SetAttribute(MLATTR_THICKNESS, 0.1);
    material.SetAttribute(static_cast<MLATTRIBID>(-77), 5.0);
    material.SetAttribute(MLATTR_THICKNESS, 0.0002);
    double value = 0.0;
    EXPECT_TRUE(material.GetAttribute(MLATTR_THICKNESS, &value));
    EXPECT_EQ(value, 0.0002);
    EXPECT_TRUE(material.GetAttribute(static_cast<MLATTRIBID>(-77), &value));
    EXPECT_EQ(value, 5.0);
    EXPECT_FALSE(material.GetAttribute(MLATTR_BULK_RESISTIVITY, &value));

    material.SetIntAttribute(static_cast<MLATTRIBID>(5), 2);
    int technology = 0;
    EXPECT_TRUE(material.GetIntAttribute(MLATTR_THICKNESS, &technology));
    EXPECT_EQ(technology, 2);
}

TEST(CMaterial, BothInterfacesSeeTheSameMaterial)
{
    CFakeMaterialLib library;
    CMaterial& material = library.MakeMaterial();
    IMaterialIO& builder = material;
    IMaterial& reader = material;
    char name[] = "Laminate";
    builder.SetName(name);
    name[0] = 'X';
    builder.SetKind(MLMATERIAL_METAL);
    EXPECT_STREQ(reader.GetName(), "Laminate");
    EXPECT_EQ(reader.GetKind(), MLMATERIAL_METAL);

    for (const int kind : {MLTABLE_ER, MLTABLE_LOSS_TANGENT, MLTABLE_ER})
    {
        EXPECT_EQ(builder.AddTable(kind)->GetTableKind(), kind);
    }
    EXPECT_EQ(reader.CountTables(MLTABLE_ALL), 3);
    EXPECT_EQ(builder.CountTables(MLTABLE_ER), 2);
    EXPECT_EQ(reader.CountTables(MLTABLE_ROUGHNESS_TOP), 0);
    for (const int outside : {-1, 3, 1'000'000})
    {
        EXPECT_EQ(reader.GetTableAt(outside), nullptr);
        EXPECT_EQ(builder.GetTableIO(outside), nullptr);
    }
    builder.GetTableIO(1)->AddEntry({1e6, 0.02});
    EXPECT_EQ(reader.GetTableAt(1)->GetEntry(0).value, 0.02);
}

TEST(CMaterialTable, KeepsRowsAsAddedAndChecksIndexes)
{
    CArena arena;
    CMaterialTable table(arena, MLTABLE_LOSS_TANGENT);
    IMaterialTableIO& builder = table;
    const IMaterialTable& reader = table;
    EXPECT_EQ(reader.GetTableKind(), MLTABLE_LOSS_TANGENT);
    EXPECT_EQ(reader.GetTemperature(), 25.0);
    EXPECT_EQ(reader.GetEntryCount(), 0);
    EXPECT_THROW((void)builder.GetFirstValue(), std::invalid_argument);

    builder.AddEntry({1e6, 4.5});
    EXPECT_FALSE(builder.HasSeveralEntries());
    builder.AddEntry(reader.GetEntry(0)); // its own row
    builder.AddEntry({1e3, 4.6});
    EXPECT_TRUE(builder.HasSeveralEntries());
    EXPECT_EQ(reader.GetEntry(2).frequency, 1e3);
    EXPECT_EQ(builder.GetEntry(1).value, 4.5);
    EXPECT_EQ(builder.GetEntry(1).frequency, 1e6);
    for (const int outside : {-1, 3})
    {
        EXPECT_THROW((void)reader.GetEntry(outside), std::invalid_argument);
        EXPECT_THROW((void)builder.GetEntry(outside), std::invalid_argument);
    }

    builder.SetSingleValue(3.3);
    ASSERT_EQ(reader.GetEntryCount(), 1);
    EXPECT_EQ(reader.GetEntry(0).frequency, 1.0e9);
    EXPECT_EQ(builder.GetFirstValue(), 3.3);
    EXPECT_FALSE(builder.HasSeveralEntries());
}

} // namespace
