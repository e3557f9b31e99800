#include "chooser/MaterialCurves.h"

#include "tests/chooser/MakeLibrary.h"

#include <gtest/gtest.h>

namespace
{
TEST(MaterialCurves, ShowTheTablesOfTheTemperatureOverMegahertz)
{
    CFakeMaterialLib library;
    CMaterial& laminate = AddMaterial(library, MLMATERIAL_DIELECTRIC, "laminate");
    AddTable(laminate, MLTABLE_ER, 25.0, {4.5, 4.0, 4.25});
    AddTable(laminate, MLTABLE_ER, 85.0, {5.0});
    AddTable(laminate, MLTABLE_LOSS_TANGENT, 25.0, {});
    MaterialCurves curves;
    BuildMaterialCurves(curves, &laminate, 25.0);
    ASSERT_EQ(curves[0].points.size(), 3U);
    EXPECT_EQ(curves[0].GetPoint(2).x, 3000.0);
    EXPECT_EQ(curves[0].GetPoint(2).y, 4.25);
    EXPECT_EQ(curves[0].bounds.yMin, 4.0);
    EXPECT_EQ(curves[0].name, "Er");
    EXPECT_EQ(curves[0].colour, 0x0000FFU);
    EXPECT_TRUE(curves[1].points.empty());
    EXPECT_TRUE(curves[2].points.empty());

    BuildMaterialCurves(curves, &laminate, 85.0);
    EXPECT_TRUE(curves[0].points.empty()) << "a single value is no curve";

    CMaterial& foil = AddMaterial(library, MLMATERIAL_METAL, "foil");
    AddTable(foil, MLTABLE_ROUGHNESS_BOTTOM, 25.0, {1.0, 2.0});
    BuildMaterialCurves(curves, &foil, 0.0);
    EXPECT_EQ(curves[3].points.size(), 2U);
    EXPECT_EQ(curves[3].name, "Bottom Roughness Factor");
    BuildMaterialCurves(curves, nullptr, 0.0);
    EXPECT_TRUE(curves[3].points.empty());
}
} // namespace
