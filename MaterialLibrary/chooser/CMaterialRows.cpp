#include "chooser/CMaterialRows.h"

#include "MaterialLibrary/IMatLib.h"
#include "MaterialLibrary/IMaterial.h"
#include "MaterialLibrary/IMaterialTable.h"
#include "chooser/CRememberedRows.h"
#include "chooser/IMaterialFilter.h"
#include "chooser/ISelectionChangeNotifier.h"
#include "chooser/TableTip.h"
#include "grid/SortRows.h"
#include "model/ITechnologyMapProvider.h"
#include "resources/Texts.h"
#include "shared/Misc_String/CompareNatural.h"
#include "shared/Misc_String/Decimal.h"
#include "shared/Misc_String/FormatNumber.h"

#include <algorithm>
#include <cstring>
#include <optional>

namespace
{
std::string FormatCell(double value)
{
    return FormatNumber(value, 13);
}

// The kind of the tables that a column shows; a column of something else shows none.
std::optional<int> GetTableKind(int columnKey)
{
    const bool isTable = columnKey >= COLUMNKEY_ER && columnKey <= COLUMNKEY_ROUGHNESS_BOTTOM;
    return isTable ? std::optional(columnKey - COLUMNKEY_ER + MLTABLE_ER) : std::nullopt;
}

// The different temperatures of the material's tables, in the order of the tables.
void ListTemperatures(IMaterial& material, std::vector<double>& temperatures)
{
    temperatures.clear();
    const int count = material.CountTables(MLTABLE_ALL);
    for (int index = 0; index < count; ++index)
    {
        const double temperature = material.GetTableAt(index)->GetTemperature();
        if (std::find(temperatures.begin(), temperatures.end(), temperature) == temperatures.end())
        {
            temperatures.push_back(temperature);
        }
    }
}
} // namespace

CMaterialRows::CMaterialRows(CGridModel& gridModel, IMatLib& materialLibrary)
    : model(&gridModel), library(&materialLibrary), technologies(&GetTechnologyMap()),
      tableText(LoadText(MLTEXT_TABLE)), notAvailableText(LoadText(MLTEXT_NOT_AVAILABLE))
{
}

void CMaterialRows::SetUp(int materialKind)
{
    const std::span<const MaterialColumn> columns = GetMaterialColumns();
    CGridUpdateScope update(*model);
    model->Reset(static_cast<int>(columns.size()));
    for (const MaterialColumn& each : columns)
    {
        const int column = each.key;
        model->SetHeaderStyle(column, each.key, each.valueType);
        model->SetHeaderText(column, LoadText(each.header));
        model->HideColumn(column, each.hiddenFor != MLMATERIAL_NOT_SET && each.hiddenFor == materialKind);
    }
    styles.text = model->AddStyle({GridValueType::Text, GridEmphasis::Normal, {}});
    styles.number = model->AddStyle({GridValueType::Number, GridEmphasis::Normal, {}});
    styles.notAvailable = model->AddStyle({GridValueType::Text, GridEmphasis::Faint, {}});
    styles.marker = model->AddStyle({GridValueType::Mark, GridEmphasis::Normal, "1"});
    Refill();
    update.Finish();
}

void CMaterialRows::Refill()
{
    CGridUpdateScope update(*model);
    const CRememberedRows remembered(*model);
    model->SetRowCount(0);
    const std::vector<IMaterial*> materials = ListMaterials();
    std::vector<double> temperatures;
    std::size_t rowCount = 0;
    for (IMaterial* const material : materials)
    {
        ListTemperatures(*material, temperatures);
        rowCount += temperatures.size();
    }
    model->SetRowCount(static_cast<int>(rowCount));
    int row = 0;
    for (IMaterial* const material : materials)
    {
        // Filling derives tables, but for these temperatures only.
        ListTemperatures(*material, temperatures);
        for (const double temperature : temperatures)
        {
            FillRow(++row, *material, temperature);
        }
    }
    if (model->GetSortKeys().GetFirst().column != 0)
    {
        SortRows(*model, CompareNatural);
    }
    remembered.Restore(*model);
    update.Finish();
}

void CMaterialRows::SetUnits(unsigned newUnits)
{
    units = newUnits;
    const int column = model->FindColumn(COLUMNKEY_THICKNESS);
    const int nameColumn = model->FindColumn(COLUMNKEY_MATERIAL);
    if (column == 0 || nameColumn == 0)
    {
        return;
    }
    CGridUpdateScope update(*model);
    model->SetHeaderText(column, LoadText(MLTEXT_THICKNESS) + " (" +
                                     LoadText(GetThicknessUnit(units).unitText) + ")");
    // Hosts know the last row to keep the unit of its filling.
    for (int row = 1; row < model->GetRowCount(); ++row)
    {
        const IMaterial* const material = library->FindMaterial(model->GetText(row, nameColumn));
        double thickness = 0.0;
        if (material != nullptr && material->GetAttribute(MLATTR_THICKNESS, &thickness) && thickness > 0.0)
        {
            model->SetCell(row, column, styles.number, FormatThickness(thickness, units));
        }
    }
    update.Finish();
}

void CMaterialRows::RefreshAssignedMarker()
{
    const int column = model->FindColumn(COLUMNKEY_MARKER);
    const int nameColumn = model->FindColumn(COLUMNKEY_MATERIAL);
    if (column == 0 || nameColumn == 0)
    {
        return;
    }
    const IMaterial* const assigned = AskForAssigned();
    CGridUpdateScope update(*model);
    for (int row = model->GetRowCount(); row > 0; --row)
    {
        FillMarker(row, column, model->GetText(row, nameColumn), assigned);
    }
    update.Finish();
}

void CMaterialRows::ClickHeader(int column)
{
    model->GetSortKeys().ClickHeader(column);
    SortRows(*model, CompareNatural);
}

void CMaterialRows::SelectMaterial(const IMaterial& material)
{
    const int column = model->FindColumn(COLUMNKEY_MATERIAL);
    int row = 1;
    while (row <= model->GetRowCount() && std::strcmp(model->GetText(row, column), material.GetName()) != 0)
    {
        ++row;
    }
    if (row > model->GetRowCount())
    {
        return;
    }
    CGridUpdateScope update(*model);
    model->SelectRows(1, model->GetRowCount(), false);
    model->SelectRows(row, row, true);
    model->SetCurrentCell({row, column});
    update.Finish();
}

std::string CMaterialRows::DescribeCell(GridCell cell) const
{
    const std::optional<int> kind = GetTableKind(model->GetUserAttribute(cell.column));
    const int nameColumn = model->FindColumn(COLUMNKEY_MATERIAL);
    if (!kind || nameColumn == 0 || model->GetText(cell.row, cell.column) != tableText)
    {
        return {};
    }
    const IMaterial* const material = library->FindMaterial(model->GetText(cell.row, nameColumn));
    return material != nullptr ? DescribeTable(*material, *kind, ReadTemperature(cell.row)) : std::string();
}

IMaterial* CMaterialRows::GetCurrentMaterial() const
{
    const int row = model->GetSelection().GetOnlyRow();
    const int column = model->FindColumn(COLUMNKEY_MATERIAL);
    return row != 0 && column != 0 ? library->FindMaterial(model->GetText(row, column)) : nullptr;
}

double CMaterialRows::GetCurrentTemperature() const
{
    const int row = model->GetSelection().GetOnlyRow();
    return row != 0 ? ReadTemperature(row) : 0.0;
}

double CMaterialRows::ReadTemperature(int row) const
{
    const int column = model->FindColumn(COLUMNKEY_TEMPERATURE);
    return column != 0 ? ParseDecimal(model->GetText(row, column)).value : 0.0;
}

std::vector<IMaterial*> CMaterialRows::ListMaterials() const
{
    std::vector<IMaterial*> materials;
    for (int index = library->GetMaterialCount() - 1; index >= 0; --index)
    {
        IMaterial* const material = library->GetMaterial(index);
        if (filter == nullptr || filter->Accept(material))
        {
            materials.push_back(material);
        }
    }
    return materials;
}

void CMaterialRows::FillRow(int row, IMaterial& material, double temperature)
{
    for (int column = 1; column <= model->GetColumnCount(); ++column)
    {
        if (!model->IsColumnHidden(column))
        {
            FillCell(row, column, material, temperature);
        }
    }
}

void CMaterialRows::FillCell(int row, int column, IMaterial& material, double temperature)
{
    const int key = model->GetUserAttribute(column);
    if (const std::optional<int> tableKind = GetTableKind(key))
    {
        FillTableCell(row, column, material.GetTable(*tableKind, temperature));
        return;
    }
    const auto setText = [&](std::string_view text) { model->SetCell(row, column, styles.text, text); };
    switch (key)
    {
    case COLUMNKEY_MARKER:
        FillMarker(row, column, material.GetName(), AskForAssigned());
        break;
    case COLUMNKEY_TYPE:
        setText(material.GetTypeName());
        break;
    case COLUMNKEY_BULK_RESISTIVITY:
    {
        double resistivity = 0.0;
        if (material.GetAttribute(MLATTR_BULK_RESISTIVITY, &resistivity) && resistivity > 0.0)
        {
            model->SetCell(row, column, styles.number, FormatCell(resistivity));
        }
        break;
    }
    case COLUMNKEY_THICKNESS:
        FillThickness(row, column, material);
        break;
    case COLUMNKEY_MATERIAL:
        setText(material.GetName());
        break;
    case COLUMNKEY_TEMPERATURE:
        setText(FormatCell(temperature));
        break;
    case COLUMNKEY_TECHNOLOGY:
    {
        int technology = MLTECHNOLOGY_UNKNOWN;
        static_cast<void>(material.GetIntAttribute(MLATTR_TECHNOLOGY, &technology));
        setText(technologies != nullptr ? technologies->GetTechnologyName(technology) : std::string());
        break;
    }
    case COLUMNKEY_VENDOR:
        setText(material.GetVendor());
        break;
    default:
        setText(material.GetComment());
        break;
    }
}

void CMaterialRows::FillMarker(int row, int column, const char* materialName, const IMaterial* assigned)
{
    const bool marked = assigned != nullptr && std::strcmp(assigned->GetName(), materialName) == 0;
    model->SetCell(row, column, marked ? styles.marker : styles.notAvailable);
}

void CMaterialRows::FillThickness(int row, int column, const IMaterial& material)
{
    double thickness = 0.0;
    if (material.GetAttribute(MLATTR_THICKNESS, &thickness) && thickness > 0.0)
    {
        model->SetCell(row, column, styles.number, FormatThickness(thickness, units));
    }
    else
    {
        model->SetCell(row, column, styles.notAvailable, notAvailableText);
    }
}

void CMaterialRows::FillTableCell(int row, int column, const IMaterialTable* table)
{
    const int entries = table != nullptr ? table->GetEntryCount() : 0;
    if (entries == 1)
    {
        model->SetCell(row, column, styles.number, FormatCell(table->GetEntry(0).value));
    }
    else
    {
        model->SetCell(row, column, styles.notAvailable, entries > 1 ? tableText : notAvailableText);
    }
}

const IMaterial* CMaterialRows::AskForAssigned() const
{
    return notifier != nullptr ? notifier->GetAssignedMaterial() : nullptr;
}
