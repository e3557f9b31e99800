#include "tools/matlib/CMaterialPlot.h"

#include "MaterialLibrary/IMaterial.h"
#include "chart/CSvgCanvas.h"
#include "chart/PaintChart.h"
#include "tools/matlib/CFailure.h"
#include "tools/matlib/FrequencySweep.h"
#include "tools/matlib/PropertyValue.h"
#include "tools/matlib/Wording.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr std::int32_t frequencyAxis = 0;

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
    bool anyValue = false;
    const std::vector<MLTABLEKIND> plotted = ListProperties(material);
    for (const MLTABLEKIND property : plotted)
    {
        auto curve = std::make_unique<CChartCurve>();
        curve->name = MakePrintable(material.GetName()) + " " + std::string(WordsOf(property).title) +
                      (options.temperatures.size() > 1 ? " " + FormatNumber(temperature) + " C" : "");
        for (const double frequency : frequencies)
        {
            const auto value = FindValue(material, property, frequency, temperature);
            if (value && std::isfinite(*value))
            {
                curve->points.push_back({frequency, *value});
            }
        }
        if (!curve->points.empty())
        {
            anyValue = true;
            AddCurve(std::move(curve), property);
        }
    }
    if (!anyValue)
    {
        throw CFailure(ExplainMissingValue(material, plotted.empty() ? options.plottedProperties.front()
                                                                     : plotted.front()));
    }
}

void CMaterialPlot::AddCurve(std::unique_ptr<CChartCurve> curve, MLTABLEKIND property)
{
    const std::int32_t axis = GetAxisOf(property);
    if (model.FindAxis(axis) == nullptr)
    {
        model.AddAxis(axis, true);
        model.SetAxisTitle(axis, GetAxisTitle(property), "");
        model.ClearAutomaticPrefix(axis);
        TellApart(*model.FindAxis(axis), model.GetAxes(Direction::Vertical).size());
    }
    const std::size_t number = curves.size();
    curve->colour = palette[number % std::size(palette)];
    curve->lineStyle = static_cast<std::int32_t>(number / std::size(palette) % (PenStyle::dashDotDot + 1));
    curve->UpdateBounds();
    model.AddCurve(*curve, frequencyAxis, axis);
    model.GetLegend().push_back({curve->colour, curve->name});
    curves.push_back(std::move(curve));
}

std::string CMaterialPlot::Render()
{
    const PixelSize size = {options.pictureWidth, options.pictureHeight};
    const PixelRect client = {0, 0, size.width, size.height};
    const int fontSize = ChooseFontSize(size.height);
    CSvgCanvas canvas(size, fontSize);
    ChartStyle style;
    style.lineWidth = fontSize / 8;
    model.SetScaleMode(options.sweepLogarithmic, false);
    LayOutChart(model, client, canvas);
    PaintChart({model, style, ChartPointer(), client}, canvas);
    return canvas.GetDocument();
}
