// What a question to a loaded library costs: values that are already there, and names.
#include "bench/RatioTable.h"
#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"

#include <string>
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

void GetValueFromCache(benchmark::State& state)
{
    Sample sample;
    IMaterial& material = *sample.library.GetMaterial(0);
    double value = 0.0;
    for (auto _ : state)
    {
        material.GetValue(MLTABLE_ER, 2.5e9, &value, 25.0);
        benchmark::DoNotOptimize(value);
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

BENCHMARK(GetValueOfExactRow);
BENCHMARK(GetValueFromCache);
BENCHMARK(FindAllNames)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    RatioTable table;
    benchmark::RunSpecifiedBenchmarks(&table);
    const double small = table.GetSeconds("FindAllNames/10000") / 10'000;
    const double large = table.GetSeconds("FindAllNames/100000") / 100'000;
    std::printf("\nFindMaterial over all names: %.1f ns a name of 10,000, %.1f ns of 100,000, ratio %.2f "
                "(linear: below 1.5)\n",
                small * 1e9, large * 1e9, large / small);
    return 0;
}
