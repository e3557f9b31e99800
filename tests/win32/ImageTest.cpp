// MaterialLibrary.dll as a file that others load: what stands in its headers.
#include "MaterialLibrary/Version.h"
#include "tests/win32/CImage.h"
#include "tests/win32/CModule.h"

#include <windows.h>

#include <filesystem>
#include <gmock/gmock.h>

namespace
{
TEST(Image, ExportsTwoPlainNamesAndNeedsWindowsOnly)
{
    const CModule module(CModule::GetBuiltPath());
    const CImage image(module.GetHandle());
    EXPECT_THAT(image.GetExports(), testing::ElementsAre("CreateMaterialLibrary", "FreeMaterialLibrary"));
    char system[MAX_PATH] = {};
    GetSystemDirectoryA(system, MAX_PATH);
    EXPECT_FALSE(image.GetImportedModules().empty());
    for (const std::string& name : image.GetImportedModules())
    {
        const DWORD attributes = GetFileAttributesA((std::string(system) + "\\" + name).c_str());
        EXPECT_NE(attributes, INVALID_FILE_ATTRIBUTES) << name;
    }
}

TEST(Image, LetsWindowsPlaceItAnywhereAndRunsNoData)
{
    const CModule module(CModule::GetBuiltPath());
    const CImage image(module.GetHandle());
    const IMAGE_OPTIONAL_HEADER64& header = image.GetHeaders().OptionalHeader;
    for (const unsigned flag : {IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE, IMAGE_DLLCHARACTERISTICS_NX_COMPAT,
                                IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA})
    {
        EXPECT_EQ(header.DllCharacteristics & flag, flag);
    }
    EXPECT_NE(header.DataDirectory[IMAGE_DIRECTORY_ENTRY_BASERELOC].Size, 0U) << "cannot be moved without";
    for (const IMAGE_SECTION_HEADER& section : image.GetSections())
    {
        constexpr DWORD both = IMAGE_SCN_MEM_WRITE | IMAGE_SCN_MEM_EXECUTE;
        EXPECT_NE(section.Characteristics & both, both) << section.Name;
    }
}

TEST(Image, IsSmallAndHasItsDebugInformationBesideIt)
{
    constexpr std::uintmax_t largest = 1536 * 1024;
    const std::filesystem::path path = CModule::GetBuiltPath();
    std::printf("%ju bytes\n", std::filesystem::file_size(path));
    EXPECT_LE(std::filesystem::file_size(path), largest);
    EXPECT_GT(std::filesystem::file_size(path.string() + ".debug"), largest);
}

TEST(Image, DeliveredFilesSayTheirVersionAndHaveTheManifest)
{
    const std::string built = ML_BINARY_DIR;
    for (const auto& [path, manifest] :
         {std::pair(CModule::GetBuiltPath(), 2), std::pair(built + "/bin/matlib.exe", 1),
          std::pair(built + "/bin/matlib-modules/MsgHandler.dll", 2),
          std::pair(built + "/examples/messages/MsgHandler.dll", 2)})
    {
        std::vector<char> information(GetFileVersionInfoSizeA(path.c_str(), nullptr));
        ASSERT_TRUE(
            GetFileVersionInfoA(path.c_str(), 0, static_cast<DWORD>(information.size()), information.data()))
            << path;
        void* found = nullptr;
        UINT size = 0;
        ASSERT_TRUE(VerQueryValueA(information.data(), "\\", &found, &size));
        const auto& fixed = *static_cast<const VS_FIXEDFILEINFO*>(found);
        const std::string numbers = std::to_string(HIWORD(fixed.dwFileVersionMS)) + "." +
                                    std::to_string(LOWORD(fixed.dwFileVersionMS)) + "." +
                                    std::to_string(HIWORD(fixed.dwFileVersionLS));
        EXPECT_EQ(numbers, MATERIALLIBRARY_VERSION);
        ASSERT_TRUE(
            VerQueryValueA(information.data(), "\\StringFileInfo\\040904B0\\ProductVersion", &found, &size));
        EXPECT_STREQ(static_cast<const char*>(found), MATERIALLIBRARY_VERSION);

        const HMODULE image = LoadLibraryExA(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
        EXPECT_NE(FindResourceA(image, MAKEINTRESOURCEA(manifest), RT_MANIFEST), nullptr) << path;
        FreeLibrary(image);
    }
}
} // namespace
