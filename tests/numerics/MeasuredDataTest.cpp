// What rounding and noise of the measured points do to the fit: a table of docs/numerics.md.
#include "tests/dielectric/ClosedForm.h"

#include <cstdio>
#include <functional>

namespace
{
struct Measurement
{
    const char* name;
    std::function<void(PlainLaminate&)> spoil;
    double mostErMean, mostLossMean; // per cent
};

void Round(PlainLaminate& laminate, double erStep, double lossStep)
{
    for (double& value : laminate.erValues)
    {
        value = std::nearbyint(value / erStep) * erStep;
    }
    for (double& value : laminate.lossValues)
    {
        value = std::nearbyint(value / lossStep) * lossStep;
    }
}

// Deviations that come and go, evenly over -1 ... 1.
double Deviation(std::size_t index, double phase)
{
    const double turns = static_cast<double>(index) * 0.618033988749895 + phase;
    return 2.0 * (turns - std::floor(turns)) - 1.0;
}

void Disturb(PlainLaminate& laminate, double erShare, double lossShare)
{
    for (std::size_t i = 0; i < laminate.erValues.size(); ++i)
    {
        laminate.erValues[i] *= 1.0 + erShare * Deviation(i, 0.1);
        laminate.lossValues[i] *= 1.0 + lossShare * Deviation(i, 0.4);
    }
}

void Measure(const Measurement& measurement)
{
    const ClosedForm truth;
    PlainLaminate laminate = truth.Sample(20);
    measurement.spoil(laminate);
    CWidebandDebyeModel model;
    ASSERT_TRUE(PrepareAndFit(model, laminate));
    const Deviations d(model, truth);
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
