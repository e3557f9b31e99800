#pragma once

#include "chart/ICanvas.h"

#include <array>
#include <cairo.h>
#include <memory>
#include <string>
#include <vector>

// Paints into an image in memory, all of it by cairo. Rectangles of one colour that follow each other are
// filled at once, and lines of one pen stroked at once.
class CCairoCanvas final : public ICanvas
{
public:
    explicit CCairoCanvas(PixelSize size_);

    [[nodiscard]] cairo_t* GetContext() const { return context.get(); }
    void WriteFile(const char* path) const { cairo_surface_write_to_png(surface.get(), path); }

    [[nodiscard]] PixelSize GetTextExtent(std::string_view text) override;
    void FillRectangle(const PixelRect& rect, Colour colour) override;
    void DrawPolyline(const Pen& pen, std::span<const PixelPoint> points) override;
    void WriteText(PixelPoint topLeft, std::string_view text, Colour colour,
                   std::optional<Colour> background) override;
    void Clip(const PixelRect& area) override;
    void Unclip() override;
    void DrawXorLines(std::span<const PixelLine> lines, Colour colour) override;

private:
    void SetColour(Colour colour);
    void Flush();
    void FillBoxes();
    void StrokeStraightLines();
    void StrokeSlantedLines();

    PixelSize size;
    std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface;
    std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context;
    cairo_font_extents_t font{};
    std::array<double, 128> advances{}; // of the ASCII characters
    Pen pen;                            // of what is not drawn yet
    std::vector<PixelRect> boxes;
    std::vector<PixelLine> straight; // upright and level lines
    std::vector<PixelPoint> points;  // of slanted lines
    std::vector<std::size_t> ends;
};
