#include "framework/CHandle.h"
#include "framework/DrawingScopes.h"
#include "framework/ModuleResources.h"
#include "framework/WindowScopes.h"
#include "tests/CountHandles.h"

#include <gtest/gtest.h>

namespace
{
int closed = 0;
struct CountClosing
{
    void operator()(int* /*value*/) const noexcept { ++closed; }
};
using CCounted = CHandle<int*, CountClosing>;

TEST(Handle, IsClosedOnceWhateverHappensToIt)
{
    int target = 0;
    closed = 0;
    {
        CCounted first(&target);
        CCounted second(std::move(first));
        EXPECT_FALSE(first); // NOLINT(bugprone-use-after-move): it is empty
        CCounted& alias = second;
        second = std::move(alias);
        EXPECT_EQ(second.Get(), &target) << "moved onto itself";
        EXPECT_EQ(closed, 0);
        CCounted third(&target);
        third = std::move(second);
        EXPECT_EQ(closed, 1);
        third.Reset(&target);
        EXPECT_EQ(closed, 2);
        EXPECT_EQ(third.Release(), &target);
        EXPECT_EQ(closed, 2);
        const CCounted last(&target);
    }
    EXPECT_EQ(closed, 3);
}

TEST(Handle, DrawingScopesLeaveNothingBehind)
{
    ExpectRoundsLeaveNothingBehind(1, 1000,
                                   [](int)
                                   {
                                       const CClientDC screen(nullptr);
                                       const CMemoryDC memory(CreateCompatibleDC(screen.Get()));
                                       const CBitmap bitmap(CreateCompatibleBitmap(screen.Get(), 4, 4));
                                       const CPen pen(CreatePen(PS_SOLID, 2, 0));
                                       const CSelectScope selectedBitmap(memory.Get(), bitmap.Get());
                                       const CSelectScope selectedPen(memory.Get(), pen.Get());
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
    EXPECT_TRUE(FindStringResource(GetHostInstance(), 1019, text));
    EXPECT_EQ(text, "Core");
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
