#include "chooser/win32/CMaterialGrid.h"
#include "tests/CountHandles.h"
#include "tests/chooser/MakeLibrary.h"
#include "tests/grid/win32/CGridFixture.h"

#include <gtest/gtest.h>

TEST(MaterialGrid, AThousandSetUpsLeaveNothingBehind)
{
    CFakeMaterialLib library;
    AddTable(AddMaterial(library, MLMATERIAL_DIELECTRIC, "item10", "FR4"), MLTABLE_ER, 25.0, {4.25});
    AddTable(AddMaterial(library, MLMATERIAL_METAL, "foil"), MLTABLE_ROUGHNESS_TOP, 25.0, {1.5});
    const auto round = [&library](int number)
    {
        CGridFixture window(number % 10 == 0); // painting takes most of the time
        CMaterialGrid grid(library);
        grid.Attach(window.GetControl());
        grid.SetUp(number % 3 == 0 ? MLMATERIAL_METAL : MLMATERIAL_DIELECTRIC);
        CGridFixture::ClickHeader(grid.GetList(), 1);
        grid.SetUnits(MLUNITS_METRIC);
        grid.RefreshAssignedMarker();
    };
    ExpectRoundsLeaveNothingBehind(20, 1000, round, 20'000);
}
