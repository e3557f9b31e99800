#include "chooser/CMaterialRows.h"
#include "chooser/IMaterialFilter.h"
#include "chooser/ISelectionChangeNotifier.h"
#include "shared/Misc_String/FormatNumber.h"
#include "tests/chooser/MakeLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>

namespace
{
using testing::ElementsAre;

struct COwner final : ISelectionChangeNotifier, IMaterialFilter
{
    void OnSelectionChange() override {}
    IMaterial* GetAssignedMaterial() override { return assigned; }
    bool Accept(IMaterial* material) override { return material != rejected; }

    IMaterial* assigned = nullptr;
    IMaterial* rejected = nullptr;
};

class MaterialRows : public testing::Test
{
protected:
    MaterialRows()
    {
        rows.SetNotifier(&owner);
        rows.SetFilter(&owner);
    }

    // The texts of the columns with these keys.
    [[nodiscard]] std::vector<std::string> Texts(int row, const std::vector<int>& keys) const
    {
        std::vector<std::string> texts;
        for (const int key : keys)
        {
            texts.emplace_back(model.GetText(row, model.FindColumn(key)));
        }
        return texts;
    }

    // The texts of one column from the first row to the last.
    [[nodiscard]] std::vector<std::string> Column(int key) const
    {
        std::vector<std::string> texts;
        for (int row = 1; row <= model.GetRowCount(); ++row)
        {
            texts.emplace_back(model.GetText(row, model.FindColumn(key)));
        }
        return texts;
    }

    CFakeMaterialLib library;
    CGridModel model;
    COwner owner;
    CMaterialRows rows{model, library};
};

TEST_F(MaterialRows, ShowOneRowForEachTemperatureFromTheLastMaterial)
{
    CMaterial& first = AddMaterial(library, MLMATERIAL_DIELECTRIC, "first", "FR4");
    first.SetAttribute(MLATTR_THICKNESS, 0.0002);
    first.SetIntAttribute(MLATTR_TECHNOLOGY, MLTECHNOLOGY_PREPREG);
    first.SetVendor("vendor");
    first.SetComment("comment");
    AddTable(first, MLTABLE_ER, 25.0, {4.25});
    AddTable(first, MLTABLE_LOSS_TANGENT, 25.0, {0.02, 0.03});
    AddTable(first, MLTABLE_ER, 85.5, {1.0 / 3.0});
    AddMaterial(library, MLMATERIAL_DIELECTRIC, "without tables");
    CMaterial& last = AddMaterial(library, MLMATERIAL_DIELECTRIC, "last");
    AddTable(last, MLTABLE_ER, -40.0, {});
    owner.assigned = &first;

    rows.SetUp(MLMATERIAL_DIELECTRIC);
    const std::vector<int> shown = {1, 2, 4, 5, 6, 9, 10, 11, 12, 13};
    ASSERT_EQ(model.GetRowCount(), 3);
    EXPECT_THAT(Texts(0, {5, 9, 11, 12, 13}),
                ElementsAre("Er", "Material", "Technology", "Vendor", "Comment"));
    EXPECT_THAT(Texts(1, shown), ElementsAre("", "", "N/A", "N/A", "N/A", "last", "-40", "", "", ""));
    EXPECT_THAT(Texts(2, shown), ElementsAre("1", "FR4", "7.874", "4.25", "TABLE", "first", "25", "Prepreg",
                                             "vendor", "comment"));
    EXPECT_THAT(Texts(3, {5, 6, 10}), ElementsAre("0.3333333333333", "TABLE", "85.5"))
        << "the loss tangent at 85.5 °C is derived, and no row of its own";
    rows.SetTechnologies(nullptr);
    owner.rejected = &last;
    rows.Refill();
    EXPECT_THAT(Column(COLUMNKEY_MATERIAL), ElementsAre("first", "first"));
    EXPECT_THAT(Column(COLUMNKEY_TECHNOLOGY), ElementsAre("", ""));
}

TEST_F(MaterialRows, ShowMetalsInColumnsOfTheirOwn)
{
    CMaterial& foil = AddMaterial(library, MLMATERIAL_METAL, "foil");
    foil.SetAttribute(MLATTR_BULK_RESISTIVITY, 1.7e-8);
    AddTable(foil, MLTABLE_ROUGHNESS_TOP, 25.0, {1.5});
    CMaterial& other = AddMaterial(library, MLMATERIAL_METAL, "other");
    other.SetAttribute(MLATTR_BULK_RESISTIVITY, 0.0);
    AddTable(other, MLTABLE_ROUGHNESS_TOP, 25.0, {1.5, 2.0});
    rows.SetUp(MLMATERIAL_METAL);
    EXPECT_THAT(Texts(1, {3, 7, 8, 10}), ElementsAre("", "TABLE", "N/A", ""));
    EXPECT_THAT(Texts(2, {3, 7, 8, 10}), ElementsAre("1.7e-08", "1.5", "N/A", ""));
    model.SetCurrentCell({2, 1});
    EXPECT_EQ(rows.GetCurrentMaterial(), &foil);
    EXPECT_EQ(rows.GetCurrentTemperature(), 0.0) << "metals show no temperature";

    const auto hidden = [this](int kind)
    {
        rows.SetUp(kind);
        std::vector<int> keys;
        for (int column = 1; column <= model.GetColumnCount(); ++column)
        {
            if (model.IsColumnHidden(column))
            {
                keys.push_back(model.GetUserAttribute(column));
            }
        }
        return keys;
    };
    EXPECT_THAT(hidden(MLMATERIAL_METAL), ElementsAre(4, 5, 6, 10, 11));
    EXPECT_THAT(hidden(MLMATERIAL_DIELECTRIC), ElementsAre(3, 7, 8));
    EXPECT_THAT(hidden(MLMATERIAL_NOT_SET), ElementsAre());
}

TEST_F(MaterialRows, TellValuesOfTheirTablesAndKeepNothingOfThem)
{
    CMaterial& laminate = AddMaterial(library, MLMATERIAL_DIELECTRIC, "laminate");
    AddTable(laminate, MLTABLE_ER, 25.0, {13.0 / 3.0, 4.25});
    AddTable(laminate, MLTABLE_LOSS_TANGENT, 25.0, {0.02, 0.021});
    AddTable(laminate, MLTABLE_ER, 85.0, {4.5, 4, 4, 4, 4, 4, 4, 4, 4, 4.125});
    AddTable(AddMaterial(library, MLMATERIAL_DIELECTRIC, "lossless"), MLTABLE_ER, 25.0, {4.5, 4.0});
    rows.SetUp(MLMATERIAL_DIELECTRIC);
    const auto er = [this](int row) { return rows.DescribeCell({row, COLUMNKEY_ER}); };
    const std::string modelled = er(2);
    EXPECT_EQ(er(1), "1 GHz: 4.5\r\n10 GHz: N/A");
    EXPECT_EQ(er(3), "1 GHz: 4.5\r\n10 GHz: 4.125");
    EXPECT_EQ(rows.DescribeCell({1, COLUMNKEY_LOSS_TANGENT}), "") << "no table";
    EXPECT_EQ(rows.DescribeCell({2, COLUMNKEY_MATERIAL}), "");
    for (const CMaterialTable* const table : laminate.GetTables())
    {
        EXPECT_FALSE(table->FindCachedValue(10e9));
    }
    double value = 0.0;
    laminate.GetValue(MLTABLE_ER, 10e9, &value, 25.0);
    EXPECT_EQ(modelled, "1 GHz: 4.333333333333\r\n10 GHz: ~" + FormatNumber(value, 5));

    CMaterial& foil = AddMaterial(library, MLMATERIAL_METAL, "foil");
    AddTable(foil, MLTABLE_ROUGHNESS_TOP, 25.0, {1.5, 2.0});
    IMaterialTableIO* const bottom = foil.AddTable(MLTABLE_ROUGHNESS_BOTTOM);
    bottom->AddEntry({5e8, 1.0});
    bottom->AddEntry({2e9, 4.0});
    bottom->AddEntry({1e11, 4.0});
    owner.rejected = &laminate;
    rows.SetUp(MLMATERIAL_METAL);
    EXPECT_EQ(rows.DescribeCell({1, COLUMNKEY_ROUGHNESS_TOP}), "1 GHz: 1.5\r\n10 GHz: N/A");
    EXPECT_EQ(rows.DescribeCell({1, COLUMNKEY_ROUGHNESS_BOTTOM}), "1 GHz: ~2\r\n10 GHz: ~4");
}

TEST_F(MaterialRows, ChangeUnitsExceptInTheLastRow)
{
    constexpr std::optional<double> thicknesses[] = {0.0001, std::nullopt, 0.0, -0.0001, 0.0001};
    for (const std::optional<double>& thickness : thicknesses)
    {
        const std::string name = std::to_string(library.GetMaterialCount());
        CMaterial& material = AddMaterial(library, MLMATERIAL_DIELECTRIC, name.c_str());
        AddTable(material, MLTABLE_ER, 25.0, {4.0});
        if (thickness)
        {
            material.SetAttribute(MLATTR_THICKNESS, *thickness);
        }
    }
    rows.SetUp(MLMATERIAL_DIELECTRIC);
    EXPECT_THAT(Texts(0, {COLUMNKEY_THICKNESS}), ElementsAre("Thickness"));
    EXPECT_THAT(Column(COLUMNKEY_THICKNESS), ElementsAre("3.937", "N/A", "N/A", "N/A", "3.937"));
    rows.SetUnits(MLUNITS_METRIC);
    EXPECT_THAT(Texts(0, {COLUMNKEY_THICKNESS}), ElementsAre("Thickness (um)"));
    EXPECT_THAT(Column(COLUMNKEY_THICKNESS), ElementsAre("100", "N/A", "N/A", "N/A", "3.937"));
    rows.Refill();
    EXPECT_THAT(Column(COLUMNKEY_THICKNESS), ElementsAre("100", "N/A", "N/A", "N/A", "100"));
    rows.SetUnits(MLUNITS_ENGLISH);
    EXPECT_THAT(Texts(0, {COLUMNKEY_THICKNESS}), ElementsAre("Thickness (mils)"));
}

TEST_F(MaterialRows, KnowMaterialsByName)
{
    CMaterial& earlier = AddMaterial(library, MLMATERIAL_DIELECTRIC, "same");
    AddTable(earlier, MLTABLE_ER, 25.0, {4.0});
    CMaterial& later = AddMaterial(library, MLMATERIAL_DIELECTRIC, "same");
    AddTable(later, MLTABLE_ER, 85.0, {4.0});
    AddTable(AddMaterial(library, MLMATERIAL_DIELECTRIC, "Same"), MLTABLE_ER, 25.0, {4.0});
    rows.SetUp(MLMATERIAL_DIELECTRIC);
    owner.assigned = &earlier;
    rows.RefreshAssignedMarker();
    EXPECT_THAT(Column(COLUMNKEY_MARKER), ElementsAre("", "1", "1"));

    EXPECT_EQ(rows.GetCurrentMaterial(), nullptr);
    model.SelectRows(3, 3, true);
    EXPECT_EQ(rows.GetCurrentMaterial(), &later);
    EXPECT_EQ(rows.GetCurrentTemperature(), 25.0);
    model.SelectRows(2, 2, true);
    EXPECT_EQ(rows.GetCurrentMaterial(), nullptr) << "two rows";
    EXPECT_EQ(rows.GetCurrentTemperature(), 0.0);
    owner.assigned = nullptr;
    rows.RefreshAssignedMarker();
    EXPECT_THAT(Column(COLUMNKEY_MARKER), ElementsAre("", "", ""));
}

TEST_F(MaterialRows, SortInTheNaturalOrderOfTexts)
{
    for (const char* const name : {"Layer10", "layer2", "", "a-b", "a_b"})
    {
        AddTable(AddMaterial(library, MLMATERIAL_DIELECTRIC, name), MLTABLE_ER, 25.0, {4.0});
    }
    rows.SetUp(MLMATERIAL_DIELECTRIC);
    rows.ClickHeader(model.FindColumn(COLUMNKEY_MATERIAL));
    EXPECT_THAT(Column(COLUMNKEY_MATERIAL), ElementsAre("a_b", "a-b", "layer2", "Layer10", ""));
    rows.ClickHeader(model.FindColumn(COLUMNKEY_MATERIAL));
    EXPECT_THAT(Column(COLUMNKEY_MATERIAL), ElementsAre("Layer10", "layer2", "a-b", "a_b", ""));
    AddTable(AddMaterial(library, MLMATERIAL_DIELECTRIC, "layer3"), MLTABLE_ER, 25.0, {4.0});
    rows.Refill();
    EXPECT_THAT(Column(COLUMNKEY_MATERIAL), ElementsAre("Layer10", "layer3", "layer2", "a-b", "a_b", ""))
        << "refilled rows are sorted as before";
    EXPECT_THAT(model.GetSortedBy(), ElementsAre(GridSortKey{COLUMNKEY_MATERIAL, false}));
}

TEST_F(MaterialRows, AreSelectedAgainByMaterialAndTemperature)
{
    CMaterial& first = AddMaterial(library, MLMATERIAL_DIELECTRIC, "first");
    AddTable(first, MLTABLE_ER, 25.0, {4.0});
    AddTable(first, MLTABLE_ER, 85.0, {4.0});
    CMaterial& gone = AddMaterial(library, MLMATERIAL_DIELECTRIC, "gone");
    AddTable(gone, MLTABLE_ER, 25.0, {4.0});
    for (int twin = 0; twin < 2; ++twin)
    {
        AddTable(AddMaterial(library, MLMATERIAL_DIELECTRIC, "twin"), MLTABLE_ER, 25.0, {4.0});
    }
    rows.SetUp(MLMATERIAL_DIELECTRIC); // twin, twin, gone, first, first
    const auto refillWithout = [this](IMaterial* rejected)
    {
        owner.rejected = rejected;
        rows.Refill();
        const CGridSelection& selection = model.GetSelection();
        return std::pair(selection.GetSelectedCount() > 0 ? selection.GetRows() : std::vector<int>(),
                         selection.GetCurrentCell());
    };
    using Places = std::pair<std::vector<int>, GridCell>;
    model.SetCurrentCell({5, COLUMNKEY_ER});
    EXPECT_EQ(refillWithout(&gone), Places({}, {4, COLUMNKEY_ER})) << "nothing but the current cell";
    EXPECT_EQ(refillWithout(nullptr), Places({}, {5, COLUMNKEY_ER}));
    model.SetCurrentCell({3, COLUMNKEY_ER});
    model.SelectRows(5, 5, true);
    EXPECT_EQ(refillWithout(&gone), Places({4}, {4, COLUMNKEY_ER})) << "the first selected one";
    EXPECT_EQ(refillWithout(nullptr), Places({5}, {5, COLUMNKEY_ER}));
    model.SetCurrentCell({3, COLUMNKEY_ER});
    model.SelectRows(1, 1, true);
    model.SelectRows(3, 3, true);
    model.SelectRows(5, 5, true);
    EXPECT_EQ(refillWithout(&gone), Places({1, 4}, {1, COLUMNKEY_ER})) << "one of the twins";
    rows.ClickHeader(COLUMNKEY_MATERIAL);
    const auto withoutFirst = refillWithout(&first);
    EXPECT_EQ(withoutFirst.first.size(), 1U);
    rows.SelectMaterial(first);
    EXPECT_EQ(refillWithout(&first), withoutFirst) << "what is not listed changes nothing";
    owner.rejected = nullptr;
    rows.Refill();
    for (const IMaterial* const material : {&gone, &first})
    {
        rows.SelectMaterial(*material);
        EXPECT_EQ(rows.GetCurrentMaterial(), material);
    }
    EXPECT_EQ(model.GetSelection().GetOnlyRow(), 1);
}
} // namespace
