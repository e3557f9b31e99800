// How a material answers a host: what its tables say, and what it keeps of that.
#include "framework/CModuleState.h"
#include "model/CMaterial.h"
#include "model/MaterialModel.h"

namespace
{
constexpr double failedFit = -1.0; // the value where no model can be fitted
}

CMaterialTable* CMaterial::FindOrDeriveTable(int tableKind, double temperature)
{
    if (CMaterialTable* const table = FindTable(tables.GetAll(), tableKind, temperature))
    {
        return table;
    }
    if (!IsModelled(tableKind) || kind != MLMATERIAL_DIELECTRIC)
    {
        return nullptr;
    }
    auto& derived = arena->Make<CMaterialTable>(*arena, tableKind);
    derived.SetTemperature(temperature);
    derived.AddEntries(DeriveRows(tables.GetAll(), tableKind, temperature).rows);
    return &AppendTable(derived);
}

IMaterialTable* CMaterial::GetTable(int tableKind, double temperature)
{
    const CModuleStateScope scope;
    return FindOrDeriveTable(tableKind, temperature);
}

double CMaterial::FitDielectricValue(CMaterialTable& permittivityTable, CMaterialTable& lossTable,
                                     int tableKind, double frequency)
{
    const CWidebandDebyeModel* const model = fit->Fit(permittivityTable.GetEntries(), lossTable.GetEntries());
    if (model == nullptr)
    {
        return failedFit;
    }
    const std::complex<double> permittivity = model->Evaluate(frequency);
    const double lossTangent = LossTangentOf(permittivity);
    permittivityTable.AddCachedValue(frequency, permittivity.real());
    lossTable.AddCachedValue(frequency, lossTangent);
    return tableKind == MLTABLE_ER ? permittivity.real() : lossTangent;
}

void CMaterial::GetValue(int tableKind, double frequency, double* value, double temperature)
{
    CMaterialTable* const table = FindOrDeriveTable(tableKind, temperature);
    if (table == nullptr)
    {
        return;
    }
    if (const auto cached = table->FindCachedValue(frequency))
    {
        *value = *cached;
        return;
    }
    if (const auto measured = FindRowValue(table->GetEntries(), frequency))
    {
        *value = *measured;
        return;
    }
    if (IsRoughness(tableKind))
    {
        if (table->GetEntryCount() > 0)
        {
            const MLTBLENTRY kept = InterpolateRoughness(table->GetEntries(), frequency);
            table->AddCachedValue(kept.frequency, kept.value);
            *value = kept.value;
        }
        return;
    }
    if (!IsModelled(tableKind))
    {
        return;
    }
    CMaterialTable* const permittivity =
        tableKind == MLTABLE_ER ? table : FindOrDeriveTable(MLTABLE_ER, temperature);
    CMaterialTable* const loss =
        tableKind == MLTABLE_LOSS_TANGENT ? table : FindOrDeriveTable(MLTABLE_LOSS_TANGENT, temperature);
    if (permittivity == nullptr || loss == nullptr || permittivity->GetEntryCount() == 0 ||
        loss->GetEntryCount() == 0)
    {
        return;
    }
    if (!permittivity->HasSeveralEntries() && !loss->HasSeveralEntries())
    {
        *value = table->GetFirstValue();
        return;
    }
    *value = FitDielectricValue(*permittivity, *loss, tableKind, frequency);
}

CMaterialTable& CMaterial::NeedTable(int tableKind, double temperature)
{
    if (CMaterialTable* const table = FindOrDeriveTable(tableKind, temperature))
    {
        return *table;
    }
    // Only a material that is no dielectric comes here.
    auto& table = arena->Make<CMaterialTable>(*arena, tableKind);
    table.SetTemperature(temperature);
    return AppendTable(table);
}

void CMaterial::AddDielectricPoint(double frequency, double permittivity, double lossTangent,
                                   double temperature)
{
    CMaterialTable& permittivityTable = NeedTable(MLTABLE_ER, temperature);
    CMaterialTable& lossTable = NeedTable(MLTABLE_LOSS_TANGENT, temperature);
    permittivityTable.AddEntry({frequency, permittivity});
    lossTable.AddEntry({frequency, lossTangent});
}
