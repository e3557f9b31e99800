// How far the fit is from the truth where the truth is known. Prints the table of docs/numerics.md.

#include "tests/numerics/ClosedForm.h"

#include <cstdio>
#include <gtest/gtest.h>

namespace
{
struct Bounds
{
    int points;
    double er, lossMean;
};
} // namespace

TEST(Numerics, ErrorTable)
{
    const ClosedForm dielectrics[] = {
        {},
        {"low loss, 10 kHz to 1 THz", 3.4, 1e4, 1e12, 0.2},
        {"very low loss, 10 kHz to 1 THz", 2.9, 1e4, 1e12, 0.04},
        {"ends at the highest frequency, 10 kHz to 10 GHz", 3.8, 1e4, 1e10, 1.0},
        {"inside the sampled range, 10 MHz to 1 GHz", 3.8, 1e7, 1e9, 0.5},
    };
    constexpr Bounds bounds[] = {{5, 1.1, 20.0}, {20, 0.5, 4.5}, {50, 0.5, 4.5}};
    std::printf("| dielectric | points | Er max | Er mean | loss tangent max | loss tangent mean |\n"
                "|---|---:|---:|---:|---:|---:|\n");
    for (const ClosedForm& dielectric : dielectrics)
    {
        for (const Bounds& bound : bounds)
        {
            const Deviations d(FitTo(dielectric.Sample(bound.points)), dielectric);
            std::printf("| %s | %d | %.3f %% | %.3f %% | %.2f %% | %.2f %% |\n", dielectric.name,
                        bound.points, d.er, d.erMean, d.loss, d.lossMean);
            EXPECT_LT(d.er, bound.er) << dielectric.name;
            EXPECT_LT(d.lossMean, bound.lossMean) << dielectric.name;
        }
    }
}
