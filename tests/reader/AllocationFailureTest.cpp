// Fails the n-th allocation, for every n, while a library is loaded and while it answers.
#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "reader/LoadMaterialFile.h"
#include "tests/CollectedMessages.h"
#include "tests/FailingMemory.h"
#include "tests/TemporaryFile.h"

#include <gtest/gtest.h>

namespace
{
// Materials enough for several chunks of the arena, and a table that is a large block of its own.
std::string MakeText()
{
    std::string text = "{MAT_FILE}{VERSION=1.0}\n";
    for (int i = 0; i < 30; ++i)
    {
        text += "{DIELECTRIC (NAME=\"a name longer than a short string\")(TYPE=\"FR4\")(TECHNOLOGY=Core)"
                "(THICKNESS=2e-4)(ER TEMPERATURE=20 TABLE=1MHz 4.6 100MHz 4.4 1GHz 4.3 10GHz 4.2)"
                "(ER TEMPERATURE=60 TABLE=1MHz 4.8 1GHz 4.5)"
                "(LOSSTANGENT TABLE=1MHz 0.015 100MHz 0.018 1GHz 0.019 10GHz 0.02)}\n";
    }
    text += "{DIELECTRIC (ER TABLE=\n";
    for (int i = 0; i < 6000; ++i)
    {
        text += "1GHz 4.3\n";
    }
    return text + ")}\n";
}
const std::string text = MakeText();

TEST(AllocationFailure, WhileLoading)
{
    const std::string broken = text + "{DIELECTRIC (NAME = unquoted)}";
    for (const std::string* const content : {&text, &broken})
    {
        const TemporaryFile file("x.mat", *content);
        const int allocations = FailEveryAllocation(
            [&file]
            {
                CollectedMessages messages;
                CFakeMaterialLib library;
                LoadMaterialFile(library, file.GetPath().c_str());
            });
        EXPECT_GT(allocations, content == &text ? 10 : 13);
    }
}

TEST(AllocationFailure, WhileFillingTheSampleLibraryAndFinding)
{
    const int allocations = FailEveryAllocation(
        []
        {
            CFakeMaterialLib library;
            library.FillSampleLibrary();
            (void)library.FindMaterial("Getinaks");
        });
    EXPECT_GE(allocations, 3);
}

// The library survives a failed question, and the next one is answered.
TEST(AllocationFailure, WhileEvaluating)
{
    for (int n = 0; n < 200; ++n)
    {
        std::string copy = text;
        CFakeMaterialLib library;
        ASSERT_TRUE(LoadMaterialText(library, copy, "x.mat"));
        IMaterial& material = *library.GetMaterial(0);
        double first = 0.0;
        allocationsLeft = n;
        try
        {
            material.GetValue(MLTABLE_ER, 2e9, &first, 20.0);
            material.GetValue(MLTABLE_LOSS_TANGENT, 3e9, &first, 40.0);
        }
        catch (const std::bad_alloc&)
        {
        }
        allocationsLeft = never;
        double value = 0.0;
        material.GetValue(MLTABLE_ER, 2e9, &value, 20.0);
        EXPECT_GT(value, 4.0) << n;
        EXPECT_LT(value, 4.4) << n;
        EXPECT_LE(material.CountTables(MLTABLE_ALL), 6);
    }
}
} // namespace
