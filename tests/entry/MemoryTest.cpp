// Loading and freeing again and again leaves the process as large as it was.
#include "MaterialLibrary/MaterialLibrary.h"
#include "tests/ProcessMemory.h"
#include "tests/TemporaryFile.h"

#include <gtest/gtest.h>

namespace
{
std::string ManyMaterials(int count)
{
    std::string text = "{MAT_FILE}{VERSION=1.0}\n";
    for (int i = 0; i < count; ++i)
    {
        text += "{DIELECTRIC (NAME = \"Laminate " + std::to_string(i) +
                "\") (TYPE = \"FR4\") (TECHNOLOGY = Core) (VENDOR = \"Typical\") (THICKNESS = 0.0002)\n"
                "(ER TABLE = 1MHz 4.6 10MHz 4.5 100MHz 4.4 1GHz 4.3 10GHz 4.2)\n"
                "(LOSSTANGENT TABLE = 1MHz 0.015 10MHz 0.016 100MHz 0.018 1GHz 0.019 10GHz 0.02) }\n";
    }
    return text;
}

void LoadAskAndFree(const std::string& path)
{
    IMatLib* const library = CreateMaterialLibrary(path.c_str());
    for (int i = 0; i < library->GetMaterialCount(); i += 1000)
    {
        double value = 0.0;
        for (const double frequency : {2e6, 3e8, 2.5e9})
        {
            library->GetMaterial(i)->GetValue(MLTABLE_ER, frequency, &value, 25.0);
            library->GetMaterial(i)->GetValue(MLTABLE_LOSS_TANGENT, frequency, &value, 85.0);
        }
        (void)library->GetMaterial(i)->GetTable(MLTABLE_ER, 40.0);
    }
    ASSERT_NE(library->FindMaterial("Laminate 7"), nullptr);
    FreeMaterialLibrary(library);
}

TEST(Memory, TwoHundredLoadsAndFreesLeaveTheProcessAsItWas)
{
#ifdef __SANITIZE_ADDRESS__
    constexpr int materials =
        500; // the sanitizer looks for leaks by itself and keeps freed memory for a while
    constexpr int rounds = 10;
    constexpr std::size_t slack = SIZE_MAX / 2;
#else
    constexpr int materials = 20'000;
    constexpr int rounds = 200;
    constexpr std::size_t slack = 4 << 20;
#endif
    const TemporaryFile file("many.mat", ManyMaterials(materials));
    for (int i = 0; i < 5; ++i)
    {
        LoadAskAndFree(file.GetPath());
    }
    const std::size_t before = GetProcessMemory();
    for (int i = 0; i < rounds; ++i)
    {
        LoadAskAndFree(file.GetPath());
    }
    const std::size_t after = GetProcessMemory();
    std::printf("process memory before %zu KiB, after %d loads of %d materials %zu KiB\n", before / 1024,
                rounds, materials, after / 1024);
    EXPECT_GT(before, 0u);
    EXPECT_LE(after, before + slack);
}
} // namespace
