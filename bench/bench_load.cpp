// Loading materials from memory into a library: the material file's reader against JSON and XML parsers
// that fill the same library with the same materials.
#include "bench/MaterialTexts.h"
#include "bench/RatioTable.h"
#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "model/ITechnologyMapProvider.h"
#include "reader/LoadMaterialFile.h"

#include <cstdlib>
#include <ctime>
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
    TimeLoading(state, TextsOf(static_cast<int>(state.range(0))).materialFile, 0,
                [](CFakeMaterialLib& library, std::string& text)
                { Require(LoadMaterialText(library, text.data(), "bench.mat")); });
}

void LoadRapidJson(benchmark::State& state)
{
    TimeLoading(state, TextsOf(static_cast<int>(state.range(0))).json, 0,
                [](CFakeMaterialLib& library, std::string& text)
                {
                    rapidjson::Document document;
                    document.ParseInsitu(text.data());
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

BENCHMARK(LoadMaterials)->Arg(0)->Arg(1)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(LoadRapidJson)->Arg(0)->Arg(1)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(LoadSimdJson)->Arg(0)->Arg(1)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(LoadPugiXml)->Arg(0)->Arg(1)->UseManualTime()->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    RatioTable table;
    benchmark::RunSpecifiedBenchmarks(&table);
    std::printf("\nLoading from memory into a library (peer/ours above 1: ours is faster)\n");
    for (int i = 0; i < 2; ++i)
    {
        const std::string suffix = "/" + std::to_string(i) + "/manual_time";
        const std::string title = std::to_string(sizes[i].materials) + " materials of " +
                                  std::to_string(sizes[i].points) + " points, ";
        table.PrintRatio(title + "RapidJSON in-situ", "LoadMaterials" + suffix, "LoadRapidJson" + suffix);
        table.PrintRatio(title + "simdjson On-Demand", "LoadMaterials" + suffix, "LoadSimdJson" + suffix);
        table.PrintRatio(title + "pugixml in-place", "LoadMaterials" + suffix, "LoadPugiXml" + suffix);
    }
    return 0;
}
