// What `matlib check` reads beside the library: it must refuse what the library refuses, and where.
#include "model/CFakeMaterialLib.h"
#include "reader/LoadMaterialFile.h"
#include "tests/CollectedMessages.h"
#include "tools/matlib/LibraryMessages.h"
#include "tools/matlib/check/ParsedFile.h"

#include <fstream>
#include <gtest/gtest.h>

namespace
{
std::string ReadTestFile(const std::string& name)
{
    std::ifstream stream(ML_SOURCE_DIR "/tests/cli/data/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

// "line:column: reason" of the first error; empty for a good file.
std::string RefusalOfLibrary(std::string text)
{
    CollectedMessages messages;
    CFakeMaterialLib library;
    if (LoadMaterialText(library, text, "x.mat"))
    {
        return {};
    }
    const FileProblem problem = FindFileProblem(messages.boxes.at(0).text, "x.mat").value();
    return std::to_string(*problem.line) + ":" + std::to_string(*problem.column) + ": " + problem.reason;
}

std::string RefusalOfCheck(std::string text, AfterError afterError)
{
    const ParsedFile file = ParseMaterialFile(text, afterError);
    if (file.errors.empty())
    {
        return {};
    }
    const Finding& error = file.errors.front();
    return std::to_string(error.place.line) + ":" + std::to_string(error.place.column) + ": " + error.text;
}

void ExpectSameRefusal(const std::string& text)
{
    const std::string expected = RefusalOfLibrary(text);
    EXPECT_EQ(RefusalOfCheck(text, AfterError::stop), expected) << text;
    EXPECT_EQ(RefusalOfCheck(text, AfterError::goOn), expected) << text;
}

TEST(Check, RefusesCutAndDamagedFilesWhereTheLibraryDoes)
{
    for (const char* name : {"laminates.mat", "foils.mat", "odd.mat", "many-errors.mat"})
    {
        const std::string text = ReadTestFile(name);
        ASSERT_FALSE(text.empty()) << name;
        for (std::size_t i = 0; i < text.size(); ++i)
        {
            ExpectSameRefusal(text.substr(0, i));
            ExpectSameRefusal(text.substr(0, i) + text.substr(i + 1));
        }
    }
}

TEST(Check, GoesOnBehindABrokenHeader)
{
    std::string text = "{MATFILE}{DIELECTRIC(NAME=\"A\")(FOO=1)}{DIELECTRIC(NAME=\"B\")}";
    const ParsedFile file = ParseMaterialFile(text, AfterError::goOn);
    ASSERT_EQ(file.errors.size(), 2U);
    EXPECT_EQ(file.errors[1].place, (Place{1, 35}));
    ASSERT_EQ(file.materials.size(), 1U);
    EXPECT_EQ(file.materials[0].name, "B");
}
} // namespace
