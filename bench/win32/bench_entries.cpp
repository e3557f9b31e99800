// What each entry of the module costs in time: the table of docs/host-guide.md.
#include "tests/TemporaryFile.h"
#include "tests/win32/CModule.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace
{
// The median of nine runs of `count` calls, in microseconds a call.
template <class Call>
double Measure(int count, const Call& call)
{
    std::vector<double> runs;
    for (int run = 0; run < 9; ++run)
    {
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < count; ++i)
        {
            call(run * count + i);
        }
        const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
        runs.push_back(taken.count() / count);
    }
    std::ranges::nth_element(runs, runs.begin() + 4);
    return runs[4];
}

template <class Call>
void Report(const char* entry, int count, const Call& call)
{
    const double taken = Measure(count, call);
    std::printf("| %s | %.3g us |\n", entry, taken);
}

std::string MakeManyLaminates(int count)
{
    std::string text = "{MAT_FILE}\n{VERSION=1.0}\n";
    for (int i = 0; i < count; ++i)
    {
        text += "{DIELECTRIC (NAME = \"Laminate " + std::to_string(i) + "\") (ER TABLE = 1MHz 4.6" +
                std::to_string(i % 10) + // no two neighbours alike: each needs a fit
                " 100MHz 4.4 10GHz 4.2) (LOSSTANGENT TABLE = 1MHz 0.01 1GHz 0.02)}\n";
    }
    return text;
}
} // namespace

int main()
{
    const CModule module(CModule::GetBuiltPath());
    const TemporaryFile file("many.mat", MakeManyLaminates(20'000));
    const std::string& many = file.GetPath();
    const std::string examples = ML_SOURCE_DIR "/examples/materials/DefaultMaterialD.mat";
    Report("CreateMaterialLibrary, null, and FreeMaterialLibrary", 100,
           [&](int) { static_cast<void>(module.Create(nullptr)); });
    Report("the same with DefaultMaterialD.mat, 46 materials", 10,
           [&](int) { static_cast<void>(module.Create(examples.c_str())); });
    Report("the same with 20,000 materials, 2.2 MB", 1,
           [&](int) { static_cast<void>(module.Create(many.c_str())); });

    std::vector<CModule::Library> fresh;
    for (int i = 0; i < 9; ++i)
    {
        fresh.push_back(module.Create(many.c_str()));
    }
    const CModule::Library library = module.Create(many.c_str());
    if (library->GetMaterialCount() != 20'000)
    {
        std::fprintf(stderr, "bench_entries: the materials were not loaded\n");
        return EXIT_FAILURE;
    }
    volatile const void* found = nullptr;
    Report("GetMaterial", 10'000, [&](int i) { found = library->GetMaterial(i % 20'000); });
    Report("FindMaterial of 20,000, the first call", 1,
           [&](int i) { found = fresh.at(static_cast<std::size_t>(i))->FindMaterial("Laminate 0"); });
    Report("FindMaterial, later calls", 10'000, [&](int) { found = library->FindMaterial("Laminate 777"); });
    IMaterial& material = *library->GetMaterial(777);
    Report("GetName", 10'000, [&](int) { found = material.GetName(); });
    Report("GetTable", 10'000, [&](int) { found = material.GetTable(MLTABLE_ER, 25.0); });
    double value = 0.0;
    Report("GetValue at a row", 10'000, [&](int) { material.GetValue(MLTABLE_ER, 1e8, &value, 25.0); });
    Report("GetValue of another material: a fit", 100,
           [&](int i) { library->GetMaterial(1000 + i)->GetValue(MLTABLE_ER, 2e9, &value, 25.0); });
    Report("GetValue at a new frequency of the same material", 100,
           [&](int i) { material.GetValue(MLTABLE_ER, 2e9 + i, &value, 25.0); });
    Report("GetValue at one asked before", 10'000,
           [&](int) { material.GetValue(MLTABLE_ER, 2e9 + 850, &value, 25.0); });
    return EXIT_SUCCESS;
}
