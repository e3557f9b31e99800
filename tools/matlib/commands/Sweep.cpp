#include "MaterialLibrary/IMaterial.h"
#include "tools/matlib/CFailure.h"
#include "tools/matlib/CMaterialSet.h"
#include "tools/matlib/Console.h"
#include "tools/matlib/FrequencySweep.h"
#include "tools/matlib/Json.h"
#include "tools/matlib/PropertyValue.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/commands/Commands.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace
{
struct SweepPoint
{
    double frequency;
    std::array<std::optional<double>, std::tuple_size_v<SweptProperties>> values;
};

// One material at one temperature.
struct Series
{
    IMaterial* material;
    double temperature;
    std::vector<SweepPoint> points;
};

const SweptProperties& GetPropertiesOf(const Series& series)
{
    return PropertiesOf(*series.material);
}

void Sweep(const Options& options, Series& series, CProgress& progress)
{
    const SweptProperties& swept = PropertiesOf(*series.material);
    bool anyValue = false;
    for (const double frequency : ListFrequencies(options))
    {
        SweepPoint point{frequency, {}};
        for (std::size_t i = 0; i < swept.size(); ++i)
        {
            point.values[i] = FindValue(*series.material, swept[i], point.frequency, series.temperature);
            anyValue = anyValue || point.values[i].has_value();
        }
        series.points.push_back(point);
        progress.Advance();
    }
    if (!anyValue)
    {
        throw CFailure(ExplainMissingValue(*series.material, swept.front()));
    }
}

std::vector<Series> SweepAll(const Options& options, const CMaterialSet& set)
{
    std::vector<Series> all;
    for (const std::string& name : options.materials)
    {
        for (const double temperature : options.temperatures)
        {
            all.push_back({&set.Find(name), temperature, {}});
        }
    }
    CProgress progress = ShowProgress(static_cast<int>(all.size()) * options.sweepPoints);
    for (Series& series : all)
    {
        Sweep(options, series, progress);
    }
    return all;
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

// One series has no columns that say which it is.
std::string RenderCsv(const std::vector<Series>& all)
{
    const std::vector<MLTABLEKIND> columns = ListColumns(all);
    std::string text = all.size() > 1 ? "material,temperature_c,frequency_hz" : "frequency_hz";
    for (const MLTABLEKIND property : columns)
    {
        text += "," + std::string(WordsOf(property).key);
    }
    text += "\n";
    for (const Series& series : all)
    {
        const SweptProperties& swept = PropertiesOf(*series.material);
        const std::string label = all.size() > 1 ? QuoteForCsv(series.material->GetName()) + "," +
                                                       FormatNumber(series.temperature) + ","
                                                 : "";
        for (const SweepPoint& point : series.points)
        {
            text += label + FormatHertz(point.frequency);
            for (const MLTABLEKIND property : columns)
            {
                const auto place = std::ranges::find(swept, property);
                const auto value = place == swept.end()
                                       ? std::nullopt
                                       : point.values[static_cast<std::size_t>(place - swept.begin())];
                text += "," + (value ? FormatNumber(*value) : "");
            }
            text += "\n";
        }
    }
    return text;
}

Json SeriesAsJson(const Series& series)
{
    const SweptProperties& swept = PropertiesOf(*series.material);
    Json json = {{"name", series.material->GetName()},
                 {"temperature_c", series.temperature},
                 {"points", Json::array()}};
    for (const SweepPoint& point : series.points)
    {
        Json row = {{"frequency_hz", point.frequency}};
        for (std::size_t i = 0; i < swept.size(); ++i)
        {
            row[std::string(WordsOf(swept[i]).key)] = NumberOrNull(point.values[i]);
        }
        json["points"].push_back(std::move(row));
    }
    return json;
}

// One series is an object, several are an array of such.
Json SweepAsJson(const std::vector<Series>& all)
{
    if (all.size() == 1)
    {
        return SeriesAsJson(all.front());
    }
    Json json = Json::array();
    std::ranges::transform(all, std::back_inserter(json), SeriesAsJson);
    return json;
}
} // namespace

int RunSweep(const Options& options, ILibraryHost& host)
{
    const CMaterialSet set(host, options.libraryFiles);
    const std::vector<Series> all = SweepAll(options, set);
    PrintOutput(options.json ? RenderJson(SweepAsJson(all)) : RenderCsv(all));
    return set.GetExitCode();
}
