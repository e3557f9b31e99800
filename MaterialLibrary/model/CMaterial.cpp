#include "model/CMaterial.h"

#include "shared/ModuleState/CModuleState.h"

#include <algorithm>

CMaterial::CMaterial(const MLLEGACYRECORD& record, std::pmr::memory_resource& memoryResource)
    : CMaterial(memoryResource) // from here on the destructor gives back what a failing step leaves
{
    kind = MLMATERIAL_DIELECTRIC;
    technology = record.technology;
    name.Set(*resource, record.name);
    legacyRecord.Append(*resource, record.numbers);
    if (record.hasThickness)
    {
        SetAttribute(MLATTR_THICKNESS, record.thickness);
    }
    if (record.hasBulkResistivity)
    {
        SetAttribute(MLATTR_BULK_RESISTIVITY, record.numbers.bulkResistivity);
    }
}

CMaterial::~CMaterial()
{
    while (tables.GetCount() > 0)
    {
        CMaterialTable::Deleter()(tables.RemoveLast());
    }
    attributes.Release(*resource);
    tables.Release(*resource);
    legacyRecord.Release(*resource);
    comment.Release(*resource);
    vendor.Release(*resource);
    typeName.Release(*resource);
    name.Release(*resource);
}

bool CMaterial::IsBlank() const noexcept
{
    return name.IsEmpty() && typeName.IsEmpty() && vendor.IsEmpty() && comment.IsEmpty() &&
           technology == MLTECHNOLOGY_UNKNOWN && tables.GetCount() == 0 && attributes.GetCount() == 0 &&
           legacyRecord.GetCount() == 0;
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
    attributes.Append(*resource, {id, value});
}

CMaterialTable& CMaterial::AppendTable(CMaterialTable::Pointer table)
{
    tables.Append(*resource, table.get());
    return *table.release();
}

IMaterialTableIO* CMaterial::AddTable(int tableKind)
{
    return &AppendTable(CMaterialTable::Create(*resource, tableKind));
}
