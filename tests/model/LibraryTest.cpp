#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "tests/CollectedMessages.h"
#include "tests/CountingResource.h"

#include <gtest/gtest.h>

namespace
{
CMaterial& Add(CFakeMaterialLib& library, const char* name)
{
    CMaterial& material = library.MakeMaterial();
    material.SetName(name);
    library.AddMaterial(material);
    return material;
}

TEST(CFakeMaterialLib, FindsTheMaterialAddedLastByItsExactName)
{
    CFakeMaterialLib library;
    Add(library, "A");
    CMaterial& second = Add(library, "A");
    CMaterial& other = Add(library, "b");
    Add(library, "");
    EXPECT_EQ(library.FindMaterial("A"), &second);
    EXPECT_EQ(library.FindMaterial("A"), &second);
    EXPECT_EQ(library.FindMaterial("b"), &other);
    for (const char* const unknown : {"B", "a", "A ", ""})
    {
        EXPECT_EQ(library.FindMaterial(unknown), nullptr) << unknown;
    }
    EXPECT_EQ(library.FindMaterial(nullptr), nullptr);
    EXPECT_EQ(library.GetMaterialCount(), 4);
    EXPECT_EQ(library.GetMaterial(-1), nullptr);
    EXPECT_EQ(library.GetMaterial(4), nullptr);
    EXPECT_EQ(library.GetMaterial(2), &other);
}

// Whatever the order of the questions, the answers are those of a plain scan from the end.
TEST(CFakeMaterialLib, FindsTheSameAsAPlainScan)
{
    constexpr int count = 500;
    for (const int step : {1, 7, 499, 251})
    {
        CFakeMaterialLib library;
        for (int i = 0; i < count; ++i)
        {
            Add(library, std::to_string(i * i % 97).c_str());
        }
        for (int i = 0; i < count; ++i)
        {
            const std::string name = std::to_string(i * step % count);
            IMaterial* expected = nullptr;
            for (int index = 0; index < count; ++index)
            {
                IMaterial* const material = library.GetMaterial(index);
                expected = material->GetName() == name ? material : expected;
            }
            ASSERT_EQ(library.FindMaterial(name.c_str()), expected) << name;
        }
    }
}

TEST(CFakeMaterialLib, RemovingAllGivesTheMemoryBackAndLeavesAUsableLibrary)
{
    CountingResource heap;
    CFakeMaterialLib library(&heap);
    for (int round = 0; round < 3; ++round)
    {
        library.FillSampleLibrary();
        double value = 0.0;
        library.GetMaterial(0)->GetValue(MLTABLE_ER, 2e9, &value, 25.0);
        library.GetMaterial(0)->GetValue(MLTABLE_ER, 2e9, &value, 60.0);
        EXPECT_NE(library.FindMaterial("Fiberglass"), nullptr);
        EXPECT_GT(heap.bytes, 0u);
        library.RemoveAllMaterials();
        EXPECT_EQ(heap.bytes, 0u);
        EXPECT_EQ(library.GetMaterialCount(), 0);
        EXPECT_EQ(library.FindMaterial("Fiberglass"), nullptr);
    }
}

TEST(CFakeMaterialLib, ChoosingGoesToTheModulesChooserInTheModulesState)
{
    static CModuleState* seenState;
    static int seenKind;
    CFakeMaterialLib library;
    library.FillSampleLibrary();
    CFakeMaterialLib::SetChooser(
        [](IMatLib& from, IMaterial* current, int kind) -> IMaterial*
        {
            seenState = CurrentModuleState();
            seenKind = kind;
            return current == nullptr ? from.GetMaterial(1) : current;
        });
    EXPECT_EQ(library.ChooseMaterial(nullptr, MLMATERIAL_METAL), library.GetMaterial(1));
    EXPECT_EQ(seenState, &OwnModuleState());
    EXPECT_EQ(seenKind, MLMATERIAL_METAL);
    CFakeMaterialLib::SetChooser([](IMatLib&, IMaterial*, int) -> IMaterial* { throw std::bad_alloc(); });
    EXPECT_THROW((void)library.ChooseMaterial(nullptr, 0), std::bad_alloc);
    EXPECT_EQ(CurrentModuleState(), nullptr); // back in the host's, also after an exception
    CFakeMaterialLib::SetChooser(nullptr);

    CollectedMessages messages;
    EXPECT_EQ(library.ChooseMaterial(library.GetMaterial(0), MLMATERIAL_DIELECTRIC), nullptr);
    ASSERT_EQ(messages.boxes.size(), 1u);
    EXPECT_NE(messages.boxes[0].text.find("no dialog"), std::string::npos);
}

TEST(SampleLibrary, HoldsTheFourMaterials)
{
    struct Expected
    {
        const char* name;
        const char* typeName;
        const char* comment;
        int technology;
        double thickness; // 0: none
        std::vector<MLTBLENTRY> permittivity;
        std::vector<double> lossTangent;
    };
    const Expected expected[] = {
        {"Getinaks",
         "FR4-MTG",
         "Table contains 1GHz entry",
         0,
         0.0,
         {{1e6, 6.0}, {5e7, 5.9}, {1e9, 5.25}, {5e9, 5.0}},
         {0.035, 0.03, 0.028, 0.027}},
        {"Getinaks - 2",
         "FR4-MTG",
         "Table doesn't contain 1GHz entry",
         0,
         0.0,
         {{1e6, 6.0}, {5e7, 5.9}, {5e9, 5.0}},
         {0.035, 0.034, 0.027}},
        {"Fiberglass", "FR4-MTG Also", "Pretty good stuff", 1, 0.0004, {{6.0, 2.2}}, {0.03}},
        {"Singular",
         "FR4-MTG",
         "Table contains several the same entries",
         0,
         0.0,
         {{9e6, 4.3}, {1.1e7, 4.3}},
         {0.03, 0.03}},
    };
    CFakeMaterialLib library;
    library.FillSampleLibrary();
    ASSERT_EQ(library.GetMaterialCount(), 4);
    EXPECT_EQ(library.FindMaterial("Fiberglass"), library.GetMaterial(2));
    for (int i = 0; i < 4; ++i)
    {
        IMaterial& material = *library.GetMaterial(i);
        const Expected& want = expected[i];
        EXPECT_STREQ(material.GetName(), want.name);
        EXPECT_STREQ(material.GetTypeName(), want.typeName);
        EXPECT_STREQ(material.GetVendor(), "Nanya");
        EXPECT_STREQ(material.GetComment(), want.comment);
        EXPECT_EQ(material.GetKind(), MLMATERIAL_DIELECTRIC);
        int technology = -9;
        EXPECT_TRUE(material.GetIntAttribute(MLATTR_TECHNOLOGY, &technology));
        EXPECT_EQ(technology, want.technology);
        double thickness = 0.0;
        EXPECT_EQ(material.GetAttribute(MLATTR_THICKNESS, &thickness), want.thickness != 0.0);
        EXPECT_EQ(thickness, want.thickness);
        ASSERT_EQ(material.CountTables(MLTABLE_ALL), 2);
        for (const int kind : {MLTABLE_ER, MLTABLE_LOSS_TANGENT})
        {
            const IMaterialTable& table = *material.GetTable(kind, 25.0);
            EXPECT_EQ(table.GetTemperature(), 25.0);
            ASSERT_EQ(table.GetEntryCount(), static_cast<int>(want.permittivity.size()));
            for (int row = 0; row < table.GetEntryCount(); ++row)
            {
                const auto index = static_cast<std::size_t>(row);
                EXPECT_EQ(table.GetEntry(row).frequency, want.permittivity[index].frequency);
                EXPECT_EQ(table.GetEntry(row).value,
                          kind == MLTABLE_ER ? want.permittivity[index].value : want.lossTangent[index]);
            }
        }
    }
}
} // namespace
