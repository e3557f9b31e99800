#include "tests/CountHandles.h"
#include "tests/chooser/MakeLibrary.h"
#include "tests/grid/win32/CGridFixture.h"

#include "MaterialLibrary/chooser/ISelectionChangeNotifier.h"
#include "MaterialLibrary/chooser/win32/CMaterialGrid.h"

#include <gmock/gmock.h>

namespace
{
class COwner final : public ISelectionChangeNotifier
{
public:
    void OnSelectionChange() override { shown = grid != nullptr ? grid->GetCurrentMaterial() : nullptr; }
    IMaterial* GetAssignedMaterial() override { return assigned; }

    const CMaterialGrid* grid = nullptr;
    IMaterial* assigned = nullptr;
    IMaterial* shown = nullptr; // what a chart would show
};

class MaterialGrid : public testing::Test
{
protected:
    MaterialGrid()
    {
        for (const char* const name : {"item10", "Item9", "\xC4nderung & Co"})
        {
            AddTable(AddMaterial(library, MLMATERIAL_DIELECTRIC, name, "FR4"), MLTABLE_ER, 25.0, {4.25});
        }
        AddTable(AddMaterial(library, MLMATERIAL_METAL, "foil"), MLTABLE_ROUGHNESS_TOP, 25.0, {1.5});
        owner.grid = &grid;
        grid.SetNotifier(&owner);
        grid.Attach(window.GetControl());
    }

    [[nodiscard]] std::string ItemTexts(int subItem) const
    {
        std::string texts;
        for (int item = 0; item < ListView_GetItemCount(grid.GetList()); ++item)
        {
            texts += (item > 0 ? "|" : "") + CGridFixture::GetItemText(grid.GetList(), item, subItem);
        }
        return texts;
    }

    CFakeMaterialLib library;
    CGridFixture window;
    COwner owner;
    CMaterialGrid grid{library};
};

TEST_F(MaterialGrid, ShowsTheColumnsOfTheKindAndFollowsTheUser)
{
    owner.assigned = library.GetMaterial(0);
    grid.SetUp(MLMATERIAL_DIELECTRIC);
    const HWND list = grid.GetList();
    EXPECT_EQ(CGridFixture::GetHeaderTexts(list),
              " |Type|Thickness|Er|Loss Tangent|Material|Temperature (\xB0"
              "C)|Technology|Vendor|Comment");
    // The texts of the metal and of unknown technologies stay out.
    EXPECT_EQ(ItemTexts(5), "foil|\xC4nderung & Co|Item9|item10");
    EXPECT_EQ(ItemTexts(0), "|||\x95");

    CGridFixture::ClickHeader(list, 5);
    EXPECT_EQ(ItemTexts(5), "foil|Item9|item10|\xC4nderung & Co");
    CGridFixture::ClickCell(list, 2, 5);
    EXPECT_EQ(owner.shown, library.GetMaterial(0));
    EXPECT_EQ(grid.GetCurrentTemperature(), 25.0);

    owner.assigned = library.GetMaterial(1);
    grid.RefreshAssignedMarker();
    EXPECT_EQ(ItemTexts(0), "|\x95||");
    grid.SetUnits(MLUNITS_METRIC);
    EXPECT_THAT(CGridFixture::GetHeaderTexts(list), testing::HasSubstr("|Thickness (um)|"));
    EXPECT_EQ(owner.shown, library.GetMaterial(0)) << "the selection has stayed";
    grid.Refill();
    EXPECT_EQ(owner.shown, nullptr) << "the rows are new ones";
}

TEST_F(MaterialGrid, AThousandSetUpsLeaveNothingBehind)
{
    const auto round = [this](int number)
    {
        CGridFixture other(number % 10 == 0); // painting takes most of the time
        CMaterialGrid filled(library);
        filled.Attach(other.GetControl());
        filled.SetUp(number % 3 == 0 ? MLMATERIAL_METAL : MLMATERIAL_DIELECTRIC);
        CGridFixture::ClickHeader(filled.GetList(), 1);
        filled.SetUnits(MLUNITS_METRIC);
        filled.RefreshAssignedMarker();
    };
    for (int i = 0; i < 20; ++i)
    {
        round(i);
    }
    const std::size_t objects = CountGdiHandles();
    const std::size_t windows = CountWindows();
    const std::size_t bytes = CountHeapBytes();
    for (int i = 0; i < 1000; ++i)
    {
        round(i);
    }
    EXPECT_EQ(CountGdiHandles(), objects);
    EXPECT_EQ(CountWindows(), windows);
    EXPECT_LT(CountHeapBytes(), bytes + 20000) << "less than 20 bytes a round";
}
} // namespace
