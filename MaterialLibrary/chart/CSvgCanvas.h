#pragma once

#include "chart/PaintChart.h"

#include <string>

// Paints into a picture of the SVG format. Texts are measured with the widths of a common sans-serif typeface
// instead of a font, so that a chart has the same layout on every computer; viewers with another font are
// told to squeeze texts to these widths.
class CSvgCanvas final : public ICanvas
{
public:
    CSvgCanvas(PixelSize size_, int fontPixels_);

    // The picture as it is now: an XML document in UTF-8.
    [[nodiscard]] std::string GetDocument() const;

    [[nodiscard]] PixelSize GetTextExtent(std::string_view text) override;
    void FillRectangle(const PixelRect& rect, Colour colour) override;
    void DrawPolyline(const Pen& pen, std::span<const PixelPoint> points) override;
    void WriteText(PixelPoint topLeft, std::string_view text, Colour colour,
                   std::optional<Colour> background) override;
    void Clip(const PixelRect& area) override;
    void Unclip() override;
    void DrawXorLines(std::span<const PixelLine> lines, Colour colour) override;

private:
    void EndPath();

    PixelSize size;
    int fontPixels;
    int clipAreas = 0;
    bool clipped = false;
    std::optional<Pen> openPen; // of the path under way
    std::string body;
};

// The document of a chart in a picture of that size, with what it shows now but for the mouse.
[[nodiscard]] std::string DrawSvgPicture(CChartModel model, const ChartStyle& style, PixelSize size,
                                         int fontPixels);
