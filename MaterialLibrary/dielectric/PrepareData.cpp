#include "dielectric/PrepareData.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace
{
constexpr double lowestLossFrequency = 10000.0;
constexpr double highestFrequency = 1.0e11;
constexpr double equalFrequencies = 1e-6; // Relative spread of ln f below which a slope means nothing.

// Er over frequency as a straight line over the logarithm.
struct ErTrend
{
    double offset = 0.0;
    double slope = 0.0;

    double At(double logarithm) const { return offset + slope * logarithm; }
};

struct Sums
{
    double count, x, y, xy, xx;
};

// Least squares; the mean where all frequencies are practically equal. A line that rises with frequency or is
// not positive everywhere up to 100 GHz is replaced by the SUM of the Er values, on which stored results of
// hosts depend.
ErTrend FitLine(const Sums& sum)
{
    const double det = sum.count * sum.xx - sum.x * sum.x;
    // All points at 1 Hz: every ln f is 0.
    if (sum.xx == 0.0 || det / sum.xx < equalFrequencies)
    {
        return {sum.y / sum.count, 0.0};
    }

    const ErTrend line{(sum.y * sum.xx - sum.xy * sum.x) / det, (sum.count * sum.xy - sum.x * sum.y) / det};
    const bool rejected = line.slope > 0.0 || line.offset <= 0.0 || line.At(std::log(highestFrequency)) < 0.0;
    return rejected ? ErTrend{sum.y, 0.0} : line;
}

// Nothing where one of several rows has a frequency or an Er that is not above 0. The logarithms are those of
// the frequencies of several rows.
std::optional<ErTrend> FindErTrend(std::span<const MLTBLENTRY> rows, std::vector<double>& logarithms)
{
    const double first = rows.front().value;
    if (rows.size() == 1)
    {
        return ErTrend{first, 0.0};
    }

    logarithms.reserve(rows.size());
    Sums sum{static_cast<double>(rows.size()), 0.0, 0.0, 0.0, 0.0};
    bool level = true;
    for (const MLTBLENTRY& row : rows)
    {
        if (row.frequency <= 0.0 || row.value <= 0.0)
        {
            return std::nullopt;
        }
        const double x = logarithms.emplace_back(std::log(row.frequency));
        sum.x += x;
        sum.y += row.value;
        sum.xy += x * row.value;
        sum.xx += x * x;
        level = level && row.value == first;
    }
    // Rounding must not give a level table a slope: a rising one would turn it into the sum of its values.
    return level ? ErTrend{first, 0.0} : FitLine(sum);
}
} // namespace

PreparedData PrepareData(std::span<const MLTBLENTRY> er, std::span<const MLTBLENTRY> loss)
{
    PreparedData data;
    if (er.empty() || loss.size() < 2)
    {
        return data;
    }
    std::vector<double> logarithms;
    const std::optional<ErTrend> trend = FindErTrend(er, logarithms);
    if (!trend)
    {
        data.errorText = "Wrong input data: negative or zero frequency or Dk";
        return data;
    }
    // Only leading rows are passed over: a later one below the limit counts.
    const auto begin = std::find_if(
        loss.begin(), loss.end(), [](const MLTBLENTRY& row) { return row.frequency >= lowestLossFrequency; });
    if (loss.end() - begin < 2)
    {
        data.errorText = "Too few data points given for Df above 10 KHz";
        return data;
    }
    const std::span used(begin, loss.end());
    for (std::vector<double>* const part : {&data.frequencies, &data.realParts, &data.imaginaryParts})
    {
        part->reserve(used.size());
    }
    for (const MLTBLENTRY& row : used)
    {
        // Both tables mostly have the same frequencies.
        const auto i = static_cast<std::size_t>(&row - loss.data());
        const bool isKnown = i < logarithms.size() && er[i].frequency == row.frequency;
        const double permittivity = trend->At(isKnown ? logarithms[i] : std::log(row.frequency));
        // The loss tangent serves as the loss angle itself; for the small angles of laminates they agree.
        data.frequencies.push_back(row.frequency);
        data.realParts.push_back(permittivity * std::cos(row.value));
        data.imaginaryParts.push_back(-permittivity * std::sin(row.value));
    }
    return data;
}
