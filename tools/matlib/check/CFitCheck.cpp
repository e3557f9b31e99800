#include "tools/matlib/check/CFitCheck.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <string_view>

namespace
{
constexpr double sameValue = 1e-9;

bool TakesSum(std::span<const MLTBLENTRY> er, const PreparedData& data)
{
    const double sum = std::accumulate(er.begin(), er.end(), 0.0,
                                       [](double s, const MLTBLENTRY& row) { return s + row.value; });
    const double taken = std::hypot(data.realParts.front(), data.imaginaryParts.front());
    return er.size() > 1 && std::abs(taken - sum) <= sameValue * sum;
}

// Er and loss tangent mostly have the same frequencies, which the basis knows.
std::optional<MissedRow> FindWorstRow(std::span<const MLTBLENTRY> er, const CWidebandDebyeModel& model,
                                      const CDebyeBasis* basis)
{
    std::optional<MissedRow> worst;
    double worstError = CFitCheck::tolerance;
    const std::span<const double> known =
        basis != nullptr ? basis->GetFrequencies() : std::span<const double>();
    const std::vector<double> knownParts =
        basis != nullptr ? model.EvaluateReal(*basis) : std::vector<double>();
    auto next = known.begin();
    for (std::size_t i = 0; i < er.size(); ++i)
    {
        const MLTBLENTRY& row = er[i];
        next = std::find_if(next, known.end(), [&row](double other) { return other >= row.frequency; });
        const bool isKnown = next != known.end() && *next == row.frequency;
        const double modelled = isKnown ? knownParts[static_cast<std::size_t>(next - known.begin())]
                                        : model.EvaluateReal(row.frequency);
        const double error = std::abs(modelled - row.value) / std::abs(row.value);
        if (row.value != 0.0 && error > worstError)
        {
            worstError = error;
            worst = MissedRow{i, modelled};
        }
    }
    return worst;
}

FitVerdict FindVerdict(CModelFitter& fitter, std::span<const MLTBLENTRY> er, std::span<const MLTBLENTRY> loss)
{
    const PreparedData data = PrepareData(er, loss);
    const auto model = fitter.Fit(data);
    if (!model)
    {
        return {};
    }
    return {true, TakesSum(er, data), FindWorstRow(er, *model, fitter.FindBasis(data.frequencies))};
}

std::string_view BytesOf(std::span<const MLTBLENTRY> rows)
{
    return {reinterpret_cast<const char*>(rows.data()), rows.size_bytes()};
}
} // namespace

const FitVerdict& CFitCheck::Judge(std::span<const MLTBLENTRY> er, std::span<const MLTBLENTRY> loss)
{
    const std::hash<std::string_view> hashOf;
    const std::size_t hash = hashOf(BytesOf(er.last(1))) * 31 + hashOf(BytesOf(loss.last(1)));
    auto& group = groups[hash % groups.size()];
    const auto isSame = [&](const Judged& other) {
        return other.hash == hash && BytesOf(other.er) == BytesOf(er) && BytesOf(other.loss) == BytesOf(loss);
    };
    if (const auto known = std::ranges::find_if(group, isSame); known != group.end())
    {
        return known->verdict;
    }
    Judged& judged = group[judgedAnew++ % group.size()];
    judged.er.clear(); // the verdict is no longer theirs
    judged.verdict = FindVerdict(fitter, er, loss);
    judged.hash = hash;
    judged.er.assign(er.begin(), er.end());
    judged.loss.assign(loss.begin(), loss.end());
    return judged.verdict;
}
