#include "writer/DescribeMaterial.h"

#include "model/CMaterial.h"

namespace
{
std::optional<double> GetAttribute(const CMaterial& material, MLATTRIBID id)
{
    double value = 0.0;
    return material.GetAttribute(id, &value) ? std::optional(value) : std::nullopt;
}
} // namespace

MaterialDescription DescribeMaterial(const CMaterial& material)
{
    MaterialDescription description;
    description.kind = static_cast<MLMATERIALKIND>(material.GetKind());
    description.name = material.GetName();
    description.type = material.GetTypeName();
    description.vendor = material.GetVendor();
    description.comment = material.GetComment();
    int technology = MLTECHNOLOGY_UNKNOWN;
    material.GetIntAttribute(MLATTR_TECHNOLOGY, &technology);
    description.technology = static_cast<MLTECHNOLOGY>(technology);
    description.thickness = GetAttribute(material, MLATTR_THICKNESS);
    description.resistivity = GetAttribute(material, MLATTR_BULK_RESISTIVITY);
    for (const CMaterialTable* const table : material.GetTables())
    {
        const auto rows = table->GetEntries();
        description.tables.push_back({static_cast<MLTABLEKIND>(table->GetTableKind()),
                                      table->GetTemperature(),
                                      {rows.begin(), rows.end()}});
    }
    return description;
}
