// MaterialLibrary.dll as a module of a process.
#include "tests/FindImport.h"
#include "tests/TemporaryFile.h"
#include "tests/win32/CMessageBoxRobot.h"
#include "tests/win32/CModule.h"

#include <gtest/gtest.h>
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

TEST(Module, IsLoadedOnceHoweverOftenAHostLoadsIt)
{
    const std::string path = CModule::GetBuiltPath();
    const auto loadUseAndUnload = [&path]
    {
        const CModule module(path);
        EXPECT_EQ(module.Create(nullptr)->GetMaterialCount(), 4);
    };
    loadUseAndUnload();
    const HMODULE first = GetModuleHandleA("MaterialLibrary.dll");
    const ProcessState before;
    for (int i = 0; i < 2000; ++i) // as many copies of the run-time library would end the host
    {
        loadUseAndUnload();
    }
    const ProcessState after;
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(GetModuleHandleA("MaterialLibrary.dll"), first);
    EXPECT_EQ(after.handles, before.handles);
    EXPECT_EQ(after.modules, before.modules);
}

int allocationsBeforeFailure = -1; // of the module; negative: none fails any more

void* MallocThatFailsOnce(std::size_t size)
{
    return allocationsBeforeFailure-- == 0 ? nullptr : std::malloc(size);
}

TEST(Module, ThrowsBadAllocWhicheverAllocationFailsAndGoesOn)
{
    const CModule module(CModule::GetBuiltPath());
    const TemporaryFile file("x.mat", laminate);
    const CMessageBoxRobot robot;
    *FindImport(module.GetHandle(), "msvcrt", "malloc") = reinterpret_cast<void*>(MallocThatFailsOnce);
    int enough = -1;
    for (int allocations = 0; enough < 0 && allocations < 1000; ++allocations)
    {
        allocationsBeforeFailure = allocations;
        try
        {
            const CModule::Library library = module.Create(file.GetPath().c_str());
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
} // namespace
