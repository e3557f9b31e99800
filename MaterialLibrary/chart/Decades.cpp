#include "chart/Decades.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace
{
constexpr std::array<double, 23> exactPowers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
}

double RaiseTen(double exponent)
{
    const double size = std::fabs(exponent);
    if (size < static_cast<double>(exactPowers.size()) && size == std::floor(size))
    {
        const double power = exactPowers[static_cast<std::size_t>(size)];
        return exponent < 0.0 ? 1.0 / power : power;
    }
    return std::pow(10.0, exponent);
}

double ScaleByDecades(double value, double decades)
{
    return decades < 0.0 ? value / RaiseTen(-decades) : value * RaiseTen(decades);
}
