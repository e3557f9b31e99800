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
} // namespace
