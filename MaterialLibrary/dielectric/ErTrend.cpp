#include "dielectric/ErTrend.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr double equalFrequencies = 1e-6; // Relative spread of ln f below which a slope means nothing.
constexpr double highestFrequency = 1.0e11;

struct Sums
{
    double count, x, y, xy, xx;
};

ErTrend FitLine(const Sums& sum)
{
    const double det = sum.count * sum.xx - sum.x * sum.x;
    // All points at 1 Hz: every ln f is 0.
    if (sum.xx == 0.0 || det / sum.xx < equalFrequencies)
    {
        return {sum.y / sum.count, 0.0};
    }

    const ErTrend line{(sum.y * sum.xx - sum.xy * sum.x) / det, (sum.count * sum.xy - sum.x * sum.y) / det};
    const bool rejected = line.slope > 0.0 || line.offset <= 0.0 || line.At(highestFrequency) < 0.0;
    return rejected ? ErTrend{sum.y, 0.0} : line;
}
} // namespace

double ErTrend::At(double frequency) const
{
    return offset + slope * std::log(frequency);
}

std::optional<ErTrend> FindErTrend(std::span<const double> frequencies, std::span<const double> values)
{
    if (values.size() == 1)
    {
        return ErTrend{values.front(), 0.0};
    }

    Sums sum{static_cast<double>(values.size()), 0.0, 0.0, 0.0, 0.0};
    for (std::size_t i = 0; i < values.size(); ++i)
    {
        if (frequencies[i] <= 0.0 || values[i] <= 0.0)
        {
            return std::nullopt;
        }
        const double x = std::log(frequencies[i]);
        const double y = values[i];
        sum.x += x;
        sum.y += y;
        sum.xy += x * y;
        sum.xx += x * x;
    }
    // Rounding must not give a level table a slope: a rising one would turn it into the sum of its values.
    const bool level =
        std::all_of(values.begin(), values.end(), [&](double er) { return er == values.front(); });
    return level ? ErTrend{values.front(), 0.0} : FitLine(sum);
}
