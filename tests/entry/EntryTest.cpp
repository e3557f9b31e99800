#include "MaterialLibrary/MaterialLibrary.h"
#include "resources/Texts.h"
#include "tests/CollectedMessages.h"
#include "tests/ProcessMemory.h"
#include "tests/TemporaryFile.h"

#include <gtest/gtest.h>
#include <memory>

namespace
{
struct Free
{
    void operator()(IMatLib* library) const { FreeMaterialLibrary(library); }
};
using Library = std::unique_ptr<IMatLib, Free>;

Library keptToTheEnd; // as a host may keep one: freed after everything else of the program

const std::string header = "{MAT_FILE}{VERSION=1.0}\n";

// Rows: the list, the names in the library, whether a file is reported, whether dielectrics are missed.
TEST(Entry, ReadsTheListFromLeftToRight)
{
    const TemporaryFile dielectrics("d one.mat", header + "{DIELECTRIC(NAME=\"X\")}{DIELECTRIC(NAME=\"Y\")}");
    const TemporaryFile metals("m.mat", header + "{METAL(NAME=\"Cu\")}");
    const TemporaryFile broken("b.mat", header + "{METAL(NAME=Cu)}");
    const std::string d = dielectrics.GetPath(), m = metals.GetPath(), b = broken.GetPath();
    const std::string folder = std::string(ML_SOURCE_DIR) + "/examples";
    struct Row
    {
        std::string list;
        std::vector<std::string> names;
        bool reportsFile, missesDielectrics;
    };
    const Row rows[] = {
        {"", {}, false, true},         {";;;", {}, false, true},
        {d, {"X", "Y"}, false, false}, {";" + m + ";;" + d + ";", {"Cu", "X", "Y"}, false, false},
        {m, {"Cu"}, false, true},      {d + ";no/such/file.mat;" + folder, {"X", "Y"}, false, false},
        {d + ";" + b, {}, true, true}, {m + ";" + b + ";" + d, {"X", "Y"}, true, false},
    };
    CollectedMessages messages;
    for (const Row& row : rows)
    {
        messages.boxes.clear();
        const Library library(CreateMaterialLibrary(row.list.c_str()));
        std::vector<std::string> names;
        for (int i = 0; i < library->GetMaterialCount(); ++i)
        {
            names.emplace_back(library->GetMaterial(i)->GetName());
        }
        EXPECT_EQ(names, row.names) << row.list;
        ASSERT_EQ(messages.boxes.size(), (row.reportsFile ? 1u : 0u) + (row.missesDielectrics ? 1u : 0u));
        EXPECT_EQ(row.missesDielectrics,
                  !messages.boxes.empty() && messages.boxes.back().text == LoadText(MLTEXT_NO_DIELECTRIC));
    }
    messages.boxes.clear();
    keptToTheEnd.reset(CreateMaterialLibrary(nullptr));
    EXPECT_EQ(keptToTheEnd->GetMaterialCount(), 4); // the samples
    EXPECT_TRUE(messages.boxes.empty());

    messages.onShow = [] { throw std::bad_alloc(); };
    EXPECT_THROW(CreateMaterialLibrary(b.c_str()), std::bad_alloc);
    messages.onShow = [] { throw 5; };
    FreeMaterialLibrary(CreateMaterialLibrary(b.c_str()));
    FreeMaterialLibrary(nullptr);
    delete CreateMaterialLibrary(d.c_str());
}

void LoadAskAndFree()
{
    const Library library(CreateMaterialLibrary(ML_SOURCE_DIR "/examples/materials/DefaultMaterialD.mat"));
    for (int i = 0; i < library->GetMaterialCount(); ++i)
    {
        double value = 0.0;
        library->GetMaterial(i)->GetValue(MLTABLE_ER, 2.5e9, &value, 85.0);
    }
    EXPECT_EQ(library->FindMaterial("no such name"), nullptr);
}

TEST(Entry, LoadsAndFreesLeaveTheProcessAsLargeAsItWas)
{
    LoadAskAndFree();
    const std::size_t before = GetProcessMemory();
    EXPECT_GT(before, 0u);
    for (int i = 0; i < 200; ++i)
    {
        LoadAskAndFree();
    }
#ifndef __SANITIZE_ADDRESS__ // which keeps freed memory for a while, and looks for leaks by itself
    EXPECT_LE(GetProcessMemory(), before + (1 << 20)); // a tenth of what so many loads take
#endif
}
} // namespace
