#include "chart/AxisTicks.h"
#include "chart/CAxisMapping.h"
#include "chart/PaintChart.h"
#include "chart/PlaceAxisTexts.h"

#include <algorithm>

namespace
{
class CAxisPainter
{
public:
    CAxisPainter(const ChartScene& scene_, Direction direction_, const CAxis& axis_, ICanvas& canvas_)
        : scene(scene_), direction(direction_), axis(axis_), canvas(canvas_),
          mapping(scene_.model, direction_, axis_), plot(scene_.model.frame.plot),
          minorParts(ListMinorParts(axis_, scene_.model.GetScale(direction_)))
    {
        const bool inverted = scene.style.invertsColours;
        axisPen = {scene.style.GetShownColour(axis.axisColour), 0, PenStyle::solid};
        gridPen = {scene.style.GetShownColour(axis.gridColour), 0,
                   inverted ? PenStyle::dot : PenStyle::solid};
    }

    void PaintTicks(const std::vector<PlacedText>& labels)
    {
        const IScale& scale = scene.model.GetScale(direction);
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
        if (!scene.model.GetScale(direction).IsLogarithmic() && IsInPlot(zero))
        {
            DrawAcross(axisPen, zero);
        }
    }

private:
    [[nodiscard]] bool IsInPlot(int pixel) const
    {
        return direction == Direction::Horizontal ? pixel >= plot.left && pixel <= plot.right
                                                  : pixel >= plot.top && pixel <= plot.bottom;
    }

    void Draw(const Pen& pen, int pixel, int from, int to)
    {
        const PixelPoint points[] = {
            direction == Direction::Horizontal ? PixelPoint{pixel, from} : PixelPoint{from, pixel},
            direction == Direction::Horizontal ? PixelPoint{pixel, to} : PixelPoint{to, pixel}};
        canvas.DrawPolyline(pen, points);
    }

    void DrawAcross(const Pen& pen, int pixel)
    {
        const bool horizontal = direction == Direction::Horizontal;
        Draw(pen, pixel, horizontal ? plot.top : plot.left, horizontal ? plot.bottom : plot.right);
    }

    // Of the interval that begins at tick `index`: decades have lines, other intervals marks at both edges.
    void PaintMinorTicks(int index)
    {
        const IScale& scale = scene.model.GetScale(direction);
        const bool horizontal = direction == Direction::Horizontal;
        const int from = horizontal ? plot.top : plot.left;
        const int to = horizontal ? plot.bottom : plot.right;
        const int mark = std::max(scene.model.frame.lineHeight / 4, 2);
        for (const double part : minorParts)
        {
            const int pixel = mapping.GetMinorTickPixel(GetMinorTick(axis, scale, index, part));
            if (!IsInPlot(pixel))
            {
                continue;
            }
            if (scale.IsLogarithmic())
            {
                Draw(gridPen, pixel, from, to);
                continue;
            }
            const Pen markPen = {gridPen.colour, 0, PenStyle::solid};
            Draw(markPen, pixel, from, from + mark);
            Draw(markPen, pixel, to - mark, to);
        }
    }

    const ChartScene& scene;
    const Direction direction;
    const CAxis& axis;
    ICanvas& canvas;
    CAxisMapping mapping;
    const PixelRect& plot;
    const std::vector<double> minorParts;
    Pen axisPen;
    Pen gridPen;
};

void DrawLine(ICanvas& canvas, const Pen& pen, PixelPoint from, PixelPoint to)
{
    const PixelPoint points[] = {from, to};
    canvas.DrawPolyline(pen, points);
}

// A single axis has both of its edges framed; of several the even ones have the bottom or left edge.
void PaintFrame(const ChartScene& scene, Direction direction, ICanvas& canvas)
{
    const PixelRect& plot = scene.model.frame.plot;
    const auto axes = scene.model.GetAxes(direction);
    for (std::size_t i = axes.size(); i > 0; --i)
    {
        const Pen pen = {scene.style.GetShownColour(axes[i - 1].gridColour), 0, PenStyle::solid};
        const bool atOrigin = (i - 1) % 2 == 0;
        const bool both = axes.size() == 1;
        if (both || !atOrigin)
        {
            const bool horizontal = direction == Direction::Horizontal;
            DrawLine(canvas, pen,
                     horizontal ? PixelPoint{plot.left, plot.top} : PixelPoint{plot.right, plot.top},
                     {plot.right, horizontal ? plot.top : plot.bottom});
        }
        if (both || atOrigin)
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
        CAxisPainter painter(scene, direction, axis, canvas);
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

void PaintAxes(const ChartScene& scene, ICanvas& canvas)
{
    PaintFrame(scene, Direction::Horizontal, canvas);
    PaintFrame(scene, Direction::Vertical, canvas);
    PaintDirection(scene, Direction::Horizontal, canvas);
    PaintDirection(scene, Direction::Vertical, canvas);
}
