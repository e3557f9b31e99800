#pragma once

#include "dielectric/CWidebandDebyeModel.h"
#include "model/PropertyAnswers.h"

class CMaterial;

// The rows of a property that answer for a temperature in °C; none where the material has none.
[[nodiscard]] RowsForTemperature FindRows(const CMaterial& material, int tableKind, double temperature);

// What the model of a dielectric at a temperature is fitted to.
struct ModelRows
{
    RowsForTemperature permittivity;
    RowsForTemperature lossTangent;

    ModelRows(const CMaterial& material, double temperature);

    // Whether there are rows of both.
    [[nodiscard]] bool AreComplete() const { return !permittivity.rows.empty() && !lossTangent.rows.empty(); }

    // Whether both are a single row, which needs no model.
    [[nodiscard]] bool AreConstant() const
    {
        return permittivity.rows.size() == 1 && lossTangent.rows.size() == 1;
    }

    [[nodiscard]] std::optional<CWidebandDebyeModel> Fit() const;
};

// How far a model passes from a row.
struct ModelResidual
{
    int tableKind;
    bool isFitted; // false: a loss tangent at a frequency so low that the fit leaves it out
    MLTBLENTRY row;
    double residual; // the model's value less the row's
};

// Those of all rows: of Er, then of the loss tangent.
[[nodiscard]] std::vector<ModelResidual> FindResiduals(const CWidebandDebyeModel& model,
                                                       const ModelRows& rows);

[[nodiscard]] double LossTangentOf(std::complex<double> permittivity);
