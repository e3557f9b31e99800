#include "chart/UnitPrefix.h"

#include "chart/CAxis.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace
{
constexpr std::array<UnitPrefix, 14> prefixes = {{{"f", 1e-15},
                                                  {"p", 1e-12},
                                                  {"n", 1e-9},
                                                  {"u", 1e-6},
                                                  {"m", 1e-3},
                                                  {"", 1.0},
                                                  {"k", 1e3},
                                                  {"M", 1e6},
                                                  {"G", 1e9},
                                                  {"T", 1e12},
                                                  {"P", 1e15},
                                                  {"E", 1e18},
                                                  {"Z", 1e21},
                                                  {"Y", 1e24}}};
constexpr std::size_t noPrefix = 5;
} // namespace

const UnitPrefix& GetUnitPrefix(const CAxis& axis, double value)
{
    if (!axis.automaticPrefix || value == 0.0)
    {
        return prefixes[noPrefix];
    }
    std::size_t row = 0;
    while (row + 1 < prefixes.size() && std::fabs(value) > prefixes[row + 1].factor)
    {
        ++row;
    }
    return prefixes[row];
}
