#include "chart/PaintChart.h"

void PaintChart(const ChartScene& scene, ICanvas& canvas)
{
    canvas.FillRectangle(scene.client, scene.style.background);
    PaintAxes(scene, canvas);
    PaintCurves(scene, canvas);
    PaintSelectionLabel(scene, canvas);
    PaintLegend(scene, canvas);
    PaintReadOuts(scene, canvas);
}

std::string FitText(ITextMeasure& measure, std::string_view text, int width)
{
    if (measure.GetTextExtent(text).width <= width)
    {
        return std::string(text);
    }
    // The longest beginning that fits, by halving.
    const auto shorten = [text](std::size_t length) { return std::string(text.substr(0, length)) + "..."; };
    std::size_t fits = 0;
    std::size_t tooLong = text.size();
    while (tooLong - fits > 1)
    {
        const std::size_t middle = fits + (tooLong - fits) / 2;
        (measure.GetTextExtent(shorten(middle)).width <= width ? fits : tooLong) = middle;
    }
    return fits > 0 ? shorten(fits) : std::string();
}
