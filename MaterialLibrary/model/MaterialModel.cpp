#include "model/MaterialModel.h"

#include "model/CMaterial.h"

RowsForTemperature FindRows(const CMaterial& material, int tableKind, double temperature)
{
    const MaterialTables tables = material.GetTables();
    if (const CMaterialTable* const table = FindTable(tables, tableKind, temperature))
    {
        return {{table->GetEntries().begin(), table->GetEntries().end()}, TemperatureSource::own};
    }
    if (IsModelled(tableKind) && material.GetKind() == MLMATERIAL_DIELECTRIC)
    {
        return DeriveRows(tables, tableKind, temperature);
    }
    return {};
}

ModelRows::ModelRows(const CMaterial& material, double temperature)
    : permittivity(FindRows(material, MLTABLE_ER, temperature)),
      lossTangent(FindRows(material, MLTABLE_LOSS_TANGENT, temperature))
{
}

std::optional<CWidebandDebyeModel> ModelRows::Fit() const
{
    return CWidebandDebyeModel::Fit(PrepareData(permittivity.rows, lossTangent.rows));
}

std::vector<ModelResidual> FindResiduals(const CWidebandDebyeModel& model, const ModelRows& rows)
{
    std::vector<ModelResidual> residuals;
    for (const MLTBLENTRY& row : rows.permittivity.rows)
    {
        residuals.push_back({MLTABLE_ER, true, row, model.Evaluate(row.frequency).real() - row.value});
    }
    // The fit passes over leading rows.
    const std::size_t fitted = PrepareData(rows.permittivity.rows, rows.lossTangent.rows).frequencies.size();
    std::size_t left = rows.lossTangent.rows.size();
    for (const MLTBLENTRY& row : rows.lossTangent.rows)
    {
        residuals.push_back({MLTABLE_LOSS_TANGENT, left <= fitted, row,
                             LossTangentOf(model.Evaluate(row.frequency)) - row.value});
        --left;
    }
    return residuals;
}

double LossTangentOf(std::complex<double> permittivity)
{
    return -permittivity.imag() / permittivity.real();
}
