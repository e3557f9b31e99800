#include "tools/matlib/CMaterialPlot.h"

#include "MaterialLibrary/IMaterial.h"
#include "chart/CSvgCanvas.h"
#include "tools/matlib/CBulkMaterial.h"
#include "tools/matlib/CFailure.h"
#include "tools/matlib/FrequencySweep.h"
#include "tools/matlib/MaterialFacts.h"
#include "tools/matlib/Origin.h"
#include "tools/matlib/PropertyValue.h"
#include "tools/matlib/Wording.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace
{
constexpr std::int32_t frequencyAxis = 0;
constexpr std::int32_t markersOnly = -1;

// Well apart from each other on black; when they are used up the lines are dashed.
constexpr Colour palette[] = {0x4DA6FF, 0xFFC066, 0x66E066, 0xFF80FF, 0x33E6FF, 0x7070FF, 0xFFFF80, 0xC0C0C0};

// Both faces of a metal share an axis.
std::int32_t GetAxisOf(MLTABLEKIND property)
{
    return property == MLTABLE_ER ? 1 : property == MLTABLE_LOSS_TANGENT ? 2 : 3;
}

std::string_view GetAxisTitle(MLTABLEKIND property)
{
    return GetAxisOf(property) == 3 ? "Roughness factor" : WordsOf(property).title;
}

// The labels of the second and third axis are tinted, and their grids stay behind the first one's.
void TellApart(CAxis& axis, std::size_t number)
{
    if (number > 1)
    {
        axis.axisColour = number == 2 ? 0xFFD0A0 : 0xA0D0FF;
        axis.gridColour = 0x383838;
    }
}

// Texts that are easy to read in a picture of that height.
int ChooseFontSize(int pictureHeight)
{
    return std::clamp(pictureHeight / 45, 11, 28);
}
} // namespace

CMaterialPlot::CMaterialPlot(const Options& options_)
    : options(options_), frequencies(ListFrequencies(options_))
{
    model.AddAxis(frequencyAxis, false);
    model.SetAxisTitle(frequencyAxis, "Frequency", "Hz");
    model.FindAxis(frequencyAxis)->lowerLimit = smallestPositiveDouble;
}

std::vector<MLTABLEKIND> CMaterialPlot::ListProperties(const IMaterial& material) const
{
    const SweptProperties own = PropertiesOf(material);
    if (options.plottedProperties.empty())
    {
        return {own.begin(), own.end()};
    }
    std::vector<MLTABLEKIND> asked;
    std::ranges::copy_if(options.plottedProperties, std::back_inserter(asked),
                         [&own](MLTABLEKIND property)
                         { return std::ranges::find(own, property) != own.end(); });
    return asked;
}

void CMaterialPlot::Add(IMaterial& material, double temperature)
{
    const std::vector<MLTABLEKIND> plotted = ListProperties(material);
    if (plotted.empty() && options.allMaterials)
    {
        return; // of the other kind
    }
    bool anyValue = false;
    const CBulkMaterial bulk(material);
    for (const MLTABLEKIND property : plotted)
    {
        const std::vector<DataPoint> rows = FindRows(bulk, material, property, temperature);
        std::vector<DataPoint> line = Evaluate(bulk, material, property, temperature, rows);
        if (!rows.empty() || !line.empty())
        {
            anyValue = true;
            const std::string name = MakePrintable(material.GetName());
            const std::string ending =
                options.temperatures.size() > 1 ? " " + FormatNumber(temperature) + " C" : "";
            AddCurves({property, name, ending}, rows, std::move(line));
        }
    }
    if (!anyValue)
    {
        throw CFailure(ExplainMissingValue(material, plotted.empty() ? options.plottedProperties.front()
                                                                     : plotted.front()));
    }
}

// The rows in the picture's range that answer at the temperature, ascending.
std::vector<DataPoint> CMaterialPlot::FindRows(const CBulkMaterial& bulk, IMaterial& material,
                                               MLTABLEKIND property, double temperature) const
{
    std::set<double> candidates;
    for (const IMaterialTable* table : ListTables(material))
    {
        for (int index = 0; table->GetTableKind() == property && index < table->GetEntryCount(); ++index)
        {
            const double frequency = table->GetEntry(index).frequency;
            if (frequency >= options.sweepFrom && frequency <= options.sweepTo)
            {
                candidates.insert(frequency);
            }
        }
    }
    const std::vector<double> asked(candidates.begin(), candidates.end());
    const BulkValues answers = bulk.Ask(property, temperature, false, asked);
    std::vector<DataPoint> rows;
    for (std::size_t i = 0; i < asked.size(); ++i)
    {
        if ((answers.status[i] & ML_STATUS_SOURCE) == ML_FROM_ROW && std::isfinite(answers.values[i]))
        {
            rows.push_back({asked[i], answers.values[i]});
        }
    }
    return rows;
}

// A laminate's model; a metal's rows, to be joined, and the ends of the range.
std::vector<DataPoint> CMaterialPlot::Evaluate(const CBulkMaterial& bulk, const IMaterial& material,
                                               MLTABLEKIND property, double temperature,
                                               std::span<const DataPoint> rows) const
{
    std::vector<double> asked = frequencies;
    if (material.GetKind() == MLMATERIAL_METAL)
    {
        asked = {options.sweepFrom};
        std::ranges::transform(rows, std::back_inserter(asked), &DataPoint::x);
        asked.push_back(options.sweepTo);
    }
    const BulkValues answers = bulk.Ask(property, temperature, true, asked);
    std::vector<DataPoint> line;
    for (std::size_t i = 0; i < asked.size(); ++i)
    {
        RequireModel(material, temperature, answers.status[i]);
        if (IsValue(answers.status[i]) && std::isfinite(answers.values[i]))
        {
            line.push_back({asked[i], answers.values[i]});
        }
    }
    return line;
}

// The rows as markers, the line on top of them; one entry in the legend.
void CMaterialPlot::AddCurves(PlottedProperty plotted, std::span<const DataPoint> rows,
                              std::vector<DataPoint> line)
{
    const std::size_t number = names.size();
    const Colour colour = palette[number % std::size(palette)];
    const auto style = static_cast<std::int32_t>(number / std::size(palette) % (PenStyle::dashDotDot + 1));
    AddCurve(plotted.property, colour, style, std::move(line));
    AddCurve(plotted.property, colour, markersOnly, {rows.begin(), rows.end()});
    names.push_back(std::move(plotted));
    model.GetLegend().push_back({colour, {}});
}

void CMaterialPlot::AddCurve(MLTABLEKIND property, Colour colour, std::int32_t style,
                             std::vector<DataPoint> points)
{
    if (points.empty())
    {
        return;
    }
    const std::int32_t axis = GetAxisOf(property);
    if (model.FindAxis(axis) == nullptr)
    {
        model.AddAxis(axis, true);
        model.SetAxisTitle(axis, GetAxisTitle(property), "");
        model.ClearAutomaticPrefix(axis);
        TellApart(*model.FindAxis(axis), model.GetAxes(Direction::Vertical).size());
    }
    auto curve = std::make_unique<CChartCurve>();
    curve->points = std::move(points);
    curve->colour = colour;
    curve->lineStyle = style;
    curve->UpdateBounds();
    model.AddCurve(*curve, frequencyAxis, axis);
    curves.push_back(std::move(curve));
}

void CMaterialPlot::NameInFull()
{
    for (std::size_t i = 0; i < names.size(); ++i)
    {
        const auto& [property, material, ending] = names[i];
        model.GetLegend()[i].name = material + " ";
        model.GetLegend()[i].name.append(WordsOf(property).title).append(ending);
    }
}

// Where the names are too long for the legend: the second property of a material leaves out its name.
void CMaterialPlot::NameBriefly()
{
    for (std::size_t i = 0; i < names.size(); ++i)
    {
        const auto& [property, material, ending] = names[i];
        const bool goesOn = i > 0 && names[i - 1].material == material && names[i - 1].ending == ending;
        model.GetLegend()[i].name =
            (goesOn ? "" : material + ending + " ") + std::string(WordsOf(property).brief);
    }
}

// How many the legend has room for as they are named now.
int CMaterialPlot::CountNamedCurves(const ChartStyle& style, PixelSize size, int fontSize)
{
    const PixelRect client = {0, 0, size.width, size.height};
    CSvgCanvas measure(size, fontSize);
    LayOutChart(model, client, measure);
    return static_cast<int>(CountLegendEntries({model, style, ChartPointer(), client}, measure));
}

std::string CMaterialPlot::Render()
{
    const PixelSize size = {options.pictureWidth, options.pictureHeight};
    const int fontSize = ChooseFontSize(size.height);
    ChartStyle style;
    style.flags = ChartStyle::drawMarkers; // of curves that have no style of line
    style.lineWidth = fontSize / 8;
    style.markerHalfSide = std::max(2, fontSize / 5);
    model.SetScaleMode(options.sweepLogarithmic, false);
    NameInFull();
    namedCurves = CountNamedCurves(style, size, fontSize);
    if (namedCurves < GetCurveCount())
    {
        NameBriefly();
        namedCurves = CountNamedCurves(style, size, fontSize);
    }
    return DrawSvgPicture(model, style, size, fontSize);
}
