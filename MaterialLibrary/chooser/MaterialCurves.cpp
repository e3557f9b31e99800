#include "chooser/MaterialCurves.h"

#include "MaterialLibrary/IMaterial.h"
#include "MaterialLibrary/IMaterialTable.h"
#include "shared/Translation/Translate.h"

namespace
{
CChartCurve BuildCurve(const IMaterialTable& table, const MaterialCurveDef& definition)
{
    constexpr double hertzPerMegahertz = 1000000.0;
    CChartCurve curve;
    curve.points.reserve(static_cast<std::size_t>(table.GetEntryCount()));
    for (int index = 0; index < table.GetEntryCount(); ++index)
    {
        const MLTBLENTRY& entry = table.GetEntry(index);
        curve.points.push_back({entry.frequency / hertzPerMegahertz, entry.value});
    }
    curve.UpdateBounds();
    curve.name = definition.title;
    curve.colour = definition.colour;
    return curve;
}
} // namespace

const std::array<MaterialCurveDef, materialCurveCount>& GetMaterialCurveDefs()
{
    static const std::array<MaterialCurveDef, materialCurveCount> definitions = {{
        {MLTABLE_ER, TranslateOwn("Er"), 0x0000FF},
        {MLTABLE_LOSS_TANGENT, TranslateOwn("Loss Tangent"), 0x00FFFF},
        {MLTABLE_ROUGHNESS_TOP, "Top Roughness Factor", 0xFFFF00},
        {MLTABLE_ROUGHNESS_BOTTOM, "Bottom Roughness Factor", 0xFF0000},
    }};
    return definitions;
}

void BuildMaterialCurves(MaterialCurves& curves, IMaterial* material, double temperature)
{
    curves.fill({});
    if (material == nullptr)
    {
        return;
    }
    for (std::size_t i = 0; i < curves.size(); ++i)
    {
        const MaterialCurveDef& definition = GetMaterialCurveDefs()[i];
        const IMaterialTable* const table = material->GetTable(definition.tableKind, temperature);
        if (table != nullptr && table->GetEntryCount() > 1)
        {
            curves[i] = BuildCurve(*table, definition);
        }
    }
}
