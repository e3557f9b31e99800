// What a material grid of 100,000 rows costs: filling against formatting the same cells with snprintf,
// sorting against std::sort of the same texts, and what changes of the unit and of the assigned material
// take.
#include "bench/RatioTable.h"
#include "chooser/CMaterialRows.h"
#include "chooser/ISelectionChangeNotifier.h"
#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "model/IMaterialTableIO.h"
#include "shared/Misc_String/CompareNatural.h"

#include <algorithm>

namespace
{
class CAssigner final : public ISelectionChangeNotifier
{
public:
    void OnSelectionChange() override {}
    IMaterial* GetAssignedMaterial() override { return assigned; }

    IMaterial* assigned = nullptr;
};

// Dielectrics with names in no order, the same number of temperatures each.
class CBenchGrid
{
public:
    CBenchGrid(int materials, int temperatures)
    {
        constexpr int prime = 999983;
        for (int i = 0; i < materials; ++i)
        {
            CMaterial& material = library.MakeMaterial();
            material.SetKind(MLMATERIAL_DIELECTRIC);
            material.SetName(("Laminate " + std::to_string(i * 7919LL % prime)).c_str());
            material.SetTypeName(i % 3 == 0 ? "FR4" : "Polyimide");
            material.SetVendor("Vendor of laminates");
            material.SetComment("1 oz, 2116 glass");
            material.SetIntAttribute(MLATTR_TECHNOLOGY, i % 3);
            material.SetAttribute(MLATTR_THICKNESS, 1e-6 * (50 + i % 400));
            for (int t = 0; t < temperatures; ++t)
            {
                AddTable(material, MLTABLE_ER, 25.0 + 5 * t, 4.0 + 1e-4 * (i % 1000));
                AddTable(material, MLTABLE_LOSS_TANGENT, 25.0 + 5 * t, 0.02 + 1e-5 * (i % 100));
            }
            library.AddMaterial(material);
        }
        rows.SetNotifier(&assigner);
        rows.SetUp(MLMATERIAL_DIELECTRIC);
    }

    CFakeMaterialLib library;
    CGridModel model;
    CAssigner assigner;
    CMaterialRows rows{model, library};

private:
    static void AddTable(CMaterial& material, int kind, double temperature, double value)
    {
        IMaterialTableIO* const table = material.AddTable(kind);
        table->SetTemperature(temperature);
        table->AddEntry({1e9, value});
    }
};

// What the peer formats: the texts and numbers of all visible cells, already collected.
struct PeerCell
{
    std::string text;
    double number = 0.0;
    bool isNumber = false;
};

std::vector<PeerCell> CollectCells(const CGridModel& model)
{
    std::vector<PeerCell> cells;
    for (int row = 1; row <= model.GetRowCount(); ++row)
    {
        for (int column = 1; column <= model.GetColumnCount(); ++column)
        {
            if (!model.IsColumnHidden(column))
            {
                const std::string text = model.GetText(row, column);
                const bool isNumber = model.GetValueType(column) == GridValueType::Number;
                cells.push_back({text, isNumber ? std::stod(text) : 0.0, isNumber});
            }
        }
    }
    return cells;
}

void Refill(benchmark::State& state)
{
    CBenchGrid grid(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto _ : state)
    {
        grid.rows.Refill();
    }
}

void RefillPeer(benchmark::State& state)
{
    const CBenchGrid grid(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    const std::vector<PeerCell> cells = CollectCells(grid.model);
    for (auto _ : state)
    {
        std::vector<std::string> texts;
        texts.reserve(cells.size());
        for (const PeerCell& cell : cells)
        {
            char text[64];
            const int length = cell.isNumber ? std::snprintf(text, sizeof text, "%.13g", cell.number)
                                             : std::snprintf(text, sizeof text, "%s", cell.text.c_str());
            texts.emplace_back(text, static_cast<std::size_t>(length));
        }
        benchmark::DoNotOptimize(texts.data());
    }
}

void Sort(benchmark::State& state)
{
    CBenchGrid grid(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    const int column = grid.model.FindColumn(COLUMNKEY_MATERIAL);
    for (auto _ : state)
    {
        state.PauseTiming();
        grid.rows.SetUp(MLMATERIAL_DIELECTRIC);
        state.ResumeTiming();
        grid.rows.ClickHeader(column);
    }
}

void SortPeer(benchmark::State& state)
{
    const CBenchGrid grid(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    const int column = grid.model.FindColumn(COLUMNKEY_MATERIAL);
    std::vector<const char*> unsorted;
    for (int row = 1; row <= grid.model.GetRowCount(); ++row)
    {
        unsorted.push_back(grid.model.GetText(row, column));
    }
    for (auto _ : state)
    {
        state.PauseTiming();
        std::vector<const char*> texts = unsorted;
        state.ResumeTiming();
        std::sort(texts.begin(), texts.end(),
                  [](const char* a, const char* b) { return CompareNatural(a, b) < 0; });
    }
}

void ChangeUnits(benchmark::State& state)
{
    CBenchGrid grid(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    unsigned units = MLUNITS_ENGLISH;
    for (auto _ : state)
    {
        units = units == MLUNITS_ENGLISH ? MLUNITS_METRIC : MLUNITS_ENGLISH;
        grid.rows.SetUnits(units);
    }
}

void RefreshMarker(benchmark::State& state)
{
    CBenchGrid grid(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto _ : state)
    {
        grid.assigner.assigned = grid.library.GetMaterial(grid.assigner.assigned == nullptr ? 5 : 7);
        grid.rows.RefreshAssignedMarker();
    }
}

void UseLibraries(benchmark::internal::Benchmark* run)
{
    run->Args({10'000, 1})->Args({10'000, 10})->Args({100'000, 1})->Unit(benchmark::kMillisecond);
}
BENCHMARK(Refill)->Apply(UseLibraries);
BENCHMARK(RefillPeer)->Apply(UseLibraries);
BENCHMARK(Sort)->Apply(UseLibraries);
BENCHMARK(SortPeer)->Apply(UseLibraries);
BENCHMARK(ChangeUnits)->Apply(UseLibraries);
BENCHMARK(RefreshMarker)->Apply(UseLibraries);

// Ours against the peer's time for both libraries of 100,000 rows.
void PrintAgainstPeer(const RatioTable& table, const char* title, const std::string& name, double limit)
{
    for (const char* const rows : {"/10000/10", "/100000/1"})
    {
        const double ours = table.GetSeconds(name + rows);
        const double peer = table.GetSeconds(name + "Peer" + rows);
        std::printf("%-44s %-10s ours %7.1f ms, peer %7.1f ms, ours/peer %.2f (at most %.1f)\n", title, rows,
                    ours * 1e3, peer * 1e3, ours / peer, limit);
    }
}

void PrintGrowth(const RatioTable& table, const char* title, const std::string& name,
                 const char* expected = "linear: about 10")
{
    const double few = table.GetSeconds(name + "/10000/1");
    const double many = table.GetSeconds(name + "/100000/1");
    std::printf("%-44s 10,000 rows %7.2f ms, 100,000 rows %7.2f ms, ratio %.1f (%s)\n", title, few * 1e3,
                many * 1e3, many / few, expected);
}
} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    RatioTable table;
    benchmark::RunSpecifiedBenchmarks(&table);
    std::printf("\nRows are named by materials/temperatures of each.\n");
    PrintAgainstPeer(table, "Refill, against snprintf of the same cells", "Refill", 2.0);
    PrintAgainstPeer(table, "Sort by name, against std::sort of the texts", "Sort", 1.3);
    PrintGrowth(table, "Refill", "Refill");
    PrintGrowth(table, "Sort by name", "Sort", "n log n: about 13");
    PrintGrowth(table, "Change of the unit", "ChangeUnits");
    PrintGrowth(table, "Refresh of the marker", "RefreshMarker");
    return 0;
}
