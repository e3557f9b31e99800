// Values in bulk and the model.
#include "c/Handles.h"
#include "dielectric/DebyePoles.h"
#include "model/BulkAnswers.h"
#include "model/CMaterial.h"
#include "model/MaterialModel.h"

#include <cmath>
#include <memory>

struct ml_model
{
    CWidebandDebyeModel model;
    std::vector<ModelResidual> residuals;
    std::uint32_t temperature;
};

namespace
{
constexpr unsigned valueFlags = ML_MODEL_EVERYWHERE | ML_STRAIGHT_ROUGHNESS;
constexpr double lowestCorner = 1e-150; // whose square is a number
constexpr double highestCorner = 1e150;
constexpr std::uint32_t mostPolesPerDecade = 20;

ml_error MakeModel(const CMaterial& material, double temperature, ml_model** model)
{
    const ModelRows rows(material, temperature);
    if (!rows.AreComplete())
    {
        return ML_ERROR_NO_DATA;
    }
    const auto fitted = rows.Fit();
    if (!fitted)
    {
        return ML_ERROR_NO_FIT;
    }
    *model = std::make_unique<ml_model>(
                 ml_model{*fitted, FindResiduals(*fitted, rows),
                          StatusOf(rows.permittivity.source) | StatusOf(rows.lossTangent.source)})
                 .release();
    return ML_OK;
}

bool IsTerm(const ml_term& term)
{
    return term.f1 >= lowestCorner && term.f1 < term.f2 && term.f2 <= highestCorner &&
           std::isfinite(term.delta_eps);
}
} // namespace

ml_error ml_values(const ml_material* material, int32_t property, double temperature, uint32_t flags,
                   const double* frequencies, size_t count, double* values, uint8_t* status)
{
    if (material == nullptr || property < ML_ER || property > ML_ROUGHNESS_BOTTOM || flags > valueFlags ||
        (count > 0 && (frequencies == nullptr || values == nullptr)))
    {
        return ML_ERROR_ARGUMENT;
    }
    return Guard(
        [=]
        {
            AnswerAll(FromHandle(material),
                      {property,
                       temperature,
                       (flags & ML_MODEL_EVERYWHERE) != 0,
                       (flags & ML_STRAIGHT_ROUGHNESS) != 0,
                       {frequencies, count}},
                      values, status);
            return ML_OK;
        });
}

ml_error ml_make_model(const ml_material* material, double temperature, ml_model** model)
{
    if (material == nullptr || model == nullptr)
    {
        return ML_ERROR_ARGUMENT;
    }
    return Guard([=] { return MakeModel(FromHandle(material), temperature, model); });
}

ml_error ml_make_model_from_terms(double eps_inf, const ml_term* terms, size_t count, ml_model** model)
{
    if (model == nullptr || (terms == nullptr && count > 0) || !std::isfinite(eps_inf) ||
        !std::all_of(terms, terms + count, IsTerm))
    {
        return ML_ERROR_ARGUMENT;
    }
    return Guard(
        [=]
        {
            std::vector<MLDEBYETERM> given;
            given.reserve(count);
            for (const ml_term& term : std::span(terms, count))
            {
                given.push_back({term.f1, term.f2, term.delta_eps});
            }
            *model = std::make_unique<ml_model>(
                         ml_model{CWidebandDebyeModel::FromTerms(eps_inf, std::move(given)), {}, 0})
                         .release();
            return ML_OK;
        });
}

void ml_free_model(ml_model* model)
{
    delete model;
}

ml_error ml_get_model_info(const ml_model* model, ml_model_info* info)
{
    if (model == nullptr)
    {
        return ML_ERROR_ARGUMENT;
    }
    const CWidebandDebyeModel& from = model->model;
    return Fill(info, {0, from.GetEpsInf(), from.GetTerms().size(), from.GetLowestFrequency(),
                       from.GetHighestFrequency(), model->residuals.size(), model->temperature})
               ? ML_OK
               : ML_ERROR_ARGUMENT;
}

ml_error ml_get_term(const ml_model* model, size_t index, ml_term* term)
{
    if (model == nullptr || term == nullptr || index >= model->model.GetTerms().size())
    {
        return ML_ERROR_ARGUMENT;
    }
    const MLDEBYETERM& from = model->model.GetTerms()[index];
    *term = {from.f1, from.f2, from.deltaEps};
    return ML_OK;
}

ml_error ml_get_residual(const ml_model* model, size_t index, ml_residual* residual)
{
    if (model == nullptr || residual == nullptr || index >= model->residuals.size())
    {
        return ML_ERROR_ARGUMENT;
    }
    const ModelResidual& from = model->residuals[index];
    *residual = {from.tableKind, from.isFitted, from.row.frequency, from.row.value, from.residual};
    return ML_OK;
}

ml_error ml_permittivity(const ml_model* model, const double* frequencies, size_t count, double* real,
                         double* imaginary)
{
    if (model == nullptr || (frequencies == nullptr && count > 0))
    {
        return ML_ERROR_ARGUMENT;
    }
    for (std::size_t i = 0; i < count; ++i)
    {
        const std::complex<double> permittivity = model->model.Evaluate(frequencies[i]);
        if (real != nullptr)
        {
            real[i] = permittivity.real();
        }
        if (imaginary != nullptr)
        {
            imaginary[i] = permittivity.imag();
        }
    }
    return ML_OK;
}

ml_error ml_debye_poles(const ml_model* model, uint32_t per_decade, double band_min, double band_max,
                        ml_pole* poles, size_t capacity, size_t* count, double* worst_error)
{
    if (model == nullptr || per_decade < 1 || per_decade > mostPolesPerDecade || !(band_min > 0.0) ||
        !(band_min <= band_max) || !std::isfinite(band_max) || (poles == nullptr && capacity > 0) ||
        count == nullptr)
    {
        return ML_ERROR_ARGUMENT;
    }
    return Guard(
        [=]
        {
            const std::vector<DebyePole> expanded =
                ExpandIntoPoles(model->model, static_cast<int>(per_decade));
            if (worst_error != nullptr)
            {
                *worst_error = FindWorstError(model->model, expanded, band_min, band_max);
            }
            *count = expanded.size();
            for (std::size_t i = 0; i < std::min(capacity, expanded.size()); ++i)
            {
                poles[i] = {expanded[i].frequency, expanded[i].deltaEps};
            }
            return ML_OK;
        });
}
