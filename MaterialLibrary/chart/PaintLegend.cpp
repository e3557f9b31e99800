#include "chart/PaintChart.h"

namespace
{
constexpr int firstRow = 2; // below the tick labels and the titles
constexpr int lastRow = 3;
} // namespace

void PaintLegend(const ChartScene& scene, ICanvas& canvas)
{
    const PixelRect& plot = scene.model.frame.plot;
    const int h = canvas.GetTextExtent("0,").height;
    const int side = h - h / 4;
    int row = firstRow;
    int x = plot.left;
    for (const CLegendEntry& entry : scene.model.GetLegend())
    {
        const int width = h + canvas.GetTextExtent(entry.name).width + h;
        if (x + width > plot.right && x > plot.left)
        {
            ++row;
            x = plot.left;
        }
        if (row > lastRow)
        {
            return;
        }
        const int top = plot.bottom + h * row;
        canvas.FillRectangle({x, top + h / 8, x + side, top + h / 8 + side}, entry.colour);
        canvas.WriteText({x + h, top}, FitText(canvas, entry.name, plot.right - x - h),
                         scene.style.GetShownColour(0xFFFFFF), {});
        x += width;
    }
}
