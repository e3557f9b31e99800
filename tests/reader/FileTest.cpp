#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "reader/LoadMaterialFile.h"
#include "tests/CollectedMessages.h"
#include "tests/TemporaryFile.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace
{
TEST(LoadMaterialFile, ReadsFilesWholeAndBinary)
{
    const TemporaryFile file("a file \xE9 with blanks.mat",
                             "{MAT_FILE}\r\n{VERSION=1.0}\r\n{METAL\r\n(NAME=\"a\x1A"
                             "b\")}\r\n");
    CollectedMessages messages;
    CFakeMaterialLib library;
    ASSERT_TRUE(LoadMaterialFile(library, file.GetPath().c_str()));
    EXPECT_STREQ(library.GetMaterial(0)->GetName(), "a\x1A"
                                                    "b");
    EXPECT_EQ(messages.boxes.size(), 0u);
}

// Long enough for its text to go back to the system bit by bit while it is read.
TEST(LoadMaterialFile, ReadsALongFileLikeAShortOneAndKnowsItsLines)
{
    constexpr int materials = 10'000;
    std::string text = "{MAT_FILE}{VERSION=1.0}\n";
    for (int i = 0; i < materials; ++i)
    {
        text += "{DIELECTRIC (NAME = \"Laminate " + std::to_string(i) +
                "\")\n(ER TABLE = 1MHz 4.5\n1GHz 4.25)\n" + (i % 100 == 0 ? std::string(5000, ' ') : "") +
                "(THICKNESS = 2e-4)}\n";
    }
    CollectedMessages messages;
    CFakeMaterialLib library;
    ASSERT_TRUE(LoadMaterialFile(library, TemporaryFile("long.mat", text).GetPath().c_str()));
    ASSERT_EQ(library.GetMaterialCount(), materials);
    for (int i = 0; i < materials; ++i)
    {
        IMaterial& material = *library.GetMaterial(i);
        ASSERT_EQ(material.GetName(), "Laminate " + std::to_string(i));
        ASSERT_EQ(material.GetTableAt(0)->GetEntryCount(), 2);
        ASSERT_EQ(material.GetTableAt(0)->GetEntry(1).value, 4.25);
    }
    EXPECT_FALSE(LoadMaterialFile(library, TemporaryFile("long.mat", text + "  {METAL").GetPath().c_str()));
    ASSERT_EQ(messages.boxes.size(), 1u);
    EXPECT_NE(messages.boxes[0].text.find("line 40002"), std::string::npos) << messages.boxes[0].text;
    EXPECT_NE(messages.boxes[0].text.find("column 8"), std::string::npos) << messages.boxes[0].text;
}

TEST(LoadMaterialFile, SaysWhichFileCannotBeOpenedOrRead)
{
    struct Row
    {
        std::string path;
        const char* begins;
    };
    std::vector<Row> rows = {
        {"no/such/file.mat", "Unable to open file \"no/such/file.mat\" for the following reason:\n"},
        {"", "Unable to open file \"\" for"}};
#ifndef _WIN32
    rows.push_back({"/usr", "\"Unable to read file \"\"/usr\"\" for the following reason:\n"});
#endif
    for (const Row& row : rows)
    {
        CollectedMessages messages;
        CFakeMaterialLib library;
        library.FillSampleLibrary();
        EXPECT_FALSE(LoadMaterialFile(library, row.path.c_str()));
        ASSERT_EQ(messages.boxes.size(), 1u);
        const std::string& text = messages.boxes[0].text;
        EXPECT_EQ(text.find(row.begins), 0u) << text;
        EXPECT_GT(text.size(), std::string(row.begins).size() + 3) << text; // the system's reason
        EXPECT_EQ(library.GetMaterialCount(), 0);
    }
}

TEST(LoadMaterialFile, NoFileIsTooSmall)
{
    for (const std::string& content :
         {std::string(), std::string("{"), std::string(1, '\0'), std::string("\n")})
    {
        const TemporaryFile file("small.mat", content);
        CollectedMessages messages;
        CFakeMaterialLib library;
        EXPECT_FALSE(LoadMaterialFile(library, file.GetPath().c_str()));
        EXPECT_EQ(messages.boxes.size(), 1u);
    }
}
} // namespace
