// Loading materials from memory into a library: the material file's reader against JSON and XML parsers
// that fill the same library with the same materials. The JSON is minified, while the material file has its
// indents.
#include "bench/MaterialTexts.h"
#include "bench/RatioTable.h"
#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "model/ITechnologyMapProvider.h"
#include "reader/CTokenScanner.h"
#include "reader/LoadMaterialFile.h"

#include <cstdlib>
#include <ctime>
#include <malloc.h>
#include <pugixml.hpp>
#include <rapidjson/document.h>
#include <simdjson.h>

namespace
{
struct Size
{
    int materials;
    int points;
};
constexpr Size sizes[] = {{2000, 40}, {50'000, 5}};

const MaterialTexts& TextsOf(int index)
{
    static const MaterialTexts texts[] = {MakeMaterialTexts(sizes[0].materials, sizes[0].points),
                                          MakeMaterialTexts(sizes[1].materials, sizes[1].points)};
    return texts[index];
}

void Require(bool condition)
{
    if (!condition)
    {
        std::abort();
    }
}

// Times `load` on a fresh copy of the text and an empty library; making and freeing them is not timed.
template <class Load>
void TimeLoading(benchmark::State& state, const std::string& text, std::size_t padding, Load load)
{
    const Size size = sizes[state.range(0)];
    for (auto _ : state)
    {
        std::string copy = text;
        copy.reserve(copy.size() + padding);
        CFakeMaterialLib library;
        const std::clock_t start = std::clock();
        load(library, copy);
        state.SetIterationTime(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
        Require(library.GetMaterialCount() == size.materials);
        Require(library.GetMaterial(7)->GetTableAt(1)->GetEntryCount() == size.points);
    }
    state.counters["ns/material"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * size.materials,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void LoadMaterials(benchmark::State& state)
{
    TimeLoading(state, TextsOf(static_cast<int>(state.range(0))).materialFile, 1 + textPadding,
                [](CFakeMaterialLib& library, std::string& text)
                { Require(LoadMaterialText(library, std::move(text), "bench.mat")); });
}

// In place, with or without a check of the UTF-8.
template <unsigned flags>
void LoadRapidJson(benchmark::State& state)
{
    TimeLoading(state, TextsOf(static_cast<int>(state.range(0))).json, 0,
                [](CFakeMaterialLib& library, std::string& text)
                {
                    rapidjson::Document document;
                    document.ParseInsitu<flags>(text.data());
                    Require(!document.HasParseError());
                    for (const auto& each : document.GetArray())
                    {
                        CMaterial& material = library.MakeMaterial();
                        material.SetKind(MLMATERIAL_DIELECTRIC);
                        material.SetName(each["name"].GetString());
                        material.SetTypeName(each["type"].GetString());
                        material.SetIntAttribute(MLATTR_TECHNOLOGY, GetTechnologyMap().GetTechnologyId(
                                                                        each["technology"].GetString()));
                        material.SetVendor(each["vendor"].GetString());
                        material.SetAttribute(MLATTR_THICKNESS, each["thickness"].GetDouble());
                        for (const auto& table : each["tables"].GetArray())
                        {
                            IMaterialTableIO& target = *material.AddTable(table["kind"].GetInt());
                            target.SetTemperature(table["temperature"].GetDouble());
                            for (const auto& row : table["rows"].GetArray())
                            {
                                target.AddEntry({row[0].GetDouble(), row[1].GetDouble()});
                            }
                        }
                        library.AddMaterial(material);
                    }
                });
}

// The check of the UTF-8 is compiled into the library and cannot be left out.
void LoadSimdJson(benchmark::State& state)
{
    simdjson::ondemand::parser parser;
    std::string scratch;
    const auto text = [&scratch](simdjson::ondemand::value value)
    {
        scratch = std::string_view(value.get_string());
        return scratch.c_str();
    };
    TimeLoading(state, TextsOf(static_cast<int>(state.range(0))).json, simdjson::SIMDJSON_PADDING,
                [&](CFakeMaterialLib& library, std::string& json)
                {
                    auto document = parser.iterate(json.data(), json.size(), json.capacity());
                    for (simdjson::ondemand::object each : document.get_array())
                    {
                        CMaterial& material = library.MakeMaterial();
                        material.SetKind(MLMATERIAL_DIELECTRIC);
                        material.SetName(text(each["name"]));
                        material.SetTypeName(text(each["type"]));
                        material.SetIntAttribute(
                            MLATTR_TECHNOLOGY, GetTechnologyMap().GetTechnologyId(text(each["technology"])));
                        material.SetVendor(text(each["vendor"]));
                        material.SetAttribute(MLATTR_THICKNESS, each["thickness"].get_double());
                        for (simdjson::ondemand::object table : each["tables"].get_array())
                        {
                            IMaterialTableIO& target =
                                *material.AddTable(static_cast<int>(std::int64_t(table["kind"].get_int64())));
                            target.SetTemperature(table["temperature"].get_double());
                            for (simdjson::ondemand::array row : table["rows"].get_array())
                            {
                                auto cell = row.begin();
                                const double frequency = (*cell).get_double();
                                ++cell;
                                target.AddEntry({frequency, (*cell).get_double()});
                                ++cell;
                            }
                        }
                        library.AddMaterial(material);
                    }
                });
}

void LoadPugiXml(benchmark::State& state)
{
    TimeLoading(
        state, TextsOf(static_cast<int>(state.range(0))).xml, 0,
        [](CFakeMaterialLib& library, std::string& text)
        {
            pugi::xml_document document;
            Require(document.load_buffer_inplace(text.data(), text.size()));
            for (const pugi::xml_node each : document.child("library").children("material"))
            {
                CMaterial& material = library.MakeMaterial();
                material.SetKind(MLMATERIAL_DIELECTRIC);
                material.SetName(each.attribute("name").value());
                material.SetTypeName(each.attribute("type").value());
                material.SetIntAttribute(MLATTR_TECHNOLOGY, GetTechnologyMap().GetTechnologyId(
                                                                each.attribute("technology").value()));
                material.SetVendor(each.attribute("vendor").value());
                material.SetAttribute(MLATTR_THICKNESS, each.attribute("thickness").as_double());
                for (const pugi::xml_node table : each.children("table"))
                {
                    IMaterialTableIO& target = *material.AddTable(table.attribute("kind").as_int());
                    target.SetTemperature(table.attribute("temperature").as_double());
                    for (const pugi::xml_node row : table.children("r"))
                    {
                        target.AddEntry({row.attribute("f").as_double(), row.attribute("v").as_double()});
                    }
                }
                library.AddMaterial(material);
            }
        });
}

// Freed memory stays with the process, so that nobody pays for pages that are new.
void WarmHeap()
{
    mallopt(M_MMAP_THRESHOLD, 1 << 30);
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    std::free(std::memset(std::malloc(std::size_t{256} << 20), 1, std::size_t{256} << 20));
}

struct Contender
{
    const char* name;
    void (*load)(benchmark::State&);
};
constexpr const char* ours = "materials";
constexpr Contender contenders[] = {
    {ours, LoadMaterials},
    {"simdjson On-Demand", LoadSimdJson},
    {"RapidJSON in-situ", LoadRapidJson<rapidjson::kParseInsituFlag>},
    {"RapidJSON in-situ, UTF-8 checked",
     LoadRapidJson<rapidjson::kParseInsituFlag | rapidjson::kParseValidateEncodingFlag>},
    {"pugixml in-place", LoadPugiXml},
};
} // namespace

int main(int argc, char** argv)
{
    if (!InitializeInterleaved(argc, argv, {"--benchmark_repetitions=11", "--benchmark_min_time=0.05"}))
    {
        return 1;
    }
    for (const Contender& contender : contenders)
    {
        benchmark::RegisterBenchmark(contender.name, contender.load)
            ->DenseRange(0, std::size(sizes) - 1)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    }
    WarmHeap();
    RatioTable table;
    benchmark::RunSpecifiedBenchmarks(&table);
    std::printf("\nLoading from memory into a library (peer/ours above 1: ours is faster)\n");
    for (std::size_t i = 0; i < std::size(sizes); ++i)
    {
        const std::string suffix = "/" + std::to_string(i) + "/manual_time";
        for (const Contender& contender : std::span(contenders).subspan(1))
        {
            table.PrintRatio(std::to_string(sizes[i].materials) + " x " + std::to_string(sizes[i].points) +
                                 " points, " + contender.name,
                             ours + suffix, contender.name + suffix);
        }
    }
    return 0;
}
