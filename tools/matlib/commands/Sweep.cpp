#include "tools/matlib/CFailure.h"
#include "tools/matlib/CMaterialSet.h"
#include "tools/matlib/Console.h"
#include "tools/matlib/Json.h"
#include "tools/matlib/PropertyValue.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/commands/Commands.h"

#include "MaterialLibrary/IMaterial.h"

#include <array>
#include <cmath>

namespace
{
constexpr std::size_t propertiesOfKind = 2;
using SweptProperties = std::array<MLTABLEKIND, propertiesOfKind>;

struct SweepPoint
{
    double frequency;
    std::array<std::optional<double>, propertiesOfKind> values;
};

SweptProperties PropertiesOf(const IMaterial& material)
{
    return material.GetKind() == MLMATERIAL_METAL
               ? SweptProperties{MLTABLE_ROUGHNESS_TOP, MLTABLE_ROUGHNESS_BOTTOM}
               : SweptProperties{MLTABLE_ER, MLTABLE_LOSS_TANGENT};
}

// The frequency of point `index`; the first and the last are exactly the ends of the range.
double FrequencyAt(const Options& options, int index)
{
    if (index == options.sweepPoints - 1)
    {
        return options.sweepTo;
    }
    const double share = static_cast<double>(index) / (options.sweepPoints - 1);
    return options.sweepLogarithmic ? options.sweepFrom * std::pow(options.sweepTo / options.sweepFrom, share)
                                    : options.sweepFrom + (options.sweepTo - options.sweepFrom) * share;
}

std::vector<SweepPoint> Sweep(const Options& options, IMaterial& material)
{
    const SweptProperties swept = PropertiesOf(material);
    std::vector<SweepPoint> points;
    bool anyValue = false;
    for (int index = 0; index < options.sweepPoints; ++index)
    {
        SweepPoint point{FrequencyAt(options, index), {}};
        for (std::size_t i = 0; i < swept.size(); ++i)
        {
            point.values[i] = FindValue(material, swept[i], point.frequency, options.temperature);
            anyValue = anyValue || point.values[i].has_value();
        }
        points.push_back(point);
    }
    if (!anyValue)
    {
        throw CFailure(ExplainMissingValue(material, swept.front()));
    }
    return points;
}

std::string RenderCsv(const SweptProperties& swept, const std::vector<SweepPoint>& points)
{
    std::string text = "frequency_hz";
    for (const MLTABLEKIND property : swept)
    {
        text += "," + std::string(WordsOf(property).key);
    }
    text += "\n";
    for (const SweepPoint& point : points)
    {
        text += FormatHertz(point.frequency);
        for (const auto& value : point.values)
        {
            text += "," + (value ? FormatNumber(*value) : "");
        }
        text += "\n";
    }
    return text;
}

Json SweepAsJson(const Options& options, const IMaterial& material, const std::vector<SweepPoint>& points)
{
    const SweptProperties swept = PropertiesOf(material);
    Json json = {
        {"name", material.GetName()}, {"temperature_c", options.temperature}, {"points", Json::array()}};
    for (const SweepPoint& point : points)
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
} // namespace

int RunSweep(const Options& options, ILibraryHost& host)
{
    const CMaterialSet set(host, options.libraryFiles);
    IMaterial& material = set.Find(options.material);
    const auto points = Sweep(options, material);
    PrintOutput(options.json ? RenderJson(SweepAsJson(options, material, points))
                             : RenderCsv(PropertiesOf(material), points));
    return set.GetExitCode();
}
