#include "chart/CAxisMapping.h"
#include "chart/ChartTexts.h"
#include "chart/PaintChart.h"

#include <algorithm>

namespace
{
bool IsOnFarSide(Direction direction, std::size_t index)
{
    return direction == Direction::Vertical && index % 2 == 1;
}

// Which edges of the plot are an axis's own: both of a single one; of several the even ones have the bottom
// or left edge, the odd ones the other.
struct OwnEdges
{
    bool first; // bottom or left
    bool second;
};

OwnEdges GetOwnEdges(std::size_t index, std::size_t count)
{
    const bool even = index % 2 == 0;
    return {count == 1 || even, count == 1 || !even};
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
        const int stride =
            GetLabelStride(axis, scale, widest, axesOnSide, scene.model.frame.plot.GetLength(direction));
        std::vector<PixelRect> cells; // in order along the axis
        std::erase_if(labels,
                      [&](const PlacedText& label)
                      {
                          const PixelRect cell = MakeRect(label.topLeft, measure.GetTextExtent(label.text));
                          const auto meets = [&cell](const PixelRect& other) { return cell.Meets(other); };
                          if (!IsLabelled(axis, scale, label.tick, stride) ||
                              (!cells.empty() && meets(cells.back())) || std::ranges::any_of(taken, meets))
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

    const ChartScene& scene;
    const Direction direction;
    const std::size_t index;
    ITextMeasure& measure;
    const CAxis& axis;
    const IScale& scale;
    int widest = 0; // along the axis
};

void DrawLine(ICanvas& canvas, const Pen& pen, PixelPoint from, PixelPoint to)
{
    const PixelPoint points[] = {from, to};
    canvas.DrawPolyline(pen, points);
}

class CAxisPainter
{
public:
    CAxisPainter(const ChartScene& scene_, Direction direction_, std::size_t index, ICanvas& canvas_)
        : scene(scene_), direction(direction_), horizontal(direction_ == Direction::Horizontal),
          axis(scene_.model.GetAxes(direction_)[index]),
          edges(GetOwnEdges(index, scene_.model.GetAxes(direction_).size())),
          scale(scene_.model.GetScale(direction_)), canvas(canvas_), mapping(scene_.model, direction_, axis),
          plot(scene_.model.frame.plot),
          minorParts(ListMinorParts(axis, scale)), axisPen{scene_.style.GetShownColour(axis.axisColour)},
          gridPen{scene_.style.GetShownColour(axis.gridColour), 0,
                  scene_.style.invertsColours ? PenStyle::dot : PenStyle::solid}
    {
    }

    void PaintTicks(const std::vector<PlacedText>& labels)
    {
        const TickRange ticks = GetDrawnTicks(scene.model, direction, axis);
        auto label = labels.begin();
        // A shift also opens a part of the interval before the first tick.
        PaintMinorTicks(ticks.first - 1);
        for (int i = ticks.first; i <= ticks.last; ++i)
        {
            const int pixel = mapping.GetTickPixel(i);
            DrawAcross(scale.IsLogarithmic() ? axisPen : gridPen, pixel);
            if (label != labels.end() && label->tick == i)
            {
                canvas.WriteText(label->topLeft, label->text, axisPen.colour, {});
                ++label;
            }
            PaintMinorTicks(i);
        }
    }

    void PaintZeroLine()
    {
        const int zero = mapping.GetMinorTickPixel(0.0);
        if (!scale.IsLogarithmic() && plot.Spans(direction, zero))
        {
            DrawAcross(axisPen, zero);
        }
    }

private:
    // A line at a place of the axis.
    void Draw(const Pen& pen, int pixel, int from, int to)
    {
        DrawLine(canvas, pen, horizontal ? PixelPoint{pixel, from} : PixelPoint{from, pixel},
                 horizontal ? PixelPoint{pixel, to} : PixelPoint{to, pixel});
    }

    void DrawAcross(const Pen& pen, int pixel)
    {
        Draw(pen, pixel, horizontal ? plot.top : plot.left, horizontal ? plot.bottom : plot.right);
    }

    // Of the interval that begins at tick `index`: decades have lines, other intervals marks at the edges.
    void PaintMinorTicks(int index)
    {
        const int from = horizontal ? plot.top : plot.left;
        const int to = horizontal ? plot.bottom : plot.right;
        const int mark = std::max(scene.model.frame.lineHeight / 4, 2);
        for (const double part : minorParts)
        {
            const int pixel = mapping.GetMinorTickPixel(GetMinorTick(axis, scale, index, part));
            if (!plot.Spans(direction, pixel))
            {
                continue;
            }
            if (scale.IsLogarithmic())
            {
                Draw(gridPen, pixel, from, to);
                continue;
            }
            const Pen markPen = {gridPen.colour, 0, PenStyle::solid};
            if (horizontal ? edges.second : edges.first)
            {
                Draw(markPen, pixel, from, from + mark);
            }
            if (horizontal ? edges.first : edges.second)
            {
                Draw(markPen, pixel, to - mark, to);
            }
        }
    }

    const ChartScene& scene;
    const Direction direction;
    const bool horizontal;
    const CAxis& axis;
    const OwnEdges edges;
    const IScale& scale;
    ICanvas& canvas;
    const CAxisMapping mapping;
    const PixelRect& plot;
    const std::vector<double> minorParts;
    const Pen axisPen;
    const Pen gridPen;
};

void PaintFrame(const ChartScene& scene, Direction direction, ICanvas& canvas)
{
    const PixelRect& plot = scene.model.frame.plot;
    const auto axes = scene.model.GetAxes(direction);
    for (std::size_t i = axes.size(); i > 0; --i)
    {
        const Pen pen = {scene.style.GetShownColour(axes[i - 1].gridColour), 0, PenStyle::solid};
        const OwnEdges edges = GetOwnEdges(i - 1, axes.size());
        if (edges.second)
        {
            const bool horizontal = direction == Direction::Horizontal;
            DrawLine(canvas, pen,
                     horizontal ? PixelPoint{plot.left, plot.top} : PixelPoint{plot.right, plot.top},
                     {plot.right, horizontal ? plot.top : plot.bottom});
        }
        if (edges.first)
        {
            const bool horizontal = direction == Direction::Horizontal;
            DrawLine(canvas, pen, {plot.left, horizontal ? plot.bottom : plot.top},
                     {horizontal ? plot.right : plot.left, plot.bottom});
        }
    }
}

void PaintDirection(const ChartScene& scene, Direction direction, ICanvas& canvas)
{
    const auto axes = scene.model.GetAxes(direction);
    const std::vector<std::vector<PlacedText>> labels = PlaceTickLabels(scene, direction, canvas);
    const std::vector<PlacedText> titles = PlaceTitles(scene, direction, canvas);
    for (std::size_t i = axes.size(); i > 0; --i)
    {
        const CAxis& axis = axes[i - 1];
        CAxisPainter painter(scene, direction, i - 1, canvas);
        painter.PaintTicks(labels[i - 1]);
        painter.PaintZeroLine();
        const PlacedText& title = titles[i - 1];
        if (!title.text.empty())
        {
            canvas.WriteText(title.topLeft, title.text, scene.style.GetShownColour(axis.axisColour), {});
        }
    }
}
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
    std::vector<PlacedText> titles;
    int left = frame.plot.left;
    int right = frame.plot.right;
    for (std::string& text : FitTitles(scene.model.GetAxes(direction), frame.plot.GetWidth(), gap, measure))
    {
        const int extent = measure.GetTextExtent(text).width;
        const bool fromRight = horizontal || IsOnFarSide(direction, titles.size());
        titles.push_back({std::move(text), {fromRight ? right - extent : left, 0}, 0});
        (fromRight ? right : left) += fromRight ? -extent - gap : extent + gap;
    }
    const auto hasRoom = [&](int top)
    { return top >= scene.client.top && top + frame.lineHeight <= scene.client.bottom; };
    int top = horizontal ? frame.GetTitleTop() : frame.plot.top - frame.lineHeight;
    if (const LegendRow legend = GetFirstLegendRow(scene, measure);
        horizontal && legend.right > frame.plot.left && legend.right <= right && hasRoom(legend.top))
    {
        top = legend.top;
    }
    for (PlacedText& title : titles)
    {
        title.topLeft.y = top;
        title.text = hasRoom(top) ? title.text : "";
    }
    return titles;
}

void PaintAxes(const ChartScene& scene, ICanvas& canvas)
{
    PaintFrame(scene, Direction::Horizontal, canvas);
    PaintFrame(scene, Direction::Vertical, canvas);
    PaintDirection(scene, Direction::Horizontal, canvas);
    PaintDirection(scene, Direction::Vertical, canvas);
}
