#include "chart/TolerantRounding.h"

#include <cmath>

namespace
{
constexpr double tolerance = 1e-12;

// Keeps the sign of the value.
double GetFraction(double value)
{
    double whole = 0.0;
    return std::modf(value, &whole);
}
} // namespace

double FloorTolerant(double value)
{
    const double fraction = GetFraction(value);
    return fraction > 0.0 && 1.0 - fraction < tolerance ? std::ceil(value) : std::floor(value);
}

double CeilTolerant(double value)
{
    const double fraction = GetFraction(value);
    return fraction > 0.0 && fraction < tolerance ? std::floor(value) : std::ceil(value);
}
