#include "writer/WriteMaterials.h"

#include "tests/writer/DescribeLoaded.h"
#include "tests/writer/RandomMaterials.h"
#include "writer/SpellNumber.h"

namespace
{
using Unwritable = CUnwritableError::Kind;

TEST(SpellNumber, IsShortAndAsPeopleWrite)
{
    for (const auto& [frequency, spelling] :
         {std::pair(1e9, "1GHz"), std::pair(2.45e9, "2.45GHz"), std::pair(1e6, "1MHz"),
          std::pair(999.0, "999Hz"), std::pair(77e12, "77THz"), std::pair(0.0, "0Hz"),
          std::pair(1.0 / 3.0 * 1e9, "333.3333333333333MHz")})
    {
        EXPECT_EQ(SpellFrequency(frequency), spelling);
    }
    EXPECT_EQ(SpellNumber(4.2), "4.2");
    EXPECT_EQ(SpellNumber(200e-6), "2e-4");
    EXPECT_EQ(SpellNumber(1.724e-8), "1.724e-8");
    EXPECT_EQ(SpellNumber(1e300), "1e300");
}

TEST(WriteMaterials, IsLoadedBitForBit)
{
    CRandomMaterials random;
    for (int i = 0; i < 1000; ++i)
    {
        const std::vector<MaterialDescription> materials = random.Make();
        const std::string text = WriteMaterials(materials);
        ASSERT_TRUE(AreSame(DescribeLoaded(text), materials)) << text;
    }
}

TEST(WriteMaterials, RefusesWhatNoFileCanHold)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    struct Case
    {
        void (*spoil)(MaterialDescription& material, double nan);
        Unwritable kind;
        const char* field;
    };
    const Case cases[] = {
        {[](auto& m, double) { m.name = "12\" core"; }, Unwritable::quote, "NAME"},
        {[](auto& m, double) { m.vendor = std::string("a\0b", 3); }, Unwritable::nul, "VENDOR"},
        {[](auto& m, double) {
             m.remarks = {"fine", "two\nlines"};
         },
         Unwritable::lineEnd, "remarks"},
        {[](auto& m, double) { m.remarks = {std::string(1, '\0')}; }, Unwritable::nul, "remarks"},
        {[](auto& m, double n) { m.thickness = n; }, Unwritable::notANumber, "THICKNESS"},
        {[](auto& m, double n) { m.tables[1].temperature = n; }, Unwritable::notANumber, "LOSSTANGENT"},
        {[](auto& m, double n) { m.tables[0].rows[1].value = n; }, Unwritable::notANumber, "ER"},
        {[](auto& m, double n) { m.tables[0].rows[1].frequency = n; }, Unwritable::notANumber, "ER"},
        {[](auto& m, double) { m.kind = MLMATERIAL_METAL; }, Unwritable::mixedKinds, ""},
        {[](auto& m, double) { m.kind = MLMATERIAL_NOT_SET; }, Unwritable::kind, ""},
        {[](auto& m, double) { m.resistivity = 1e-8; }, Unwritable::foreignValue, "RB"},
        {[](auto& m, double) { m.tables[0].kind = MLTABLE_ROUGHNESS_TOP; }, Unwritable::foreignValue,
         "ROUGHTOP"},
        {[](auto& m, double) { m.tables[0].kind = MLTABLE_ALL; }, Unwritable::foreignValue, "TABLE"},
        {[](auto& m, double) { m.technology = static_cast<MLTECHNOLOGY>(7); }, Unwritable::technology,
         "TECHNOLOGY"},
    };
    MaterialDescription fine;
    fine.name = "fine";
    fine.tables = {{MLTABLE_ER, 25.0, {{1e9, 4.0}, {2e9, 3.9}}}, {MLTABLE_LOSS_TANGENT, 25.0, {{1e9, 0.02}}}};
    for (const Case& each : cases)
    {
        std::vector<MaterialDescription> materials = {fine, fine};
        each.spoil(materials[1], nan);
        try
        {
            static_cast<void>(WriteMaterials(materials));
            ADD_FAILURE() << each.field;
        }
        catch (const CUnwritableError& error)
        {
            EXPECT_EQ(error.GetKind(), each.kind) << each.field;
            EXPECT_EQ(error.GetField(), each.field);
            EXPECT_EQ(error.GetMaterial(), 1u);
            EXPECT_GT(error.GetText().size(), 10u);
        }
    }
}
} // namespace
