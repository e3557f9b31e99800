#include "chart/CAxisMapping.h"
#include "chart/ChartTexts.h"
#include "chart/CurveSearch.h"
#include "chart/PaintChart.h"

#include <algorithm>

namespace
{
constexpr int firstRow = 2; // below the tick labels and the titles
constexpr int lastRow = 3;

struct PlacedEntry
{
    Colour colour;
    std::string text;
    int left;
    int row;
};

// The values of an entry's curves at the mouse, behind its name: room for them where the mouse is in the
// plot, so that nothing moves with the mouse.
struct EntryValues
{
    std::string text;
    int width = 0;
};

std::optional<std::string> FormatValue(const CChartModel& model, std::int64_t curve, int mouse)
{
    if (curve < 0 || curve >= model.GetCurveCount())
    {
        return std::nullopt; // the entry has outlived it
    }
    const CAxisCurve& entry = model.GetCurve(curve);
    const CurveAxes axes = model.GetCurveAxes(entry);
    if (!axes)
    {
        return std::nullopt;
    }
    const double x = CAxisMapping(model, Direction::Horizontal, *axes.horizontal).GetValue(mouse);
    const std::optional<double> y = InterpolateCurve(*entry.curve, x);
    return y ? std::optional(FormatCoordinate(*axes.vertical, *y)) : std::nullopt;
}

EntryValues GetValues(const ChartScene& scene, const CLegendEntry& entry, ITextMeasure& measure)
{
    EntryValues values;
    if (!scene.ReadsOutMouse())
    {
        return values;
    }
    std::string widest;
    for (const std::int64_t curve : entry.curves)
    {
        widest += ", 0.00000";
        if (const auto value = FormatValue(scene.model, curve, scene.pointer.mouse.x))
        {
            values.text += (values.text.empty() ? ": " : ", ") + *value;
        }
    }
    values.width = std::max(measure.GetTextExtent(widest).width, measure.GetTextExtent(values.text).width);
    return values;
}

class CLegendPlacer
{
public:
    CLegendPlacer(const ChartScene& scene_, ITextMeasure& measure_)
        : scene(scene_), measure(measure_), h(measure_.GetTextExtent("0,").height)
    {
        for (const CLegendEntry& entry : scene.model.GetLegend())
        {
            values.push_back(GetValues(scene, entry, measure));
        }
    }

    // Where not all entries find room, the names before values are shortened as far as it takes.
    std::vector<PlacedEntry> Place()
    {
        const std::size_t count = values.size();
        std::vector<PlacedEntry> placed = Place(scene.model.frame.plot.GetWidth());
        int tooWide = scene.model.frame.plot.GetWidth();
        int narrow = 2 * h;
        while (placed.size() < count && HasValues() && tooWide - narrow > 1)
        {
            const int middle = narrow + (tooWide - narrow) / 2;
            (Place(middle).size() == count ? narrow : tooWide) = middle;
        }
        return placed.size() < count && HasValues() ? Place(narrow) : placed;
    }

private:
    [[nodiscard]] bool HasValues() const
    {
        return std::ranges::any_of(values, [](const EntryValues& each) { return each.width > 0; });
    }

    // The entries that two rows have room for.
    std::vector<PlacedEntry> Place(int widestName)
    {
        const PixelRect& plot = scene.model.frame.plot;
        std::vector<PlacedEntry> placed;
        int row = firstRow;
        int left = plot.left;
        for (const CLegendEntry& entry : scene.model.GetLegend())
        {
            const EntryValues& value = values[placed.size()];
            const std::string name = value.width > 0 ? FitText(measure, entry.name, widestName) : entry.name;
            const int width = h + measure.GetTextExtent(name).width + value.width + h;
            if (left + width > plot.right && left > plot.left)
            {
                ++row;
                left = plot.left;
            }
            if (row > lastRow)
            {
                break;
            }
            placed.push_back(
                {entry.colour, FitText(measure, name + value.text, plot.right - left - h), left, row});
            left += width;
        }
        return placed;
    }

    const ChartScene& scene;
    ITextMeasure& measure;
    const int h;
    std::vector<EntryValues> values; // one per entry
};
} // namespace

std::size_t CountLegendEntries(const ChartScene& scene, ITextMeasure& measure)
{
    return CLegendPlacer(scene, measure).Place().size();
}

LegendRow GetFirstLegendRow(const ChartScene& scene, ITextMeasure& measure)
{
    const int h = measure.GetTextExtent("0,").height;
    LegendRow row = {scene.model.frame.plot.bottom + firstRow * h, scene.model.frame.plot.left};
    for (const PlacedEntry& entry : CLegendPlacer(scene, measure).Place())
    {
        if (entry.row == firstRow)
        {
            row.right = entry.left + h + measure.GetTextExtent(entry.text).width + h;
        }
    }
    return row;
}

int PaintLegend(const ChartScene& scene, ICanvas& canvas)
{
    const int h = canvas.GetTextExtent("0,").height;
    const int side = h - h / 4;
    int free = firstRow;
    for (const PlacedEntry& entry : CLegendPlacer(scene, canvas).Place())
    {
        const int top = scene.model.frame.plot.bottom + h * entry.row;
        canvas.FillRectangle({entry.left, top + h / 8, entry.left + side, top + h / 8 + side}, entry.colour);
        canvas.WriteText({entry.left + h, top}, entry.text, scene.style.GetShownColour(0xFFFFFF), {});
        free = entry.row + 1;
    }
    return free;
}
