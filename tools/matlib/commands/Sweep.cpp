#include "MaterialLibrary/IMaterial.h"
#include "tools/matlib/CBulkMaterial.h"
#include "tools/matlib/CFailure.h"
#include "tools/matlib/CMaterialSet.h"
#include "tools/matlib/Console.h"
#include "tools/matlib/FrequencySweep.h"
#include "tools/matlib/Json.h"
#include "tools/matlib/Origin.h"
#include "tools/matlib/PropertyValue.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/commands/Commands.h"

#include <algorithm>
#include <cmath>

namespace
{
// One material at one temperature.
struct Series
{
    IMaterial* material;
    double temperature;
    std::vector<BulkValues> properties; // in the order of PropertiesOf
};

const SweptProperties& GetPropertiesOf(const Series& series)
{
    return PropertiesOf(*series.material);
}

// The value, or nothing where there is none or no finite one.
std::optional<double> ValueAt(const BulkValues& values, std::size_t index)
{
    const double value = values.values[index];
    return IsValue(values.status[index]) && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

// Throws CFailure when there is no value at all.
Series Sweep(IMaterial& material, double temperature, bool smooth, std::span<const double> frequencies)
{
    Series series{&material, temperature, {}};
    const CBulkMaterial bulk(material);
    const SweptProperties& swept = PropertiesOf(material);
    bool anyValue = false;
    bool anyNumber = false;
    for (const MLTABLEKIND property : swept)
    {
        const BulkValues& answers =
            series.properties.emplace_back(bulk.Ask(property, temperature, smooth, frequencies));
        for (std::size_t i = 0; i < frequencies.size(); ++i)
        {
            RequireModel(material, temperature, answers.status[i]);
            anyValue = anyValue || IsValue(answers.status[i]);
            anyNumber = anyNumber || ValueAt(answers, i);
        }
    }
    if (!anyValue)
    {
        throw CFailure(ExplainMissingValue(material, swept.front()));
    }
    if (!anyNumber)
    {
        throw CFailure("no value of " + Quote(material.GetName()) +
                       " at these frequencies is a finite number");
    }
    return series;
}

struct SweepResult
{
    std::vector<double> frequencies;
    std::vector<Series> all;
    bool isComplete = true; // no material was left out
};

SweepResult SweepAll(const Options& options, const CMaterialSet& set)
{
    SweepResult result{ListFrequencies(options), {}};
    const std::vector<IMaterial*> materials = set.Select(options);
    CProgress progress = ShowProgress(static_cast<int>(materials.size() * options.temperatures.size()));
    for (IMaterial* const material : materials)
    {
        for (const double temperature : options.temperatures)
        {
            const auto sweep = [&]
            { result.all.push_back(Sweep(*material, temperature, options.smooth, result.frequencies)); };
            result.isComplete = TakeOrReport(options, sweep) && result.isComplete;
            progress.Advance();
        }
    }
    return result;
}

// The properties of all series, each a column.
std::vector<MLTABLEKIND> ListColumns(const std::vector<Series>& all)
{
    std::vector<MLTABLEKIND> columns;
    for (const SweptProperties& kind : {dielectricProperties, metalProperties})
    {
        if (std::ranges::find(all, kind, GetPropertiesOf) != all.end())
        {
            columns.insert(columns.end(), kind.begin(), kind.end());
        }
    }
    return columns;
}

std::string QuoteForCsv(std::string_view text)
{
    std::string quoted = "\"";
    for (const char character : text)
    {
        quoted += character;
        quoted += character == '"' ? "\"" : "";
    }
    return quoted + "\"";
}

// The series' values of a property; null where its material has no such property.
const BulkValues* FindValues(const Series& series, MLTABLEKIND property)
{
    const SweptProperties& swept = PropertiesOf(*series.material);
    const auto place = std::ranges::find(swept, property);
    return place == swept.end() ? nullptr
                                : &series.properties[static_cast<std::size_t>(place - swept.begin())];
}

std::string RenderRow(const Series& series, std::span<const MLTABLEKIND> columns, std::size_t index)
{
    std::string numbers;
    std::string origins;
    for (const MLTABLEKIND property : columns)
    {
        const BulkValues* const values = FindValues(series, property);
        const auto value = values != nullptr ? ValueAt(*values, index) : std::nullopt;
        numbers += "," + (value ? FormatNumber(*value) : "");
        origins += "," + (values != nullptr ? OriginWord(values->status[index]) : "");
    }
    return numbers + origins + "\n";
}

// One series has no columns that say which it is.
std::string RenderCsv(const SweepResult& result)
{
    const std::vector<MLTABLEKIND> columns = ListColumns(result.all);
    const bool several = result.all.size() > 1;
    std::string text = several ? "material,temperature_c,frequency_hz" : "frequency_hz";
    std::string origins;
    for (const MLTABLEKIND property : columns)
    {
        text += "," + std::string(WordsOf(property).key);
        origins += "," + std::string(WordsOf(property).key) + "_status";
    }
    text += origins + "\n";
    for (const Series& series : result.all)
    {
        const std::string label =
            several ? QuoteForCsv(series.material->GetName()) + "," + FormatNumber(series.temperature) + ","
                    : "";
        for (std::size_t i = 0; i < result.frequencies.size(); ++i)
        {
            text += label + FormatHertz(result.frequencies[i]) + RenderRow(series, columns, i);
        }
    }
    return text;
}

Json SeriesAsJson(const Series& series, std::span<const double> frequencies)
{
    const SweptProperties& swept = PropertiesOf(*series.material);
    Json json = {{"name", series.material->GetName()},
                 {"temperature_c", series.temperature},
                 {"points", Json::array()}};
    for (std::size_t i = 0; i < frequencies.size(); ++i)
    {
        Json row = {{"frequency_hz", frequencies[i]}};
        for (std::size_t k = 0; k < swept.size(); ++k)
        {
            const std::string key(WordsOf(swept[k]).key);
            row[key] = NumberOrNull(ValueAt(series.properties[k], i));
            row[key + "_status"] = OriginWord(series.properties[k].status[i]);
        }
        json["points"].push_back(std::move(row));
    }
    return json;
}

Json SweepAsJson(const SweepResult& result)
{
    Json json = Json::array();
    for (const Series& series : result.all)
    {
        json.push_back(SeriesAsJson(series, result.frequencies));
    }
    return json;
}
} // namespace

int RunSweep(const Options& options, ILibraryHost& host)
{
    const CMaterialSet set(host, options);
    const SweepResult result = SweepAll(options, set);
    PrintOutput(options.json ? RenderJson(SweepAsJson(result)) : RenderCsv(result));
    COriginCounter origins;
    for (const Series& series : result.all)
    {
        for (const BulkValues& values : series.properties)
        {
            origins.Add(values.status);
        }
    }
    PrintOrigins(origins);
    return result.isComplete ? set.GetExitCode() : exitFailed;
}
