#include "framework/CHandle.h"
#include "framework/CModuleState.h"
#include "framework/DrawingScopes.h"
#include "framework/ModuleResources.h"
#include "framework/WindowScopes.h"
#include "tests/CountHandles.h"

#include <gtest/gtest.h>

namespace
{
TEST(Handle, DrawingScopesLeaveNothingBehind)
{
    ExpectRoundsLeaveNothingBehind(1, 1000,
                                   [](int)
                                   {
                                       const CClientDC screen(nullptr);
                                       const CMemoryDC memory(CreateCompatibleDC(screen.Get()));
                                       const CBitmap bitmap(CreateCompatibleBitmap(screen.Get(), 4, 4));
                                       const CPen pen(CreatePen(PS_SOLID, 2, 0));
                                       const CSelectScope selectedBitmap(memory.get(), bitmap.get());
                                       const CSelectScope selectedPen(memory.get(), pen.get());
                                   });
    const std::size_t before = CountGdiHandles();
    const CPen pen(CreatePen(PS_SOLID, 2, 0));
    EXPECT_EQ(CountGdiHandles(), before + 1) << "the count counts";
}

TEST(ModuleResources, TextsComeFromAStringTable)
{
    std::string text = "kept";
    EXPECT_FALSE(FindStringResource(GetModuleInstance(), 65000, text));
    EXPECT_EQ(text, "kept");
    EXPECT_TRUE(FindStringResource(GetModuleInstance(), 1019, text));
    EXPECT_EQ(text, "Core");
    CModuleState other;
    other.instance = GetModuleHandleW(L"ntdll");
    const CModuleStateScope scope(other);
    EXPECT_FALSE(FindStringResource(GetModuleInstance(), 1019, text)) << "the current state names the module";
}

TEST(ThemedControls, ComeFromTheModulesManifest)
{
    const auto contextIsActive = []
    {
        HANDLE context = nullptr;
        GetCurrentActCtx(&context);
        ReleaseActCtx(context);
        return context != nullptr;
    };
    EXPECT_FALSE(contextIsActive());
    {
        const CThemedControlsScope themed;
        EXPECT_TRUE(contextIsActive());
    }
    EXPECT_FALSE(contextIsActive());
}
} // namespace
