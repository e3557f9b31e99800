// Whether the fitted example materials only ever lose energy, and their permittivity never rises: a table of
// docs/numerics.md.
#include "tests/numerics/ExampleLaminates.h"

#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>

namespace
{
constexpr int count = 1000;
constexpr double lowest = 1e3; // Hz
constexpr double highest = 1e12;

TEST(Numerics, ExampleMaterialsArePassive)
{
    std::printf("| material | C | passive at | Er at 1 kHz | Er at 1 THz | least loss tangent "
                "|\n|---|---:|---:|---:|---:|---:|\n");
    int checked = 0;
    for (const ExampleLaminate& laminate : LoadExampleLaminates())
    {
        const CWidebandDebyeModel model = FitTo(laminate.tables);
        double least = HUGE_VAL; // loss tangent where there are measured points
        double first = 0.0;
        double last = 0.0;
        int passive = 0;
        for (int k = 0; k < count; ++k)
        {
            const double f = lowest * std::pow(highest / lowest, static_cast<double>(k) / (count - 1));
            const double real = model.Evaluate(f).real();
            const double imaginary = model.Evaluate(f).imag();
            passive += real >= 1.0 && imaginary < 0.0 ? 1 : 0;
            least = f < 1e6 || f > 2e10 ? least : std::fmin(least, -imaginary / real);
            first = k == 0 ? real : first;
            EXPECT_LE(real, k == 0 ? real : last) << laminate.name << " at " << f;
            last = real;
        }
        ++checked;
        std::printf("| %s | %g | %d | %.3f | %.3f | %.5f |\n", laminate.name.c_str(), laminate.temperature,
                    passive, first, last, least);
        EXPECT_EQ(passive, count) << laminate.name;
    }
    EXPECT_GE(checked, 25);
}
} // namespace
