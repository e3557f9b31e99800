// Values in bulk through the C interface: 1,001 frequencies of one laminate in one call, against a plain loop
// over the closed-form sum of the model that the call fits.

#include "MaterialLibrary/materials.h"
#include "bench/RatioTable.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdio>
#include <stdexcept>
#include <vector>

namespace
{
constexpr const char* path = ML_SOURCE_DIR "/examples/materials/DefaultMaterialD.mat";
constexpr std::size_t frequencyCount = 1001;
constexpr std::size_t materialCount = 64;

std::vector<double> MakeFrequencies()
{
    std::vector<double> frequencies;
    for (std::size_t i = 0; i < frequencyCount; ++i)
    {
        frequencies.push_back(1.01e6 * std::pow(4e4, static_cast<double>(i) / (frequencyCount - 1)));
    }
    return frequencies;
}
const std::vector<double> frequencies = MakeFrequencies();

const ml_library* Library()
{
    static const ml_library* const library = []
    {
        ml_library* opened = nullptr;
        if (ml_open_files(&path, 1, ML_OPEN_DEFAULT, &opened) != ML_OK || ml_count_materials(opened) == 0)
        {
            throw std::runtime_error("the examples are missing");
        }
        return opened;
    }();
    return library;
}

void Values(benchmark::State& state, int property, std::size_t materials)
{
    std::vector<double> values(frequencyCount);
    std::vector<std::uint8_t> status(frequencyCount);
    for (auto _ : state)
    {
        for (std::size_t i = 0; i < materials; ++i)
        {
            const ml_material* const material = ml_get_material(Library(), i % ml_count_materials(Library()));
            if (ml_values(material, property, 25.0, ML_AS_MEASURED, frequencies.data(), frequencyCount,
                          values.data(), status.data()) != ML_OK)
            {
                state.SkipWithError("no values");
            }
            benchmark::DoNotOptimize(values.data());
        }
    }
}

// What a caller would write who has the terms.
void ClosedForm(benchmark::State& state, int property)
{
    ml_model* model = nullptr;
    ml_model_info info{};
    info.struct_size = sizeof info;
    if (ml_make_model(ml_get_material(Library(), 0), 25.0, &model) != ML_OK ||
        ml_get_model_info(model, &info) != ML_OK)
    {
        throw std::runtime_error("the first example has no model");
    }
    std::vector<ml_term> terms(info.term_count);
    for (std::size_t i = 0; i < terms.size(); ++i)
    {
        (void)ml_get_term(model, i, &terms[i]);
    }
    ml_free_model(model);
    std::vector<double> values(frequencyCount);
    for (auto _ : state)
    {
        for (std::size_t i = 0; i < frequencyCount; ++i)
        {
            const double f = frequencies[i];
            double real = info.eps_inf;
            double imaginary = 0.0;
            for (const ml_term& term : terms)
            {
                const double g = term.delta_eps / std::log(term.f2 / term.f1);
                real += g * 0.5 * std::log((term.f2 * term.f2 + f * f) / (term.f1 * term.f1 + f * f));
                if (property == ML_LOSS_TANGENT)
                {
                    imaginary += g * (std::atan(f / term.f2) - std::atan(f / term.f1));
                }
            }
            values[i] = property == ML_ER ? real : -imaginary / real;
        }
        benchmark::DoNotOptimize(values.data());
    }
}
} // namespace

int main(int argc, char** argv)
{
    if (!InitializeInterleaved(argc, argv, {"--benchmark_repetitions=11", "--benchmark_min_time=0.02"}))
    {
        return 1;
    }
    const auto add = [](const char* name, auto function, auto... arguments)
    { benchmark::RegisterBenchmark(name, function, arguments...)->Unit(benchmark::kMicrosecond); };
    add("er", Values, ML_ER + 0, std::size_t{1});
    add("loss", Values, ML_LOSS_TANGENT + 0, std::size_t{1});
    add("er_closed_form", ClosedForm, ML_ER + 0);
    add("loss_closed_form", ClosedForm, ML_LOSS_TANGENT + 0);
    add("loss_of_64", Values, ML_LOSS_TANGENT + 0, materialCount);
    RatioTable table;
    benchmark::RunSpecifiedBenchmarks(&table);
    std::printf("\n1,001 frequencies in one call, against a loop over the terms\n");
    table.PrintRatio("Er", "er", "er_closed_form");
    table.PrintRatio("loss tangent", "loss", "loss_closed_form");
    std::printf("64 materials x 1,001 frequencies %.1f ms (aim: 50)\n", table.GetSeconds("loss_of_64") * 1e3);
    return 0;
}
