// How good the fit is: prints the tables of docs/numerics.md, and writes its picture to numerics.svg in the
// build folder.
#include "chart/CSvgCanvas.h"
#include "chart/PaintChart.h"
#include "dielectric/CWidebandDebyeModel.h"
#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "reader/LoadMaterialFile.h"
#include "tests/chart/MakeChart.h"
#include "tests/dielectric/Laminates.h"

#include <cstdio>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <set>

namespace
{
using Function = std::function<double(double)>;

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

TEST(Numerics, ErrorTable)
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
        for (const auto& [points, erBound, lossBound] :
             {std::tuple(5, 1.1, 20.0), {20, 0.5, 4.5}, {50, 0.5, 4.5}})
        {
            const Deviations deviations = Compare(FitTo(dielectric.Sample(points)), dielectric);
            std::printf("| %s | %d ", dielectric.name, points);
            deviations.Print(3, 2);
            EXPECT_LT(deviations.erMost, erBound) << dielectric.name;
            EXPECT_LT(deviations.lossSum / deviations.count, lossBound) << dielectric.name;
        }
    }
}

// Deviations that come and go, evenly over -1 ... 1.
double Disturbance(std::size_t index, double phase)
{
    const double turns = static_cast<double>(index) * 0.618033988749895 + phase;
    return 2.0 * (turns - std::floor(turns)) - 1.0;
}

TEST(Numerics, MeasuredLikeData)
{
    const struct
    {
        const char* name;
        double erStep, lossStep;   // rounded to
        double erShare, lossShare; // off by
        double erBound, lossBound; // of the means, per cent
    } rows[] = {{"as computed", 0, 0, 0, 0, 0.2, 4.5},
                {"rounded to 0.01 and 0.0001", 0.01, 0.0001, 0, 0, 0.2, 4.5},
                {"rounded to 0.1 and 0.001", 0.1, 0.001, 0, 0, 1.0, 6.0},
                {"up to 1 % and 5 % off", 0, 0, 0.01, 0.05, 1.0, 8.0},
                {"up to 3 % and 20 % off", 0, 0, 0.03, 0.20, 3.0, 15.0}};
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
        const Deviations deviations = Compare(FitTo(laminate), ClosedForm());
        std::printf("| %s ", row.name);
        deviations.Print(2, 1);
        EXPECT_LT(deviations.erSum / deviations.count, row.erBound) << row.name;
        EXPECT_LT(deviations.lossSum / deviations.count, row.lossBound) << row.name;
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
    for (int i = 0; i < table.GetEntryCount(); ++i)
    {
        rows.push_back(table.GetEntry(i));
    }
    return rows;
}

// All that have several rows, in their order.
std::vector<ExampleLaminate> LoadExampleLaminates()
{
    CFakeMaterialLib library;
    LoadMaterialFile(library, ML_SOURCE_DIR "/examples/materials/DefaultMaterialD.mat");
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
TEST(Numerics, RowsThatWereLeftOut)
{
    struct
    {
        const char* name;
        double end; // Hz
        double erBound, lossBound;
        Deviations deviations;
    } ranges[] = {{"below 10 MHz", 1e7, 0.5, 30.0, {}},
                  {"10 MHz to 1 GHz", 1e9, 0.2, 12.0, {}},
                  {"from 1 GHz up", 1e12, 0.1, 3.0, {}}};
    for (const ExampleLaminate& laminate : LoadExampleLaminates())
    {
        const Laminate& tables = laminate.tables;
        ASSERT_EQ(tables.er.size(), tables.loss.size()) << laminate.name;
        for (std::size_t left = 1; left + 1 < tables.er.size(); ++left)
        {
            const double f = tables.er[left].frequency;
            ASSERT_EQ(f, tables.loss[left].frequency) << laminate.name;
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
        const int rows = range.deviations.count;
        ASSERT_GT(rows, 0);
        std::printf("| %s | %d ", range.name, rows);
        range.deviations.Print(2, 1);
        EXPECT_LT(range.deviations.erSum / rows, range.erBound) << range.name;
        EXPECT_LT(range.deviations.lossSum / rows, range.lossBound) << range.name;
    }
}

// The fitted example materials only ever lose energy, and their permittivity never rises.
TEST(Numerics, ExampleMaterialsArePassive)
{
    constexpr int count = 1000;
    std::printf("| material | C | passive at | Er at 1 kHz | Er at 1 THz | least loss tangent "
                "|\n|---|---:|---:|---:|---:|---:|\n");
    const std::vector<ExampleLaminate> laminates = LoadExampleLaminates();
    EXPECT_GE(laminates.size(), 25u);
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
            EXPECT_LE(eps.real(), last) << laminate.name << " at " << f;
            last = eps.real();
        }
        std::printf("| %s | %g | %d | %.3f | %.3f | %.5f |\n", laminate.name.c_str(), laminate.temperature,
                    passive, first, last, least);
        EXPECT_EQ(passive, count) << laminate.name;
    }
}

// From where the points begin to beyond their end.
CChartCurve DrawLossTangent(const char* name, Colour colour, const Function& function)
{
    constexpr int count = 401;
    std::vector<DataPoint> points;
    for (int k = 0; k < count; ++k)
    {
        const double f = FrequencyAt(k, count, 3e5, 1e11);
        points.push_back({f / 1e6, function(f)});
    }
    return MakeCurve(std::move(points), colour, name);
}

// The fit through 5 and through 20 points beside the truth.
TEST(Numerics, Picture)
{
    const auto fit = [](int points) -> Function
    {
        return [model = FitTo(ClosedForm().Sample(points))](double f)
        { return -model.Evaluate(f).imag() / model.Evaluate(f).real(); };
    };
    LaminateCurves laminate;
    laminate.curves = {
        DrawLossTangent("Closed form", 0xFFFFFF, [](double f) { return ClosedForm().LossTangent(f); }),
        DrawLossTangent("Fit through 20 points", 0x00FF00, fit(20)),
        DrawLossTangent("Fit through 5 points", 0x00A5FF, fit(5))};
    CChartModel model;
    laminate.AddTo(model, 1, true);
    model.SetAxisTitle(1, "Loss Tangent", "");
    for (std::size_t i = 1; i < laminate.curves.size(); ++i)
    {
        model.AddCurve(laminate.curves[i], 0, 1);
        model.GetLegend().push_back({laminate.curves[i].colour, laminate.curves[i].name});
    }
    model.SetScaleMode(true, false);
    const PixelRect client = {0, 0, 900, 420};
    CSvgCanvas canvas({client.right, client.bottom}, 12);
    LayOutChart(model, client, canvas);
    PaintChart({model, {}, {}, client}, canvas);
    std::ofstream(ML_BINARY_DIR "/numerics.svg") << canvas.GetDocument();
    EXPECT_NE(canvas.GetDocument().find("Fit through 5 points"), std::string::npos);
}
} // namespace
