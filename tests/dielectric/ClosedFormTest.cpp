// How far the fit is from the truth where the truth is known: one wideband Debye term in closed form, sampled
// from 1 MHz to 10 GHz. Prints the table of docs/numerics.md.

#include "tests/dielectric/FittedModel.h"

#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>

namespace
{
constexpr double lowest = 1e6;
constexpr double highest = 1e10;

double FrequencyAt(double part)
{
    return lowest * std::pow(highest / lowest, part);
}

// A term from f1 to f2 with amplitude deltaEps over epsInf.
struct Dielectric
{
    const char* name;
    double epsInf, f1, f2, deltaEps;

    double Er(double f) const
    {
        return epsInf + deltaEps / std::log(f2 / f1) * 0.5 * std::log((f2 * f2 + f * f) / (f1 * f1 + f * f));
    }
    double LossTangent(double f) const
    {
        return deltaEps / std::log(f2 / f1) * (std::atan(f / f1) - std::atan(f / f2)) / Er(f);
    }
};

struct Bounds
{
    int points;
    double er, lossMean;
};

PlainLaminate Sample(const Dielectric& dielectric, int points)
{
    PlainLaminate laminate;
    for (int k = 0; k < points; ++k)
    {
        const double f = FrequencyAt(static_cast<double>(k) / (points - 1));
        laminate.erFrequencies.push_back(f);
        laminate.erValues.push_back(dielectric.Er(f));
        laminate.lossFrequencies.push_back(f);
        laminate.lossValues.push_back(dielectric.LossTangent(f));
    }
    return laminate;
}

// Largest and mean relative deviations over 401 frequencies of the sampled range, in per cent.
struct Deviations
{
    double er = 0.0, erMean = 0.0, loss = 0.0, lossMean = 0.0;
};

Deviations Compare(const CWidebandDebyeModel& model, const Dielectric& dielectric)
{
    constexpr int count = 401;
    Deviations d;
    for (int k = 0; k < count; ++k)
    {
        const double f = FrequencyAt(static_cast<double>(k) / (count - 1));
        double real = 0.0;
        double imaginary = 0.0;
        EXPECT_EQ(model.Evaluate(f, real, imaginary), 1);
        const double er = 100.0 * std::fabs(real / dielectric.Er(f) - 1.0);
        const double loss = 100.0 * std::fabs(-imaginary / real / dielectric.LossTangent(f) - 1.0);
        d.er = std::fmax(d.er, er);
        d.loss = std::fmax(d.loss, loss);
        d.erMean += er / count;
        d.lossMean += loss / count;
    }
    return d;
}
} // namespace

TEST(ClosedForm, ErrorTable)
{
    const Dielectric dielectrics[] = {
        {"standard loss, 10 kHz to 1 THz", 3.8, 1e4, 1e12, 1.0},
        {"low loss, 10 kHz to 1 THz", 3.4, 1e4, 1e12, 0.2},
        {"very low loss, 10 kHz to 1 THz", 2.9, 1e4, 1e12, 0.04},
        {"ends at the highest frequency, 10 kHz to 10 GHz", 3.8, 1e4, 1e10, 1.0},
        {"inside the sampled range, 10 MHz to 1 GHz", 3.8, 1e7, 1e9, 0.5},
    };
    constexpr Bounds bounds[] = {{5, 1.1, 20.0}, {20, 0.5, 4.5}, {50, 0.5, 4.5}};
    std::printf("| dielectric | points | Er max | Er mean | loss tangent max | loss tangent mean |\n"
                "|---|---:|---:|---:|---:|---:|\n");
    for (const Dielectric& dielectric : dielectrics)
    {
        for (const Bounds& bound : bounds)
        {
            CWidebandDebyeModel model;
            ASSERT_TRUE(PrepareAndFit(model, Sample(dielectric, bound.points)));
            const Deviations d = Compare(model, dielectric);
            std::printf("| %s | %d | %.3f %% | %.3f %% | %.2f %% | %.2f %% |\n", dielectric.name,
                        bound.points, d.er, d.erMean, d.loss, d.lossMean);
            EXPECT_LT(d.er, bound.er) << dielectric.name;
            EXPECT_LT(d.lossMean, bound.lossMean) << dielectric.name;
        }
    }
}
