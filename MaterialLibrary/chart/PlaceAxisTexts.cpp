#include "chart/PlaceAxisTexts.h"

#include "chart/AxisTicks.h"
#include "chart/CAxisMapping.h"
#include "chart/ChartTexts.h"
#include "chart/TickSearch.h"

#include <algorithm>
#include <cmath>

namespace
{
bool IsOnFarSide(Direction direction, std::size_t index)
{
    return direction == Direction::Vertical && index % 2 == 1;
}

// How many ticks apart labels of a size stand. Where axes share a side it is more than one, since their ticks
// often stand at the same places.
int GetLabelStride(const CAxis& axis, const IScale& scale, int labelSize, int axesOnSide, int plotLength)
{
    const double pixelsPerTick = std::max(axis.tickStep * axis.scale, 1.0);
    const int needed = ToPixel(std::ceil(labelSize * axesOnSide / pixelsPerTick));
    return CountSubdivisions(axis.tickStep, std::max(needed, axesOnSide), plotLength, scale.IsLogarithmic());
}

bool IsLabelled(const CAxis& axis, const IScale& scale, int tick, int stride)
{
    const double number = RoundHalfAway(scale.Transform(axis.visibleMin) / axis.tickStep) + tick;
    return std::fmod(number, stride) == 0.0;
}

// The titles side by side in a row; where they do not all fit, the longest are shortened.
std::vector<std::string> FitTitles(std::span<const CAxis> axes, int rowWidth, int gap, ITextMeasure& measure)
{
    std::vector<int> widths;
    for (const CAxis& axis : axes)
    {
        widths.push_back(measure.GetTextExtent(axis.title).width);
    }
    std::ranges::sort(widths);
    int room = rowWidth - gap * (static_cast<int>(axes.size()) - 1);
    int longest = room;
    for (std::size_t i = 0; i < widths.size(); ++i)
    {
        longest = room / static_cast<int>(widths.size() - i);
        room -= std::min(widths[i], longest);
    }
    std::vector<std::string> titles;
    for (const CAxis& axis : axes)
    {
        titles.push_back(FitText(measure, axis.title, longest));
    }
    return titles;
}

class CLabelPlacer
{
public:
    CLabelPlacer(const ChartScene& scene_, Direction direction_, std::size_t index_, ITextMeasure& measure_)
        : scene(scene_), direction(direction_), index(index_), measure(measure_),
          axis(scene_.model.GetAxes(direction_)[index_]), scale(scene_.model.GetScale(direction_))
    {
    }

    // `axesOnSide` axes want room at once; `taken` are the cells of those before.
    std::vector<PlacedText> Place(int axesOnSide, std::vector<PixelRect>& taken)
    {
        std::vector<PlacedText> labels = ListLabels();
        const bool horizontal = direction == Direction::Horizontal;
        const PixelRect& plot = scene.model.frame.plot;
        const int stride =
            GetLabelStride(axis, scale, widest, axesOnSide, horizontal ? plot.GetWidth() : plot.GetHeight());
        std::vector<PixelRect> cells;
        std::erase_if(labels,
                      [&](const PlacedText& label)
                      {
                          const PixelRect cell = GetCell(label);
                          const auto meets = [&cell](const PixelRect& other) { return cell.Meets(other); };
                          if (!IsLabelled(axis, scale, label.tick, stride) ||
                              std::ranges::any_of(taken, meets) || std::ranges::any_of(cells, meets))
                          {
                              return true;
                          }
                          cells.push_back(cell);
                          return false;
                      });
        taken.insert(taken.end(), cells.begin(), cells.end());
        return labels;
    }

private:
    std::vector<PlacedText> ListLabels()
    {
        std::vector<PlacedText> labels;
        const CAxisMapping mapping(scene.model, direction, axis);
        const TickRange ticks = GetDrawnTicks(scene.model, direction, axis);
        for (int i = ticks.first; i <= ticks.last; ++i)
        {
            PlacedText label{FormatTickLabel(axis, GetAxisTick(axis, scale, i)), {}, i};
            const PixelSize extent = measure.GetTextExtent(label.text);
            label.topLeft = PlaceLabel(mapping.GetTickPixel(i), extent);
            widest = std::max(widest, direction == Direction::Horizontal ? extent.width : extent.height);
            labels.push_back(std::move(label));
        }
        return labels;
    }

    // Beside the tick, and within the window also where a pan has brought a wider label.
    [[nodiscard]] PixelPoint PlaceLabel(int tickPixel, PixelSize extent) const
    {
        const PixelRect& plot = scene.model.frame.plot;
        const int h = scene.model.frame.lineHeight;
        const auto keepInside = [this, &extent](int left)
        { return std::max(std::min(left, scene.client.right - extent.width), scene.client.left); };
        if (direction == Direction::Horizontal)
        {
            return {keepInside(tickPixel - extent.width / 2), scene.model.frame.GetTickLabelTop()};
        }
        const int left =
            IsOnFarSide(direction, index) ? plot.right + h / 8 : plot.left - h / 8 - extent.width;
        return {keepInside(left), tickPixel - extent.height / 2};
    }

    [[nodiscard]] PixelRect GetCell(const PlacedText& label) const
    {
        const PixelSize extent = measure.GetTextExtent(label.text);
        return {label.topLeft.x, label.topLeft.y, label.topLeft.x + extent.width,
                label.topLeft.y + extent.height};
    }

    const ChartScene& scene;
    const Direction direction;
    const std::size_t index;
    ITextMeasure& measure;
    const CAxis& axis;
    const IScale& scale;
    int widest = 0; // along the axis
};
} // namespace

std::vector<std::vector<PlacedText>> PlaceTickLabels(const ChartScene& scene, Direction direction,
                                                     ITextMeasure& measure)
{
    const std::size_t count = scene.model.GetAxes(direction).size();
    std::vector<std::vector<PlacedText>> labels(count);
    std::vector<PixelRect> taken[2];
    int axesOnSide[2] = {};
    for (std::size_t i = 0; i < count; ++i)
    {
        ++axesOnSide[IsOnFarSide(direction, i) ? 1 : 0];
    }
    for (std::size_t i = 0; i < count; ++i)
    {
        const std::size_t side = IsOnFarSide(direction, i) ? 1 : 0;
        const int sharing = taken[side].empty() ? axesOnSide[side] : 1;
        labels[i] = CLabelPlacer(scene, direction, i, measure).Place(sharing, taken[side]);
    }
    return labels;
}

std::vector<PlacedText> PlaceTitles(const ChartScene& scene, Direction direction, ITextMeasure& measure)
{
    const ChartFrame& frame = scene.model.frame;
    const int gap = frame.lineHeight * 3 / 4;
    const bool horizontal = direction == Direction::Horizontal;
    const int top = horizontal ? frame.plot.bottom + frame.lineHeight + frame.lineHeight / 8
                               : frame.plot.top - frame.lineHeight;
    std::vector<PlacedText> titles;
    int left = frame.plot.left;
    int right = frame.plot.right;
    for (std::string& text : FitTitles(scene.model.GetAxes(direction), frame.plot.GetWidth(), gap, measure))
    {
        const int extent = measure.GetTextExtent(text).width;
        const bool fromRight = horizontal || IsOnFarSide(direction, titles.size());
        titles.push_back({std::move(text), {fromRight ? right - extent : left, top}, 0});
        (fromRight ? right : left) += fromRight ? -extent - gap : extent + gap;
    }
    return titles;
}
