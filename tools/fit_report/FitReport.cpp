// How good the fit is: prints the tables of docs/numerics.md and writes its picture.
//   fit_report MATERIALS.mat PICTURE.svg
// Fails where the materials cannot be read or a fit gains energy.
#include "chart/CSvgCanvas.h"
#include "dielectric/CWidebandDebyeModel.h"
#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "reader/LoadMaterialFile.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdio>
#include <exception>
#include <fstream>
#include <functional>
#include <set>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{
using Function = std::function<double(double)>;

struct Laminate
{
    std::vector<MLTBLENTRY> er, loss;
};

CWidebandDebyeModel FitTo(const Laminate& laminate)
{
    return CWidebandDebyeModel::Fit(PrepareData(laminate.er, laminate.loss)).value();
}

// A frequency of `count` ones that are evenly spread over the logarithm.
double FrequencyAt(int index, int count, double lowest, double highest)
{
    return lowest * std::pow(highest / lowest, static_cast<double>(index) / (count - 1));
}

// A laminate whose truth is known: one wideband Debye term from f1 to f2 with amplitude deltaEps over epsInf,
// in closed form. It is sampled from 1 MHz to 10 GHz.
struct ClosedForm
{
    static constexpr double lowest = 1e6;
    static constexpr double highest = 1e10;

    const char* name = "standard loss, 10 kHz to 1 THz";
    double epsInf = 3.8, f1 = 1e4, f2 = 1e12, deltaEps = 1.0;

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
            const double f = FrequencyAt(k, points, lowest, highest);
            laminate.er.push_back({f, Er(f)});
            laminate.loss.push_back({f, LossTangent(f)});
        }
        return laminate;
    }
};

// Largest and mean relative deviations, in per cent.
struct Deviations
{
    int count = 0;
    double erMost = 0.0, erSum = 0.0, lossMost = 0.0, lossSum = 0.0;

    void Add(const CWidebandDebyeModel& model, double f, double er, double lossTangent)
    {
        const std::complex<double> eps = model.Evaluate(f);
        const double erOff = 100.0 * std::fabs(eps.real() / er - 1.0);
        const double lossOff = 100.0 * std::fabs(-eps.imag() / eps.real() / lossTangent - 1.0);
        ++count;
        erMost = std::fmax(erMost, erOff);
        erSum += erOff;
        lossMost = std::fmax(lossMost, lossOff);
        lossSum += lossOff;
    }

    // Ends a row of a table.
    void Print(int erDigits, int lossDigits) const
    {
        std::printf("| %.*f %% | %.*f %% | %.*f %% | %.*f %% |\n", erDigits, erMost, erDigits, erSum / count,
                    lossDigits, lossMost, lossDigits, lossSum / count);
    }
};

void PrintHead(const char* first, const char* others)
{
    std::printf(
        "| %s | Er max | Er mean | loss tangent max | loss tangent mean |\n|---|%s---:|---:|---:|---:|\n",
        first, others);
}

Deviations Compare(const CWidebandDebyeModel& model, const ClosedForm& truth)
{
    constexpr int count = 401;
    Deviations deviations;
    for (int k = 0; k < count; ++k)
    {
        const double f = FrequencyAt(k, count, ClosedForm::lowest, ClosedForm::highest);
        deviations.Add(model, f, truth.Er(f), truth.LossTangent(f));
    }
    return deviations;
}

void PrintClosedForms()
{
    const ClosedForm dielectrics[] = {
        {},
        {"low loss, 10 kHz to 1 THz", 3.4, 1e4, 1e12, 0.2},
        {"very low loss, 10 kHz to 1 THz", 2.9, 1e4, 1e12, 0.04},
        {"ends at the highest frequency, 10 kHz to 10 GHz", 3.8, 1e4, 1e10, 1.0},
        {"inside the sampled range, 10 MHz to 1 GHz", 3.8, 1e7, 1e9, 0.5},
    };
    PrintHead("dielectric | points", "---:|");
    for (const ClosedForm& dielectric : dielectrics)
    {
        for (const int points : {5, 20, 50})
        {
            std::printf("| %s | %d ", dielectric.name, points);
            Compare(FitTo(dielectric.Sample(points)), dielectric).Print(3, 2);
        }
    }
}

// Deviations that come and go, evenly over -1 ... 1.
double Disturbance(std::size_t index, double phase)
{
    const double turns = static_cast<double>(index) * 0.618033988749895 + phase;
    return 2.0 * (turns - std::floor(turns)) - 1.0;
}

void PrintMeasuredLikeData()
{
    const struct
    {
        const char* name;
        double erStep, lossStep;   // rounded to
        double erShare, lossShare; // off by
    } rows[] = {{"exact", 0, 0, 0, 0},
                {"rounded to 0.01 and 0.0001", 0.01, 0.0001, 0, 0},
                {"rounded to 0.1 and 0.001", 0.1, 0.001, 0, 0},
                {"errors up to 1 % and 5 %", 0, 0, 0.01, 0.05},
                {"errors up to 3 % and 20 %", 0, 0, 0.03, 0.20}};
    const auto spoil = [](double& value, double step, double off)
    { value = (step > 0.0 ? std::nearbyint(value / step) * step : value) * (1.0 + off); };
    PrintHead("Er and loss tangent", "");
    for (const auto& row : rows)
    {
        Laminate laminate = ClosedForm().Sample(20);
        for (std::size_t i = 0; i < laminate.er.size(); ++i)
        {
            spoil(laminate.er[i].value, row.erStep, row.erShare * Disturbance(i, 0.1));
            spoil(laminate.loss[i].value, row.lossStep, row.lossShare * Disturbance(i, 0.4));
        }
        std::printf("| %s ", row.name);
        Compare(FitTo(laminate), ClosedForm()).Print(2, 1);
    }
}

// A dielectric of the example materials at one of its temperatures.
struct ExampleLaminate
{
    std::string name;
    double temperature; // °C
    Laminate tables;
};

std::vector<MLTBLENTRY> CopyRows(const IMaterialTable& table)
{
    std::vector<MLTBLENTRY> rows;
    rows.reserve(static_cast<std::size_t>(table.GetEntryCount()));
    for (int i = 0; i < table.GetEntryCount(); ++i)
    {
        rows.push_back(table.GetEntry(i));
    }
    return rows;
}

// All that have several rows, in their order.
std::vector<ExampleLaminate> LoadLaminates(const char* path)
{
    CFakeMaterialLib library;
    if (!LoadMaterialFile(library, path))
    {
        throw std::runtime_error("no materials");
    }
    std::vector<ExampleLaminate> laminates;
    for (int i = 0; i < library.GetMaterialCount(); ++i)
    {
        IMaterial& material = *library.GetMaterial(i);
        std::set<double> temperatures;
        for (int k = 0; k < material.CountTables(MLTABLE_ALL); ++k)
        {
            temperatures.insert(material.GetTableAt(k)->GetTemperature());
        }
        for (const double temperature : temperatures)
        {
            Laminate tables{CopyRows(*material.GetTable(MLTABLE_ER, temperature)),
                            CopyRows(*material.GetTable(MLTABLE_LOSS_TANGENT, temperature))};
            if (tables.loss.size() > 1)
            {
                laminates.push_back({material.GetName(), temperature, std::move(tables)});
            }
        }
    }
    return laminates;
}

// How well the model foretells rows that it has not seen.
void PrintRowsThatWereLeftOut(std::span<const ExampleLaminate> laminates)
{
    struct
    {
        const char* name;
        double end; // Hz
        Deviations deviations;
    } ranges[] = {{"below 10 MHz", 1e7, {}}, {"10 MHz to 1 GHz", 1e9, {}}, {"from 1 GHz up", HUGE_VAL, {}}};
    for (const ExampleLaminate& laminate : laminates)
    {
        const Laminate& tables = laminate.tables;
        for (std::size_t left = 1; left + 1 < tables.er.size(); ++left)
        {
            const double f = tables.er[left].frequency;
            Laminate others = tables;
            others.er.erase(others.er.begin() + static_cast<std::ptrdiff_t>(left));
            others.loss.erase(others.loss.begin() + static_cast<std::ptrdiff_t>(left));
            const auto range = std::ranges::find_if(ranges, [f](const auto& r) { return f < r.end; });
            range->deviations.Add(FitTo(others), f, tables.er[left].value, tables.loss[left].value);
        }
    }
    PrintHead("frequency | rows", "---:|");
    for (const auto& range : ranges)
    {
        std::printf("| %s | %d ", range.name, range.deviations.count);
        range.deviations.Print(2, 1);
    }
}

// The fitted example materials only ever lose energy, and their permittivity never rises.
void PrintPassivity(std::span<const ExampleLaminate> laminates)
{
    constexpr int count = 1000;
    std::printf("| material | C | passive at | Er at 1 kHz | Er at 1 THz | least loss tangent "
                "|\n|---|---:|---:|---:|---:|---:|\n");
    for (const ExampleLaminate& laminate : laminates)
    {
        const CWidebandDebyeModel model = FitTo(laminate.tables);
        double least = HUGE_VAL; // loss tangent where there are measured points
        double first = 0.0;
        double last = HUGE_VAL;
        int passive = 0;
        for (int k = 0; k < count; ++k)
        {
            const double f = FrequencyAt(k, count, 1e3, 1e12);
            const std::complex<double> eps = model.Evaluate(f);
            passive += eps.real() >= 1.0 && eps.imag() < 0.0 ? 1 : 0;
            least = f < 1e6 || f > 2e10 ? least : std::fmin(least, -eps.imag() / eps.real());
            first = k == 0 ? eps.real() : first;
            if (eps.real() > last)
            {
                throw std::runtime_error(laminate.name + ": Er rises");
            }
            last = eps.real();
        }
        std::printf("| %s | %g | %d | %.3f | %.3f | %.5f |\n", laminate.name.c_str(), laminate.temperature,
                    passive, first, last, least);
    }
}

// From where the points begin to beyond their end.
CChartCurve DrawLossTangent(const char* name, Colour colour, const Function& function)
{
    constexpr int count = 401;
    CChartCurve curve;
    curve.colour = colour;
    curve.name = name;
    for (int k = 0; k < count; ++k)
    {
        const double f = FrequencyAt(k, count, 3e5, 1e11);
        curve.points.push_back({f / 1e6, function(f)});
    }
    curve.UpdateBounds();
    return curve;
}

// The fit through 5 and through 20 points beside the truth.
void DrawFits(const char* path)
{
    const auto fit = [](int points) -> Function
    {
        return [model = FitTo(ClosedForm().Sample(points))](double f)
        { return -model.Evaluate(f).imag() / model.Evaluate(f).real(); };
    };
    CChartCurve curves[] = {
        DrawLossTangent("Closed form", 0xFFFFFF, [](double f) { return ClosedForm().LossTangent(f); }),
        DrawLossTangent("Fit through 20 points", 0x00FF00, fit(20)),
        DrawLossTangent("Fit through 5 points", 0x00A5FF, fit(5))};
    CChartModel model;
    model.AddAxis(0, false);
    model.SetAxisTitle(0, "Frequency", "MHz");
    model.FindAxis(0)->lowerLimit = 1e-9;
    model.AddAxis(1, true);
    model.SetAxisTitle(1, "Loss Tangent", "");
    for (const std::int32_t axis : {0, 1})
    {
        model.ClearAutomaticPrefix(axis);
    }
    for (CChartCurve& curve : curves)
    {
        model.AddCurve(curve, 0, 1);
        model.GetLegend().push_back({curve.colour, curve.name});
    }
    model.SetScaleMode(true, false);
    std::ofstream picture(path);
    picture << DrawSvgPicture(model, {}, {900, 420}, 12);
    if (!picture.flush())
    {
        throw std::runtime_error(std::string("cannot write ") + path);
    }
}
} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
    {
        std::fputs("usage: fit_report MATERIALS.mat PICTURE.svg\n", stderr);
        return 2;
    }
    try
    {
        const std::vector<ExampleLaminate> laminates = LoadLaminates(argv[1]);
        PrintClosedForms();
        PrintMeasuredLikeData();
        PrintRowsThatWereLeftOut(laminates);
        PrintPassivity(laminates);
        DrawFits(argv[2]);
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "fit_report: %s\n", error.what());
        return 1;
    }
}
