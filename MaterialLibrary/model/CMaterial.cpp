#include "model/CMaterial.h"

#include "framework/CModuleState.h"

#include <algorithm>

CMaterial::CMaterial(const MLLEGACYRECORD& record, CArena& materialArena, CKeptFit& libraryFit)
    : CMaterial(materialArena, libraryFit)
{
    kind = MLMATERIAL_DIELECTRIC;
    technology = record.technology;
    SetName(record.name);
    legacyRecord.Append(*arena, record.numbers);
    if (record.hasThickness)
    {
        SetAttribute(MLATTR_THICKNESS, record.thickness);
    }
    if (record.hasBulkResistivity)
    {
        SetAttribute(MLATTR_BULK_RESISTIVITY, record.numbers.bulkResistivity);
    }
}

int CMaterial::CountTables(int tableKind) const
{
    if (tableKind == MLTABLE_ALL)
    {
        return tables.GetCount();
    }
    const auto all = tables.GetAll();
    return static_cast<int>(std::count_if(all.begin(), all.end(),
                                          [tableKind](const CMaterialTable* table)
                                          { return table->GetTableKind() == tableKind; }));
}

IMaterialTable* CMaterial::GetTableAt(int index)
{
    const CModuleStateScope scope;
    return tables.IsIndex(index) ? tables[index] : nullptr;
}

IMaterialTableIO* CMaterial::GetTableIO(int index)
{
    const CModuleStateScope scope;
    return tables.IsIndex(index) ? tables[index] : nullptr;
}

// There is one integer attribute; hosts read it under whatever identifier they please.
bool CMaterial::GetIntAttribute(MLATTRIBID, int* value) const
{
    *value = technology;
    return true;
}

void CMaterial::SetIntAttribute(MLATTRIBID, int value)
{
    technology = value;
}

bool CMaterial::GetAttribute(MLATTRIBID id, double* value) const
{
    for (const Attribute& attribute : attributes.GetAll())
    {
        if (attribute.id == id)
        {
            *value = attribute.value;
            return true;
        }
    }
    return false;
}

void CMaterial::SetAttribute(MLATTRIBID id, double value)
{
    for (Attribute& attribute : attributes.GetAll())
    {
        if (attribute.id == id)
        {
            attribute.value = value;
            return;
        }
    }
    attributes.Append(*arena, {id, value});
}

CMaterialTable& CMaterial::AppendTable(CMaterialTable& table)
{
    tables.Append(*arena, &table);
    return table;
}

CMaterialTable& CMaterial::MakeTable(int tableKind)
{
    return AppendTable(arena->Make<CMaterialTable>(*arena, tableKind));
}
