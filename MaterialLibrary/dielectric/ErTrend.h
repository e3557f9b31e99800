#pragma once

#include <optional>
#include <span>

// Er over frequency as a straight line over the logarithm: Er(f) = offset + slope * ln f, f in hertz.
struct ErTrend
{
    double offset = 0.0;
    double slope = 0.0;

    [[nodiscard]] double At(double frequency) const;
};

// The trend of an Er table with at least one point. One point: that constant, whatever its sign. A level
// table: its value. All frequencies practically equal: the mean. Otherwise least squares; a trend that rises
// with frequency or is not positive everywhere up to 100 GHz is replaced by the SUM of the Er values, on
// which stored results of hosts depend. Nothing where there are two or more points and one has a frequency
// or an Er that is not above 0.
[[nodiscard]] std::optional<ErTrend> FindErTrend(std::span<const double> frequencies,
                                                 std::span<const double> values);
