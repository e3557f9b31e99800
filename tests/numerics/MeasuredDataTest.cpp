// What rounding and noise of the measured points do to the fit: a table of docs/numerics.md.
#include "tests/dielectric/FittedModel.h"
#include "tests/numerics/ClosedForm.h"

#include <cstdio>
#include <functional>
#include <gtest/gtest.h>

namespace
{
struct Measurement
{
    const char* name;
    std::function<void(PlainLaminate&)> spoil;
    double mostErMean, mostLossMean; // per cent
};

void RoundTo(std::vector<double>& values, double step)
{
    for (double& value : values)
    {
        value = std::nearbyint(value / step) * step;
    }
}

// Deviations that come and go, evenly over -1 ... 1.
void Disturb(std::vector<double>& values, double share, double phase)
{
    for (std::size_t i = 0; i < values.size(); ++i)
    {
        const double turns = static_cast<double>(i) * 0.618033988749895 + phase;
        values[i] *= 1.0 + share * (2.0 * (turns - std::floor(turns)) - 1.0);
    }
}

void Measure(const Measurement& measurement)
{
    PlainLaminate laminate = ClosedForm::Sample(20);
    measurement.spoil(laminate);
    CWidebandDebyeModel model;
    ASSERT_TRUE(PrepareAndFit(model, laminate));
    constexpr int count = 401;
    double erMost = 0.0;
    double erMean = 0.0;
    double lossMost = 0.0;
    double lossMean = 0.0;
    for (int k = 0; k < count; ++k)
    {
        const double f = ClosedForm::FrequencyAt(static_cast<double>(k) / (count - 1));
        double real = 0.0;
        double imaginary = 0.0;
        ASSERT_EQ(model.Evaluate(f, real, imaginary), 1);
        const double er = 100.0 * std::fabs(real / ClosedForm::Er(f) - 1.0);
        const double loss = 100.0 * std::fabs(-imaginary / real / ClosedForm::LossTangent(f) - 1.0);
        erMost = std::fmax(erMost, er);
        lossMost = std::fmax(lossMost, loss);
        erMean += er / count;
        lossMean += loss / count;
    }
    std::printf("| %s | %.2f %% | %.2f %% | %.1f %% | %.1f %% |\n", measurement.name, erMost, erMean,
                lossMost, lossMean);
    EXPECT_LT(erMean, measurement.mostErMean) << measurement.name;
    EXPECT_LT(lossMean, measurement.mostLossMean) << measurement.name;
}

TEST(Numerics, MeasuredLikeData)
{
    const Measurement measurements[] = {
        {"as computed", [](PlainLaminate&) {}, 0.2, 4.5},
        {"rounded to 0.01 and 0.0001",
         [](PlainLaminate& laminate)
         {
             RoundTo(laminate.erValues, 0.01);
             RoundTo(laminate.lossValues, 0.0001);
         },
         0.2, 4.5},
        {"rounded to 0.1 and 0.001",
         [](PlainLaminate& laminate)
         {
             RoundTo(laminate.erValues, 0.1);
             RoundTo(laminate.lossValues, 0.001);
         },
         1.0, 6.0},
        {"up to 1 % and 5 % off",
         [](PlainLaminate& laminate)
         {
             Disturb(laminate.erValues, 0.01, 0.1);
             Disturb(laminate.lossValues, 0.05, 0.4);
         },
         1.0, 8.0},
        {"up to 3 % and 20 % off",
         [](PlainLaminate& laminate)
         {
             Disturb(laminate.erValues, 0.03, 0.1);
             Disturb(laminate.lossValues, 0.20, 0.4);
         },
         3.0, 15.0},
    };
    std::printf("| Er and loss tangent | Er max | Er mean | loss tangent max | loss tangent mean |\n"
                "|---|---:|---:|---:|---:|\n");
    for (const Measurement& measurement : measurements)
    {
        Measure(measurement);
    }
}
} // namespace
