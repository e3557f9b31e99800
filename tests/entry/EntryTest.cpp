#include "MaterialLibrary/MaterialLibrary.h"
#include "entry/PathList.h"
#include "model/CFakeMaterialLib.h"
#include "resources/Texts.h"
#include "tests/CollectedMessages.h"
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

struct Entry : testing::Test
{
    TemporaryFile dielectrics{"d one.mat",
                              header + "{DIELECTRIC(NAME=\"X\")(TYPE=\"first\")}{DIELECTRIC(NAME=\"Y\")}"};
    TemporaryFile others{"o.mat", header + "{DIELECTRIC(NAME=\"X\")(TYPE=\"second\")}"};
    TemporaryFile metals{"m.mat", header + "{METAL(NAME=\"Cu\")}"};
    TemporaryFile broken{"b.mat", header + "{METAL(NAME=Cu)}"};
    std::string folder = std::string(ML_SOURCE_DIR) + "/examples";
    CollectedMessages messages;
};

TEST_F(Entry, NoListGivesTheSampleLibraryWithoutAMessage)
{
    keptToTheEnd.reset(CreateMaterialLibrary(nullptr));
    EXPECT_EQ(keptToTheEnd->GetMaterialCount(), 4);
    EXPECT_EQ(messages.boxes.size(), 0u);
}

// Rows: the list, the names in the library, whether a file is reported, whether dielectrics are missed.
TEST_F(Entry, ReadsTheListFromLeftToRight)
{
    struct Row
    {
        std::string list;
        std::vector<std::string> names;
        bool reportsFile;
        bool missesDielectrics;
    };
    const std::string d = dielectrics.GetPath();
    const std::string o = others.GetPath();
    const std::string m = metals.GetPath();
    const std::string b = broken.GetPath();
    const Row rows[] = {
        {"", {}, false, true},
        {";;;", {}, false, true},
        {d, {"X", "Y"}, false, false},
        {d + ";;" + o + ";", {"X", "Y", "X"}, false, false},
        {";" + m + ";" + d, {"Cu", "X", "Y"}, false, false},
        {m, {"Cu"}, false, true},
        {d + ";no/such/file.mat;" + folder, {"X", "Y"}, false, false},
        {d + ";" + b, {}, true, true},
        {d + ";" + b + ";" + o, {"X"}, true, false},
        {b + ";" + m, {"Cu"}, true, true},
    };
    for (const Row& row : rows)
    {
        messages.boxes.clear();
        const Library library(CreateMaterialLibrary(row.list.c_str()));
        ASSERT_EQ(library->GetMaterialCount(), static_cast<int>(row.names.size())) << row.list;
        for (std::size_t i = 0; i < row.names.size(); ++i)
        {
            EXPECT_EQ(library->GetMaterial(static_cast<int>(i))->GetName(), row.names[i]) << row.list;
        }
        const std::size_t reports = row.reportsFile ? 1 : 0;
        ASSERT_EQ(messages.boxes.size(), reports + (row.missesDielectrics ? 1 : 0)) << row.list;
        if (row.missesDielectrics)
        {
            EXPECT_EQ(messages.boxes.back().text, LoadText(MLTEXT_NO_DIELECTRIC));
            EXPECT_EQ(messages.boxes.back().style, msg::boxIconExclamation);
        }
    }
}

TEST_F(Entry, OfEqualNamesTheLaterFilesCounts)
{
    const Library library(CreateMaterialLibrary((dielectrics.GetPath() + ";" + others.GetPath()).c_str()));
    EXPECT_STREQ(library->FindMaterial("X")->GetTypeName(), "second");
}

// While it shows a message the library is in its own state, afterwards the caller is in its own again.
TEST_F(Entry, RunsInTheModulesStateAndComesBack)
{
    CModuleState host;
    const CModuleStateScope hostScope(host);
    const Library library(CreateMaterialLibrary(""));
    ASSERT_EQ(messages.boxes.size(), 1u);
    EXPECT_EQ(messages.boxes[0].state, &OwnModuleState());
    EXPECT_EQ(CurrentModuleState(), &host);
}

TEST_F(Entry, LetsOnlyMemoryExhaustionOut)
{
    messages.onShow = [] { throw std::bad_alloc(); };
    EXPECT_THROW(CreateMaterialLibrary(broken.GetPath().c_str()), std::bad_alloc);
    EXPECT_EQ(CurrentModuleState(), nullptr);
    messages.onShow = [] { throw 5; };
    const Library library(CreateMaterialLibrary((dielectrics.GetPath() + ";" + broken.GetPath()).c_str()));
    EXPECT_EQ(library->GetMaterialCount(), 0);
    EXPECT_EQ(CurrentModuleState(), nullptr);
}

TEST_F(Entry, FreeingNothingIsFineAndDeletingIsFreeing)
{
    FreeMaterialLibrary(nullptr);
    delete CreateMaterialLibrary(dielectrics.GetPath().c_str());
}
} // namespace
