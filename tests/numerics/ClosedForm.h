#pragma once

#include "dielectric/CWidebandDebyeModel.h"
#include "tests/dielectric/Laminates.h"

#include <cmath>

// A laminate whose truth is known: one wideband Debye term from f1 to f2 with amplitude deltaEps over epsInf,
// in closed form. It is sampled from 1 MHz to 10 GHz.
struct ClosedForm
{
    static constexpr double lowest = 1e6;
    static constexpr double highest = 1e10;

    const char* name = "standard loss, 10 kHz to 1 THz";
    double epsInf = 3.8, f1 = 1e4, f2 = 1e12, deltaEps = 1.0;

    static double FrequencyAt(double part) { return lowest * std::pow(highest / lowest, part); }

    double Er(double f) const
    {
        return epsInf + deltaEps / std::log(f2 / f1) * 0.5 * std::log((f2 * f2 + f * f) / (f1 * f1 + f * f));
    }
    double LossTangent(double f) const
    {
        return deltaEps / std::log(f2 / f1) * (std::atan(f / f1) - std::atan(f / f2)) / Er(f);
    }

    Laminate Sample(int points) const
    {
        Laminate laminate;
        for (int k = 0; k < points; ++k)
        {
            const double f = FrequencyAt(static_cast<double>(k) / (points - 1));
            laminate.er.push_back({f, Er(f)});
            laminate.loss.push_back({f, LossTangent(f)});
        }
        return laminate;
    }
};

// The model of a laminate that has one.
inline CWidebandDebyeModel FitTo(const Laminate& laminate)
{
    return CWidebandDebyeModel::Fit(PrepareData(laminate.er, laminate.loss)).value();
}

// Largest and mean relative deviations of a model over 401 frequencies of the sampled range, in per cent.
struct Deviations
{
    double er = 0.0, erMean = 0.0, loss = 0.0, lossMean = 0.0;

    Deviations(const CWidebandDebyeModel& model, const ClosedForm& truth)
    {
        constexpr int count = 401;
        for (int k = 0; k < count; ++k)
        {
            const double f = ClosedForm::FrequencyAt(static_cast<double>(k) / (count - 1));
            const std::complex<double> eps = model.Evaluate(f);
            const double erOff = 100.0 * std::fabs(eps.real() / truth.Er(f) - 1.0);
            const double lossOff = 100.0 * std::fabs(-eps.imag() / eps.real() / truth.LossTangent(f) - 1.0);
            er = std::fmax(er, erOff);
            loss = std::fmax(loss, lossOff);
            erMean += erOff / count;
            lossMean += lossOff / count;
        }
    }
};
