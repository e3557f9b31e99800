// MaterialLibrary.dll as a module of a process.
#include "tests/ProcessMemory.h"
#include "tests/win32/CImage.h"
#include "tests/win32/CMessageBoxRobot.h"
#include "tests/win32/CModule.h"
#include "tests/win32/CTestFolder.h"

#include <gmock/gmock.h>
#include <psapi.h>
#include <stdexcept>

namespace
{
const std::string header = "{MAT_FILE}\n{VERSION=1.0}\n";
const std::string laminate = header + "{DIELECTRIC (NAME=\"X\")(ER TABLE = 1GHz 4.2)}\n";

struct ProcessState
{
    DWORD handles = 0;
    DWORD modules = 0;

    ProcessState()
    {
        GetProcessHandleCount(GetCurrentProcess(), &handles);
        HMODULE list[512];
        EnumProcessModules(GetCurrentProcess(), list, sizeof list, &modules);
    }
};

TEST(Module, LeavesNothingBehindWhenItIsUnloaded)
{
    const std::string path = CModule::GetBuiltPath();
    const auto loadUseAndUnload = [&path]
    {
        const CModule module(path);
        EXPECT_EQ(module.Create(nullptr)->GetMaterialCount(), 4);
    };
    loadUseAndUnload();
    const ProcessState before;
    for (int i = 0; i < 100; ++i)
    {
        loadUseAndUnload();
        ASSERT_EQ(GetModuleHandleA("MaterialLibrary.dll"), nullptr);
    }
    const ProcessState after;
    EXPECT_EQ(after.handles, before.handles);
    EXPECT_EQ(after.modules, before.modules);
}

TEST(Module, ReadsFilesThroughPathsOfTheCodePage)
{
    const CModule module(CModule::GetBuiltPath());
    const CTestFolder folder;
    for (const char* name : {"two words.mat", "gr\xFC\xDF\xE9 und \xB5.mat"})
    {
        const std::string path = folder.Write(name, laminate);
        EXPECT_EQ(module.Create(path.c_str())->GetMaterialCount(), 1) << name;
    }
}

TEST(Module, SaysWhyAFileCannotBeOpened)
{
    const CModule module(CModule::GetBuiltPath());
    const CTestFolder folder;
    const std::string path = folder.Write("in use.mat", laminate);
    const HANDLE exclusive =
        CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(exclusive, INVALID_HANDLE_VALUE);
    const CMessageBoxRobot robot;
    EXPECT_EQ(module.Create(path.c_str())->GetMaterialCount(), 0);
    CloseHandle(exclusive);
    ASSERT_EQ(robot.GetBoxes().size(), 2U);
    EXPECT_EQ(robot.GetBoxes()[0].text,
              "Unable to open file \"" + path + "\" for the following reason:\nPermission denied");
    EXPECT_EQ(robot.GetBoxes()[0].caption, "MaterialLibrary");
    EXPECT_TRUE(robot.GetBoxes()[0].isWarning);
    EXPECT_EQ(module.Create(path.c_str())->GetMaterialCount(), 1) << "and can be opened later";
}

int allocationsBeforeFailure = -1; // of the module; negative: none fails any more

void* MallocThatFailsOnce(std::size_t size)
{
    return allocationsBeforeFailure-- == 0 ? nullptr : std::malloc(size);
}

TEST(Module, ThrowsToAHostOfItsOwnCompiler)
{
    const CModule module(CModule::GetBuiltPath());
    const CModule::Library sample = module.Create(nullptr);
    const IMaterialTable& table = *sample->GetMaterial(0)->GetTableAt(0);
    EXPECT_THROW((void)table.GetEntry(-1), std::invalid_argument);
    EXPECT_THROW((void)table.GetEntry(table.GetEntryCount()), std::invalid_argument);
}

TEST(Module, ThrowsBadAllocWhicheverAllocationFailsAndGoesOn)
{
    const CModule module(CModule::GetBuiltPath());
    const CTestFolder folder;
    const std::string path = folder.Write("x.mat", laminate);
    const CMessageBoxRobot robot;
    *CImage(module.GetHandle()).FindImport("malloc") = reinterpret_cast<void*>(MallocThatFailsOnce);
    int enough = -1;
    for (int allocations = 0; enough < 0 && allocations < 1000; ++allocations)
    {
        allocationsBeforeFailure = allocations;
        try
        {
            const CModule::Library library = module.Create(path.c_str());
            EXPECT_EQ(library->GetMaterialCount(), 1);
            enough = allocationsBeforeFailure >= 0 ? allocations : -1;
        }
        catch (const std::bad_alloc&)
        {
            EXPECT_LT(allocationsBeforeFailure, 0);
        }
        allocationsBeforeFailure = -1;
        EXPECT_EQ(module.Create(nullptr)->GetMaterialCount(), 4);
    }
    std::printf("allocations of a load: %d\n", enough);
    EXPECT_GT(enough, 1);
    EXPECT_TRUE(robot.GetBoxes().empty());
}

TEST(Module, HoldsNoMoreMemoryAfterTwoHundredLibraries)
{
    std::string text = header;
    for (int i = 0; i < 20'000; ++i)
    {
        text += "{DIELECTRIC (NAME = \"Laminate " + std::to_string(i) +
                "\") (ER TABLE = 1MHz 4.6 100MHz 4.4 10GHz 4.2) (LOSSTANGENT TABLE = 1GHz 0.02)}\n";
    }
    const CTestFolder folder;
    const std::string path = folder.Write("many.mat", text);
    const CModule module(CModule::GetBuiltPath());
    const auto loadAndAsk = [&module, &path]
    {
        const CModule::Library library = module.Create(path.c_str());
        EXPECT_EQ(library->GetMaterialCount(), 20'000);
        for (int i = 0; i < 20'000; i += 500)
        {
            double value = 0.0;
            library->GetMaterial(i)->GetValue(MLTABLE_ER, 2.5e9, &value, 40.0);
            EXPECT_NE(value, 0.0);
        }
    };
    constexpr std::size_t slack = 4 << 20;
    for (int i = 0; i < 5; ++i)
    {
        loadAndAsk();
    }
    const std::size_t before = GetProcessMemory();
    for (int i = 0; i < 200; ++i)
    {
        loadAndAsk();
    }
    const std::size_t after = GetProcessMemory();
    std::printf("private bytes before %zu KiB, after 200 libraries %zu KiB\n", before / 1024, after / 1024);
    EXPECT_GT(before, 0U);
    EXPECT_LE(after, before + slack);
}
} // namespace
