// What a question to a loaded library costs: values that are already there, and names.
#include "bench/RatioTable.h"
#include "dielectric/CWidebandDebyeModel.h"
#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

namespace
{
struct Sample
{
    Sample() { library.FillSampleLibrary(); }
    CFakeMaterialLib library;
};

void GetValueOfExactRow(benchmark::State& state)
{
    Sample sample;
    IMaterial& material = *sample.library.GetMaterial(0);
    double value = 0.0;
    for (auto _ : state)
    {
        material.GetValue(MLTABLE_ER, 5e7, &value, 25.0);
        benchmark::DoNotOptimize(value);
    }
}

// Frequencies between the rows, evenly over the logarithm.
std::vector<double> MakeFrequencies(std::int64_t count)
{
    std::vector<double> frequencies;
    for (std::int64_t i = 0; i < count; ++i)
    {
        frequencies.push_back(2e6 *
                              std::pow(2000.0, (static_cast<double>(i) + 0.5) / static_cast<double>(count)));
    }
    return frequencies;
}

double AskAll(IMaterial& material, const std::vector<double>& frequencies)
{
    double value = 0.0;
    double sum = 0.0;
    for (const double frequency : frequencies)
    {
        material.GetValue(MLTABLE_ER, frequency, &value, 25.0);
        sum += value;
    }
    return sum;
}

void GetValueAskedBefore(benchmark::State& state)
{
    Sample sample;
    std::vector<double> frequencies = MakeFrequencies(state.range(0));
    IMaterial& material = *sample.library.GetMaterial(0);
    AskAll(material, frequencies);
    std::shuffle(frequencies.begin(), frequencies.end(), std::mt19937_64(1));
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(AskAll(material, frequencies));
    }
}

void FindInMap(benchmark::State& state)
{
    std::vector<double> frequencies = MakeFrequencies(state.range(0));
    std::unordered_map<double, double> map;
    for (const double frequency : frequencies)
    {
        map[frequency] = frequency;
    }
    std::shuffle(frequencies.begin(), frequencies.end(), std::mt19937_64(1));
    for (auto _ : state)
    {
        double sum = 0.0;
        for (const double frequency : frequencies)
        {
            sum += map.find(frequency)->second;
        }
        benchmark::DoNotOptimize(sum);
    }
}

void GetValueOfNewFrequencies(benchmark::State& state)
{
    const std::vector<double> frequencies = MakeFrequencies(state.range(0));
    for (auto _ : state)
    {
        state.PauseTiming();
        auto sample = std::make_unique<Sample>();
        state.ResumeTiming();
        benchmark::DoNotOptimize(AskAll(*sample->library.GetMaterial(0), frequencies));
        state.PauseTiming();
        sample.reset();
        state.ResumeTiming();
    }
}

void FitOnceAndEvaluate(benchmark::State& state)
{
    Sample sample;
    const std::vector<double> frequencies = MakeFrequencies(state.range(0));
    const auto rowsOf = [&](int kind) {
        return dynamic_cast<CMaterialTable&>(*sample.library.GetMaterial(0)->GetTable(kind, 25.0))
            .GetEntries();
    };
    for (auto _ : state)
    {
        const auto model =
            CWidebandDebyeModel::Fit(PrepareData(rowsOf(MLTABLE_ER), rowsOf(MLTABLE_LOSS_TANGENT)));
        double sum = 0.0;
        for (const double frequency : frequencies)
        {
            sum += model->Evaluate(frequency).real();
        }
        benchmark::DoNotOptimize(sum);
    }
}

void FindAllNames(benchmark::State& state)
{
    std::vector<std::string> names;
    for (int i = 0; i < state.range(0); ++i)
    {
        names.push_back("Laminate " + std::to_string(i));
    }
    for (auto _ : state)
    {
        state.PauseTiming();
        auto library = std::make_unique<CFakeMaterialLib>();
        for (const std::string& name : names)
        {
            CMaterial& material = library->MakeMaterial();
            material.SetName(name.c_str());
            library->AddMaterial(material);
        }
        state.ResumeTiming();
        for (const std::string& name : names)
        {
            benchmark::DoNotOptimize(library->FindMaterial(name.c_str()));
        }
        state.PauseTiming();
        library.reset();
        state.ResumeTiming();
    }
}

constexpr std::array<std::int64_t, 6> keptCounts = {1, 10, 100, 1'000, 10'000, 100'000};

BENCHMARK(GetValueOfExactRow);
BENCHMARK(GetValueAskedBefore)->RangeMultiplier(10)->Range(keptCounts.front(), keptCounts.back());
BENCHMARK(FindInMap)->RangeMultiplier(10)->Range(keptCounts.front(), keptCounts.back());
BENCHMARK(GetValueOfNewFrequencies)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(FitOnceAndEvaluate)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(FindAllNames)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char** argv)
{
    if (!InitializeInterleaved(argc, argv, {"--benchmark_repetitions=11", "--benchmark_min_time=0.02"}))
    {
        return 1;
    }
    RatioTable table;
    benchmark::RunSpecifiedBenchmarks(&table);
    const auto secondsOf = [&](const char* benchmark, std::int64_t count)
    {
        std::string run = benchmark;
        run.append("/").append(std::to_string(count));
        return table.GetSeconds(run) / static_cast<double>(count);
    };
    std::printf("\nMedians of interleaved runs\n");
    for (const std::int64_t count : keptCounts)
    {
        const double ours = secondsOf("GetValueAskedBefore", count);
        const double peer = secondsOf("FindInMap", count);
        std::printf(
            "GetValue, %6d values asked before: %6.1f ns, std::unordered_map %6.1f ns, ours/peer %.2f\n",
            static_cast<int>(count), ours * 1e9, peer * 1e9, ours / peer);
    }
    for (const std::int64_t count : {10'000, 100'000})
    {
        const double ours = secondsOf("GetValueOfNewFrequencies", count);
        const double bare = secondsOf("FitOnceAndEvaluate", count);
        std::printf("GetValue, %6d new frequencies: %6.1f ns each, fitting once and evaluating %6.1f ns, "
                    "ratio %.2f\n",
                    static_cast<int>(count), ours * 1e9, bare * 1e9, ours / bare);
    }
    const double small = secondsOf("FindAllNames", 10'000);
    const double large = secondsOf("FindAllNames", 100'000);
    std::printf("FindMaterial over all names: %.1f ns a name of 10,000, %.1f ns of 100,000, ratio %.2f "
                "(linear: below 1.5)\n",
                small * 1e9, large * 1e9, large / small);
    return 0;
}
