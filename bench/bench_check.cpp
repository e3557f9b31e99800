// What `matlib check` does with a file of 10,000 laminates beside loading it: the laminates repeat the rows
// of a few, as those of many thicknesses do, or each has rows of its own, which takes a fit for each.
#include "bench/RatioTable.h"
#include "model/CFakeMaterialLib.h"
#include "reader/LoadMaterialFile.h"
#include "tools/matlib/check/CheckText.h"

#include <cmath>
#include <cstdio>

namespace
{
constexpr int laminates = 10'000;
constexpr int repetitions = 11;
constexpr double frequencies[] = {1e6, 3e6, 1e7, 3e7, 1e8, 3e8, 1e9, 2e9, 5e9, 1e10, 1.5e10, 2e10};

std::string FormatTable(const char* key, double first, double perDecade)
{
    std::string text = "(" + std::string(key) + " TEMPERATURE = 25 TABLE =\n";
    for (const double frequency : frequencies)
    {
        char row[64];
        std::snprintf(row, sizeof row, "  %gMHz %.6g\n", frequency / 1e6,
                      first + perDecade * std::log10(frequency / frequencies[0]));
        text += row;
    }
    return text + ")\n";
}

// A file of which the rows are those of `various` laminates.
std::string MakeFile(int various)
{
    std::string text = "{MAT_FILE}\n{VERSION=1.0}\n";
    for (int i = 0; i < laminates; ++i)
    {
        const double loss = 0.015 + 0.01 * (i % various) / various;
        const double er = 4.6 - 0.5 * (i % various) / various;
        text += "{DIELECTRIC\n(NAME = \"Laminate " + std::to_string(i) + "\")\n(TYPE = \"FR4\")\n" +
                "(VENDOR = \"Typical\")\n(THICKNESS = 100e-6)\n" + FormatTable("ER", er, er * loss * -1.5) +
                FormatTable("LOSSTANGENT", loss, loss / 50) + "}\n";
    }
    return text;
}

const std::string& FileOf(int various)
{
    static const std::string repeated = MakeFile(28);
    static const std::string different = MakeFile(laminates);
    return various < laminates ? repeated : different;
}

void Load(benchmark::State& state)
{
    const std::string& text = FileOf(static_cast<int>(state.range(0)));
    for (auto _ : state)
    {
        CFakeMaterialLib library;
        if (!LoadMaterialText(library, text, "bench.mat") || library.GetMaterialCount() != laminates)
        {
            state.SkipWithError("the file was not loaded");
        }
    }
}

void Check(benchmark::State& state)
{
    const std::string& text = FileOf(static_cast<int>(state.range(0)));
    for (auto _ : state)
    {
        const CheckedText checked = CheckText("bench.mat", text);
        if (checked.dielectrics != laminates || !checked.findings.empty())
        {
            state.SkipWithError("the file was not found good");
        }
    }
}

void Register(const char* name, void (*run)(benchmark::State&))
{
    benchmark::RegisterBenchmark(name, run)
        ->Arg(28)
        ->Arg(laminates)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime() // there are several threads
        ->Repetitions(repetitions);
}

std::string RunName(const char* what, int various)
{
    return std::string(what) + "/" + std::to_string(various) + "/repeats:" + std::to_string(repetitions) +
           "/real_time";
}
} // namespace

int main(int argc, char** argv)
{
    if (!InitializeInterleaved(argc, argv, {"--benchmark_min_time=0.05"}))
    {
        return 1;
    }
    Register("load", Load);
    Register("check", Check);
    RatioTable table;
    benchmark::RunSpecifiedBenchmarks(&table);
    std::printf("\n%d laminates of twice 12 rows, checked (ours) and loaded (peer), median of %d runs:\n",
                laminates, repetitions);
    table.PrintRatio("rows repeated", RunName("check", 28), RunName("load", 28));
    table.PrintRatio("rows all different", RunName("check", laminates), RunName("load", laminates));
    return 0;
}
