#pragma once

#include "dielectric/CWidebandDebyeModel.h"
#include "tests/dielectric/PlainFit.h"

inline std::int32_t Prepare(CWidebandDebyeModel& model, const PlainLaminate& laminate)
{
    return model.PrepareData(static_cast<std::int32_t>(laminate.erValues.size()),
                             laminate.erFrequencies.data(), laminate.erValues.data(),
                             static_cast<std::int32_t>(laminate.lossValues.size()),
                             laminate.lossFrequencies.data(), laminate.lossValues.data());
}

inline bool PrepareAndFit(CWidebandDebyeModel& model, const PlainLaminate& laminate)
{
    return Prepare(model, laminate) == 1 && model.Fit() == 1;
}
