#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "reader/LoadMaterialFile.h"
#include "resources/Texts.h"
#include "tests/CollectedMessages.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace
{
const std::string examples = ML_SOURCE_DIR "/examples/";

TEST(BrokenExamples, AreRefusedWhereExpected)
{
    std::ifstream expectations(examples + "broken/EXPECTED.txt");
    std::string file;
    unsigned identifier = 0;
    unsigned line = 0;
    unsigned column = 0;
    int checked = 0;
    while (expectations >> file >> identifier >> line >> column)
    {
        const std::string path = examples + "broken/" + file;
        CollectedMessages messages;
        CFakeMaterialLib library;
        EXPECT_FALSE(LoadMaterialFile(library, path.c_str())) << file;
        ASSERT_EQ(messages.boxes.size(), 1u) << file;
        std::ostringstream expected;
        expected << path << ", line " << line << ", column " << column << ": " << LoadText(identifier);
        EXPECT_EQ(messages.boxes[0].text, expected.str());
        ++checked;
    }
    const auto folder = std::filesystem::directory_iterator(examples + "broken");
    const auto files = std::count_if(begin(folder), end(folder),
                                     [](const auto& entry) { return entry.path().extension() == ".mat"; });
    EXPECT_EQ(checked, files);
    EXPECT_GE(checked, 10);
}

struct Counts
{
    int materials = 0;
    int severalTemperatures = 0;
    int technologies[3] = {};
};

Counts CheckLibrary(const char* file, int kind, std::initializer_list<int> tableKinds)
{
    Counts counts;
    CollectedMessages messages;
    CFakeMaterialLib library;
    EXPECT_TRUE(LoadMaterialFile(library, (examples + "materials/" + file).c_str()));
    EXPECT_EQ(messages.boxes.size(), 0u);
    counts.materials = library.GetMaterialCount();
    for (int i = 0; i < counts.materials; ++i)
    {
        IMaterial& material = *library.GetMaterial(i);
        const std::string name = material.GetName();
        EXPECT_EQ(material.GetKind(), kind) << name;
        EXPECT_EQ(library.FindMaterial(name.c_str()), &material) << name; // no name twice
        for (const int tableKind : tableKinds)
        {
            EXPECT_GE(material.CountTables(tableKind), 1) << name;
        }
        counts.severalTemperatures += material.CountTables(MLTABLE_ER) > 1 ? 1 : 0;
        int technology = MLTECHNOLOGY_UNKNOWN;
        if (material.GetIntAttribute(MLATTR_TECHNOLOGY, &technology) && technology >= 0)
        {
            ++counts.technologies[technology];
        }
    }
    return counts;
}

TEST(ExampleMaterials, DielectricsAreManyAndOfEveryTechnology)
{
    const Counts counts =
        CheckLibrary("DefaultMaterialD.mat", MLMATERIAL_DIELECTRIC, {MLTABLE_ER, MLTABLE_LOSS_TANGENT});
    EXPECT_GE(counts.materials, 25);
    EXPECT_GE(counts.severalTemperatures, 3);
    for (const int count : counts.technologies)
    {
        EXPECT_GE(count, 2);
    }
}

TEST(ExampleMaterials, MetalsConduct)
{
    const Counts counts = CheckLibrary("DefaultMaterialM.mat", MLMATERIAL_METAL,
                                       {MLTABLE_ROUGHNESS_TOP, MLTABLE_ROUGHNESS_BOTTOM});
    EXPECT_GE(counts.materials, 8);
    CFakeMaterialLib library;
    ASSERT_TRUE(LoadMaterialFile(library, (examples + "materials/DefaultMaterialM.mat").c_str()));
    for (int i = 0; i < library.GetMaterialCount(); ++i)
    {
        double resistivity = 0.0;
        EXPECT_TRUE(library.GetMaterial(i)->GetAttribute(MLATTR_BULK_RESISTIVITY, &resistivity));
        EXPECT_GT(resistivity, 1e-9);
        EXPECT_LT(resistivity, 1e-6);
    }
}
} // namespace
