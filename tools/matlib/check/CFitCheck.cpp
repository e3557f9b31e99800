#include "tools/matlib/check/CFitCheck.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace
{
constexpr double sameValue = 1e-9;
constexpr std::size_t mostVerdicts = 1024; // a bound for files that repeat none

bool TakesSum(std::span<const MLTBLENTRY> er, const PreparedData& data)
{
    const double sum = std::accumulate(er.begin(), er.end(), 0.0,
                                       [](double s, const MLTBLENTRY& row) { return s + row.value; });
    const double taken = std::hypot(data.realParts.front(), data.imaginaryParts.front());
    return er.size() > 1 && std::abs(taken - sum) <= sameValue * sum;
}

class CWorstRow
{
public:
    void Add(MLTABLEKIND kind, std::size_t index, double row, double modelled)
    {
        const double error = std::abs(modelled - row) / std::abs(row);
        if (row != 0.0 && error > worstError)
        {
            worstError = error;
            worst = MissedRow{kind, index, modelled};
        }
    }
    [[nodiscard]] std::optional<MissedRow> Get() const { return worst; }

private:
    double worstError = CFitCheck::tolerance;
    std::optional<MissedRow> worst;
};

FitVerdict FindVerdict(CModelFitter& fitter, std::span<const MLTBLENTRY> er, std::span<const MLTBLENTRY> loss)
{
    const PreparedData data = PrepareData(er, loss);
    const auto model = fitter.Fit(data);
    if (!model)
    {
        return {};
    }
    CWorstRow worst;
    for (std::size_t i = 0; i < er.size(); ++i)
    {
        worst.Add(MLTABLE_ER, i, er[i].value, model->EvaluateReal(er[i].frequency));
    }
    return {true, TakesSum(er, data), worst.Get()};
}

void AppendBytes(std::string& text, std::span<const MLTBLENTRY> rows)
{
    const auto bytes = std::as_bytes(rows);
    text.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
}
} // namespace

const FitVerdict& CFitCheck::Judge(std::span<const MLTBLENTRY> er, std::span<const MLTBLENTRY> loss)
{
    key = std::to_string(er.size()); // where one table's rows end and the other's begin
    AppendBytes(key, er);
    AppendBytes(key, loss);
    if (const auto known = verdicts.find(key); known != verdicts.end())
    {
        return known->second;
    }
    if (verdicts.size() == mostVerdicts)
    {
        verdicts.clear();
    }
    return verdicts.emplace(key, FindVerdict(fitter, er, loss)).first->second;
}
