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
