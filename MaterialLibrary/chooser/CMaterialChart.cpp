#include "chooser/CMaterialChart.h"

#include "shared/Misc_String/FormatNumber.h"
#include "shared/Translation/Translate.h"

#include <algorithm>
#include <map>

namespace
{
// The chart's axes: one for frequencies, two for values.
constexpr std::int32_t frequencyAxis = 0;
constexpr std::int32_t leftAxis = 1;
constexpr std::int32_t rightAxis = 2;

constexpr double hertzPerMegahertz = 1000000.0;
constexpr double emptyChartHertz = 1e6; // where a logarithmic chart without curves begins

constexpr Colour keptColours[CMaterialChart::mostKept] = {0x00FF00, 0xFF80FF, 0x0080FF, 0xFFC080};

} // namespace

void CMaterialChart::SetUpAxes(CChartModel& model) const
{
    const bool isDielectric = kind == MLMATERIAL_DIELECTRIC;
    model.SetAxisTitle(leftAxis, TranslateOwn(isDielectric ? "Er" : "Rough Factor"), "");
    model.ClearAutomaticPrefix(leftAxis);
    if (isDielectric)
    {
        model.AddAxis(rightAxis, true);
        model.SetAxisTitle(rightAxis, TranslateOwn("Loss Tangent"), "");
        model.ClearAutomaticPrefix(rightAxis);
    }
    SetUpFrequencies(model);
    model.SetScaleMode(logarithmic, false);
}

void CMaterialChart::SetUpFrequencies(CChartModel& model) const
{
    CAxis* const axis = model.FindAxis(frequencyAxis);
    if (axis == nullptr)
    {
        return;
    }
    model.SetAxisTitle(frequencyAxis, TranslateOwn("Frequency"), TranslateOwn(logarithmic ? "Hz" : "MHz"));
    axis->automaticPrefix = logarithmic;
    axis->prefixFromFactor = logarithmic;
    axis->lowerLimit = std::numeric_limits<double>::lowest();
    if (logarithmic)
    {
        axis->lowerLimit = emptyChartHertz;
        for (const CChartCurve& curve : inHertz)
        {
            if (!curve.points.empty())
            {
                axis->lowerLimit = std::min(axis->lowerLimit, curve.bounds.xMin);
            }
        }
    }
}

void CMaterialChart::SetCurves(MaterialCurves newCurves, std::string name)
{
    shown = std::move(newCurves);
    shownName = std::move(name);
}

std::array<CMaterialChart::CurveSlot, 2> CMaterialChart::GetSlots() const
{
    if (kind == MLMATERIAL_DIELECTRIC)
    {
        return {{{MLTABLE_ER, leftAxis}, {MLTABLE_LOSS_TANGENT, rightAxis}}};
    }
    return {{{MLTABLE_ROUGHNESS_TOP, leftAxis}, {MLTABLE_ROUGHNESS_BOTTOM, leftAxis}}};
}

bool CMaterialChart::CanKeep() const
{
    const auto isShown = [this](const KeptMaterial& material) { return material.name == shownName; };
    return kept.size() < mostKept && HasShownRows() && std::ranges::none_of(kept, isShown);
}

bool CMaterialChart::HasShownRows() const
{
    return std::ranges::any_of(shown, [](const CChartCurve& curve) { return !curve.points.empty(); });
}

void CMaterialChart::Keep()
{
    if (!CanKeep())
    {
        return;
    }
    const auto isFree = [this](Colour colour)
    {
        return std::ranges::none_of(kept, [colour](const KeptMaterial& material)
                                    { return material.curves.front().colour == colour; });
    };
    const Colour colour = *std::ranges::find_if(keptColours, isFree);
    KeptMaterial& material = kept.emplace_back(KeptMaterial{shownName, shown});
    for (CChartCurve& curve : material.curves)
    {
        curve.colour = colour;
        curve.thin = true;
    }
    // The two curves of one colour differ by their lines.
    material.curves[GetSlots()[0].index].lineStyle = PenStyle::solid;
    material.curves[GetSlots()[1].index].lineStyle = PenStyle::dash;
}

void CMaterialChart::Show(CChart& chart)
{
    CChartModel& model = chart.GetModel();
    chart.RemoveCurves();
    inHertz.clear();
    std::vector<CLegendEntry>& legend = model.GetLegend();
    legend.clear();
    std::vector<std::int64_t> added;
    AddCurves(chart, shown, added, true);
    for (const std::int64_t index : added)
    {
        const CChartCurve& curve = *model.GetCurve(index).curve;
        legend.push_back({curve.colour, curve.name, {index}});
    }
    for (KeptMaterial& material : kept)
    {
        added.clear();
        AddCurves(chart, material.curves, added, false);
        legend.push_back({material.curves.front().colour, material.name, added});
    }
    chart.GetStyle().bold = !kept.empty();
    SetUpFrequencies(model);
    model.SetScaleMode(logarithmic, false);
}

// `added` are the indices of those with rows. An empty curve has no place on a logarithmic axis; on a linear
// one only the shown material's are added `always`.
void CMaterialChart::AddCurves(CChart& chart, MaterialCurves& curves, std::vector<std::int64_t>& added,
                               bool always)
{
    for (const CurveSlot& slot : GetSlots())
    {
        CChartCurve& curve = logarithmic ? ToHertz(curves[slot.index]) : curves[slot.index];
        const bool hasRows = !curve.points.empty();
        if (hasRows || (always && !logarithmic))
        {
            const std::int64_t index = chart.AddCurve(curve, frequencyAxis, slot.verticalAxis);
            if (hasRows)
            {
                added.push_back(index);
            }
        }
    }
}

// Without rows at frequencies that have no logarithm.
CChartCurve& CMaterialChart::ToHertz(const CChartCurve& curve)
{
    CChartCurve& converted = inHertz.emplace_back(curve);
    std::erase_if(converted.points, [](const DataPoint& point) { return !(point.x > 0.0); });
    for (DataPoint& point : converted.points)
    {
        point.x *= hertzPerMegahertz;
    }
    converted.straightInData = true;
    converted.UpdateBounds();
    return converted;
}

std::string CMaterialChart::FormatValues() const
{
    constexpr int digits = 15;
    std::string titles = TranslateOwn("Frequency") + " (" + TranslateOwn("MHz") + ")";
    std::map<double, std::vector<std::string>> rows; // a cell for each curve
    std::size_t columns = 0;
    const auto addColumns = [&](const MaterialCurves& curves, const std::string& prefix)
    {
        for (const CurveSlot& slot : GetSlots())
        {
            const CChartCurve& curve = curves[slot.index];
            if (curve.points.empty())
            {
                continue;
            }
            titles += '\t' + prefix + curve.name;
            for (const DataPoint& point : curve.points)
            {
                std::vector<std::string>& cells = rows[point.x];
                cells.resize(columns + 1);
                cells[columns] = FormatNumber(point.y, digits);
            }
            ++columns;
        }
    };
    addColumns(shown, "");
    for (const KeptMaterial& material : kept)
    {
        addColumns(material.curves, material.name + " ");
    }
    if (rows.empty())
    {
        return {};
    }
    std::string text = titles + "\r\n";
    for (auto& [frequency, cells] : rows)
    {
        cells.resize(columns);
        text += FormatNumber(frequency, digits);
        for (const std::string& cell : cells)
        {
            text += '\t' + cell;
        }
        text += "\r\n";
    }
    return text;
}
