#include "model/BulkAnswers.h"

#include "MaterialLibrary/materials.h"
#include "model/CMaterial.h"
#include "model/MaterialModel.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{
constexpr double noData = std::numeric_limits<double>::quiet_NaN();
constexpr double failedFit = -1.0;

struct Answer
{
    double value;
    unsigned status;
};

// Where a value on the straight line through the rows lies; beyond the rows it is that of the nearest.
double InterpolateStraight(std::span<const MLTBLENTRY> rows, double frequency)
{
    const auto [lowest, highest] = std::minmax_element(rows.begin(), rows.end(),
                                                       [](const MLTBLENTRY& left, const MLTBLENTRY& right)
                                                       { return left.frequency < right.frequency; });
    if (frequency <= lowest->frequency)
    {
        return lowest->value;
    }
    if (frequency >= highest->frequency)
    {
        return highest->value;
    }
    const auto [below, above] = FindRowsAround(rows, frequency);
    if (below == nullptr || above == nullptr) // not a number, or next to a row at infinity
    {
        return noData;
    }
    const double share = (frequency - below->frequency) / (above->frequency - below->frequency);
    return below->value + share * (above->value - below->value);
}

Answer AnswerRoughness(std::span<const MLTBLENTRY> rows, double frequency, bool straight)
{
    if (const auto measured = FindRowValue(rows, frequency))
    {
        return {*measured, rows.size() == 1 ? ML_FROM_CONSTANT : ML_FROM_ROW};
    }
    const auto [below, above] = FindRowsAround(rows, frequency);
    const double value =
        straight ? InterpolateStraight(rows, frequency) : InterpolateRoughness(rows, frequency).value;
    if (rows.size() == 1)
    {
        return {value, ML_FROM_CONSTANT};
    }
    return {value, below != nullptr && above != nullptr ? ML_BETWEEN_ROWS : ML_OUTSIDE_ROWS};
}

// Er or loss tangent at one temperature.
class CModelledProperty
{
public:
    CModelledProperty(const CMaterial& material, const BulkQuestion& question)
        : isPermittivity(question.tableKind == MLTABLE_ER), asksRows(!question.modelEverywhere),
          rows(material, question.temperature), needsModel(rows.AreComplete() && !rows.AreConstant())
    {
        if (needsModel && std::any_of(question.frequencies.begin(), question.frequencies.end(),
                                      [this](double frequency) { return !FindRow(frequency); }))
        {
            model = rows.Fit();
        }
    }

    [[nodiscard]] Answer At(double frequency) const
    {
        if (const auto measured = FindRow(frequency))
        {
            return {*measured,
                    (Own().rows.size() == 1 ? ML_FROM_CONSTANT : ML_FROM_ROW) | StatusOf(Own().source)};
        }
        if (!rows.AreComplete())
        {
            return {noData, ML_NO_DATA};
        }
        if (!needsModel)
        {
            return {Own().rows.front().value, ML_FROM_CONSTANT | StatusOf(Own().source)};
        }
        const unsigned temperature = StatusOf(rows.permittivity.source) | StatusOf(rows.lossTangent.source);
        if (!model)
        {
            return {failedFit, ML_NO_FIT | temperature};
        }
        return {isPermittivity ? model->EvaluateReal(frequency) : LossTangentOf(model->Evaluate(frequency)),
                PlaceOf(frequency) | temperature};
    }

private:
    [[nodiscard]] const RowsForTemperature& Own() const
    {
        return isPermittivity ? rows.permittivity : rows.lossTangent;
    }

    [[nodiscard]] std::optional<double> FindRow(double frequency) const
    {
        return asksRows ? FindRowValue(Own().rows, frequency) : std::nullopt;
    }

    [[nodiscard]] unsigned PlaceOf(double frequency) const
    {
        if (frequency > model->GetHighestFrequency())
        {
            return ML_FROM_MODEL_ABOVE;
        }
        return frequency >= model->GetLowestFrequency() ? ML_FROM_MODEL : ML_FROM_MODEL_BELOW;
    }

    bool isPermittivity;
    bool asksRows;
    ModelRows rows;
    bool needsModel;
    std::optional<CWidebandDebyeModel> model;
};

template <class At>
void Write(std::span<const double> frequencies, double* values, std::uint8_t* status, At at)
{
    for (std::size_t i = 0; i < frequencies.size(); ++i)
    {
        const Answer answer = at(frequencies[i]);
        values[i] = answer.value;
        if (status != nullptr)
        {
            status[i] = static_cast<std::uint8_t>(answer.status);
        }
    }
}
} // namespace

unsigned StatusOf(TemperatureSource source)
{
    switch (source)
    {
    case TemperatureSource::nearest:
        return ML_TEMPERATURE_NEAREST;
    case TemperatureSource::between:
        return ML_TEMPERATURE_BETWEEN;
    case TemperatureSource::own:
        break;
    }
    return 0;
}

void AnswerAll(const CMaterial& material, const BulkQuestion& question, double* values, std::uint8_t* status)
{
    if (IsModelled(question.tableKind))
    {
        const CModelledProperty property(material, question);
        Write(question.frequencies, values, status,
              [&property](double frequency) { return property.At(frequency); });
        return;
    }
    const RowsForTemperature found = FindRows(material, question.tableKind, question.temperature);
    const std::span<const MLTBLENTRY> rows = found.rows;
    Write(question.frequencies, values, status,
          [rows, &question](double frequency)
          {
              return rows.empty() ? Answer{noData, ML_NO_DATA}
                                  : AnswerRoughness(rows, frequency, question.straightRoughness);
          });
}
