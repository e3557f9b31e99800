#pragma once

namespace chart_detail
{
constexpr double HalveToTheLast(double value)
{
    for (int i = 0; i < 10'000 && value / 2.0 > 0.0; ++i)
    {
        value /= 2.0;
    }
    return value;
}
} // namespace chart_detail

// The smallest double above 0 that halving 1 arrives at: as the lower limit of an axis that may become
// logarithmic it leaves out no value that such an axis can show.
inline constexpr double smallestPositiveDouble = chart_detail::HalveToTheLast(1.0);
