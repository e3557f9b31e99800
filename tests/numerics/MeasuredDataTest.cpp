// What rounding and noise of the measured points do to the fit: a table of docs/numerics.md.
#include "tests/numerics/ClosedForm.h"

#include <cstdio>
#include <functional>
#include <gtest/gtest.h>

namespace
{
struct Measurement
{
    const char* name;
    std::function<void(Laminate&)> spoil;
    double mostErMean, mostLossMean; // per cent
};

void Round(Laminate& laminate, double erStep, double lossStep)
{
    for (std::size_t i = 0; i < laminate.er.size(); ++i)
    {
        laminate.er[i].value = std::nearbyint(laminate.er[i].value / erStep) * erStep;
        laminate.loss[i].value = std::nearbyint(laminate.loss[i].value / lossStep) * lossStep;
    }
}

// Deviations that come and go, evenly over -1 ... 1.
double Deviation(std::size_t index, double phase)
{
    const double turns = static_cast<double>(index) * 0.618033988749895 + phase;
    return 2.0 * (turns - std::floor(turns)) - 1.0;
}

void Disturb(Laminate& laminate, double erShare, double lossShare)
{
    for (std::size_t i = 0; i < laminate.er.size(); ++i)
    {
        laminate.er[i].value *= 1.0 + erShare * Deviation(i, 0.1);
        laminate.loss[i].value *= 1.0 + lossShare * Deviation(i, 0.4);
    }
}

void Measure(const Measurement& measurement)
{
    const ClosedForm truth;
    Laminate laminate = truth.Sample(20);
    measurement.spoil(laminate);
    const Deviations d(FitTo(laminate), truth);
    std::printf("| %s | %.2f %% | %.2f %% | %.1f %% | %.1f %% |\n", measurement.name, d.er, d.erMean, d.loss,
                d.lossMean);
    EXPECT_LT(d.erMean, measurement.mostErMean) << measurement.name;
    EXPECT_LT(d.lossMean, measurement.mostLossMean) << measurement.name;
}

TEST(Numerics, MeasuredLikeData)
{
    const Measurement measurements[] = {
        {"as computed", [](auto&) {}, 0.2, 4.5},
        {"rounded to 0.01 and 0.0001", [](auto& table) { Round(table, 0.01, 0.0001); }, 0.2, 4.5},
        {"rounded to 0.1 and 0.001", [](auto& table) { Round(table, 0.1, 0.001); }, 1.0, 6.0},
        {"up to 1 % and 5 % off", [](auto& table) { Disturb(table, 0.01, 0.05); }, 1.0, 8.0},
        {"up to 3 % and 20 % off", [](auto& table) { Disturb(table, 0.03, 0.20); }, 3.0, 15.0},
    };
    std::printf("| Er and loss tangent | Er max | Er mean | loss tangent max | loss tangent mean |\n"
                "|---|---:|---:|---:|---:|\n");
    for (const Measurement& measurement : measurements)
    {
        Measure(measurement);
    }
}
} // namespace
